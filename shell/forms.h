#pragma once

class FormAnalyze;
class FormHra;
class FrmDialog2;
class FrmDialog3;
class FrmFormality;
class FrmLoading;
class FrmMain;
class FrmPoSt;
class FrmSLang;
class FrmSada;
class FrmSettings;
class FrmStart2;

namespace platform {
class MenuItem;
}

/// One instance of each form; they live to the end of the program and reach each other here.
/// Filled before any of them is used.
struct Forms {
  FrmSettings* frmSettings = nullptr;
  FormHra* hra = nullptr;
  FormAnalyze* frmAnalyze = nullptr;
  FrmPoSt* frmPoSt = nullptr;
  FrmStart2* frmStart2 = nullptr;
  FrmDialog2* frmDialog2 = nullptr;
  FrmDialog3* frmDialog3 = nullptr;
  FrmLoading* frmLoading = nullptr;
  FrmSLang* frmSLang = nullptr;
  platform::MenuItem* mnuHelpP = nullptr;
  FrmSada* frmSada = nullptr;
  FrmMain* frmMain = nullptr;
  FrmFormality* frmFormality = nullptr;
};
