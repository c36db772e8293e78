#pragma once

#include <string>

#include "campaign/frm_dialog3.h"
#include "campaign/frm_post.h"
#include "campaign/frm_settings.h"
#include "campaign/frm_start2.h"
#include "editor/frm_formality.h"
#include "editor/frm_main.h"
#include "editor/frm_sada.h"
#include "shell/forms.h"
#include "shell/frm_about.h"
#include "shell/frm_dialog2.h"
#include "shell/frm_loading.h"
#include "shell/frm_slang.h"
#include "shell/help_menu.h"
#include "view/form_analyze.h"
#include "view/form_hra.h"

/// The program: one instance of each form, and the start. One program at a time.
class Program {
 public:
  /// folder: where the program's data lies, without "/" at its end. executable: the name it was started by, without a
  /// path; it decides in which language the folders have their names. dataFolder: where what the user makes goes when
  /// it cannot go to the program's folder; otherwise empty.
  Program(std::string folder, std::string executable, std::string dataFolder);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  /// Reads the settings, loads the forms and shows the start screen. Throws Fault when something that the program needs
  /// is damaged or missing.
  void Main();

  Forms forms;
  FrmSettings frmSettings;
  FormAnalyze frmAnalyze;
  FormHra hra;
  FrmPoSt frmPoSt;
  FrmStart2 frmStart2;
  FrmAbout frmAbout;
  FrmDialog2 frmDialog2;
  FrmDialog3 frmDialog3;
  FrmLoading frmLoading;
  FrmSLang frmSLang;
  HelpMenu helpMenu;
  FrmSada frmSada;
  FrmMain frmMain;
  FrmFormality frmFormality;

 private:
  void TieForms();
  void ShowAfterGame();
  void SetLW();

  std::string folder_;
  std::string executable_;
  std::string dataFolder_;
};
