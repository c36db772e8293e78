#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/list_controls.h"

/// The choice of the language.
class FrmSLang : public platform::Form {
 public:
  FrmSLang();

  /// Lists the languages whose files lie in a folder. Throws Fault when there is none, or one cannot be read.
  void ListLanguages(const std::string& folder);
  /// Loads the selected language and stores its file name as the one to start with.
  void Combo1_Click();
  void Command1_Click();  // about the translation
  void Command2_Click();  // OK
  /// Texts of the language in force.
  void SetLW();

  /// Shows what lies behind, called by OK.
  std::function<void()> showStart;

  std::string Path;                // the folder of File1
  std::vector<std::string> File1;  // file names, row by row those of Combo1

  platform::ComboBox Combo1{this};
  platform::Button Command1{this};
  platform::Button Command2{this, "OK"};
};

/// Tells who made the translation.
void ShowAboutTranslation();
