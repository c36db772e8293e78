// The set editor's files: a new set, opening, saving, and the question before changes are lost.

#include <filesystem>

#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "cave/names.h"
#include "editor/frm_sada.h"
#include "platform/file_dialog.h"
#include "platform/message_box.h"
#include "shell/frm_loading.h"

namespace {

/// The window that stands in front of a form during long work, for as long as this exists; then the form has the input
/// again.
class Working {
 public:
  Working(FrmLoading& front, platform::Form& form) : front_(front), form_(form) { front_.ShowNow(); }
  ~Working() {
    front_.Hide();
    form_.Show();
  }
  Working(const Working&) = delete;
  Working& operator=(const Working&) = delete;

 private:
  FrmLoading& front_;
  platform::Form& form_;
};

std::string SetFilter() { return platform::FileFilter(LangStr[text::kSetFiles] + " (*.zb)", "*.zb"); }

/// The name of the set as that of a file, UTF-8.
std::string ProposedName(const platform::TextBox& name) {
  const CodePage page = name.charset() == platform::Charset::kCyrillic ? CodePage::k1251 : CodePage::k1250;
  return ToUtf8(FileName(name.text(), ".zb", page), page);
}

/// Every cave has to be one before the set takes the place of another.
void CheckCaves(const std::string& path, const EditedSet& set) {
  if (set.PocetK == 0) throw Fault("The set has no caves.", path);
  for (int i = 1; i <= set.PocetK; ++i) {
    try {
      ParseCaveText(set.KomText[static_cast<std::size_t>(i)]);
    } catch (const Fault& fault) {
      throw Fault("Cave " + std::to_string(i) + ": " + fault.what(), path);
    }
  }
}

}  // namespace

/// The set under edit stays as it is after a fault.
void FrmSada::Tell(const Fault& fault) {
  platform::ShowMessageBox(
      {ShownFault(fault, PageInForce()), HeroName, platform::BoxButtons::kOk, platform::BoxIcon::kCritical});
}

void FrmSada::mnuNew_Click() {
  List1.SetFocus();  // first of all: leaving the points is a change
  Soubor.clear();
  Text1.set_text("");
  Text2.set_text("@");
  Text3.set_text(LangStr[text::kNewSetName]);
  Text4.set_text(LangStr[text::kNewDescription]);
  Gratulace = LangStr[text::kNewCongratulation];
  PocetK = 1;
  KomText[1] = CaveTemplate(NewCave::kSmall);
  GetNames(0);
  SetChanged(false);
}

// --- Opening --------------------

void FrmSada::mnuOpen_Click() {
  if (!MayGoOn()) return;
  const std::string path = platform::ShowOpenDialog({LangStr[text::kOpenSetTitle], SetFilter(), CestaKomnaty,
                                                     platform::kFileMustExist | platform::kHideReadOnly,
                                                     /*default_extension=*/{}, OwnSets});
  if (path.empty()) return;
  try {
    OpenColl(path);
  } catch (const Fault& fault) {
    Tell(fault);
    return;
  }
  Soubor = path;
  SetChanged(false);
}

void FrmSada::OpenColl(const std::string& path) {
  EditedSet read = *this;  // a file that leaves numbers out leaves the caves there as they are
  OpenResult result = OpenResult::kOpened;
  {
    const Working working(*forms_.frmLoading, *this);
    result = ::OpenColl(path, read);
    if (result == OpenResult::kOpened) CheckCaves(path, read);
  }
  static_cast<EditedSet&>(*this) = read;
  ShowTexts();
  if (result == OpenResult::kLaterFormat) {
    platform::ShowMessageBox(
        {LangStr[text::kLaterFormat], LangStr[text::kLaterFormatTitle], platform::BoxButtons::kOk});
    mnuNew_Click();
    Show();
    return;
  }
  GetNames(0);
}

// --- Saving --------------------

void FrmSada::mnuSave_Click() {
  if (Soubor.empty() || !TryToSave(Soubor)) mnuSaveAs_Click();  // what cannot be written here may go elsewhere
}

void FrmSada::mnuSaveAs_Click() {
  std::error_code ignored;  // without the folder the dialog starts elsewhere
  std::filesystem::create_directories(OwnSets, ignored);
  const std::string path =
      platform::ShowSaveDialog({LangStr[text::kSaveSetTitle], SetFilter(), OwnSets,
                                platform::kExplorerStyle | platform::kOverwritePrompt | platform::kHideReadOnly, "*.zb",
                                OwnSets, ProposedName(Text3)});
  if (!path.empty() && TryToSave(path)) Soubor = path;
}

/// When it fails the set stays as it is, with its changes still unsaved.
bool FrmSada::TryToSave(const std::string& path) {
  try {
    SaveColl(path);
  } catch (const Fault& fault) {
    Tell(fault);
    return false;
  }
  SetChanged(false);
  return true;
}

void FrmSada::SaveColl(const std::string& path) {
  const Working working(*forms_.frmLoading, *this);
  ::SaveColl(path, *this);
}

// --- Leaving --------------------

/// Asks what to do with unsaved changes. False: the set stays, for the user wants it or it could not be saved.
bool FrmSada::MayGoOn() {
  if (!Changed) return true;
  const platform::MessageBox box{Replaced(LangStr[text::kUnsavedQuestion], "?1?", Text3.text()),
                                 LangStr[text::kUnsavedTitle], platform::BoxButtons::kYesNoCancel,
                                 platform::BoxIcon::kQuestion};
  const platform::BoxAnswer answer = platform::ShowMessageBox(box);
  if (answer == platform::BoxAnswer::kYes) mnuSave_Click();
  return answer == platform::BoxAnswer::kNo || (answer == platform::BoxAnswer::kYes && !Changed);
}

void FrmSada::mnuClose_Click() {
  if (!MayGoOn()) return;
  if (leave) leave();
}

bool FrmSada::Form_QueryUnload() {
  mnuClose_Click();
  return false;  // the form stays loaded
}
