#include "shell/frm_slang.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/language_file.h"
#include "platform/message_box.h"
#include "shell/registry_values.h"

FrmSLang::FrmSLang() {
  set_caption("Language / Jazyk :");
  Combo1.set_font({18, false, false, false});
  Combo1.set_accessible_name("Language / Jazyk");
  Combo1.on_click = [this] { Combo1_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command1.set_caption(Cp1250("O překladu..."));
  Command2.on_click = [this] { Command2_Click(); };
  set_default_button(&Command2);
  set_cancel_button(&Command2);
  SetLW();
}

void FrmSLang::ListLanguages(const std::string& folder) {
  Path = folder;
  File1 = ListFiles(folder, ".zbl");
  if (File1.empty()) throw Fault("There is no language file (*.zbl) in this folder.", folder);
  Combo1.Clear();
  const std::string prefix = folder + "/";
  for (const std::string& file : File1) {
    const LanguageHeader language = ReadLanguageHeader(prefix + file);
    Combo1.Add(language.name, platform::CharsetOf(CodePageOf(language.number)));
  }
}

void FrmSLang::Combo1_Click() {
  const std::string& file = File1.at(static_cast<std::size_t>(Combo1.list_index()));
  NactiJazyk(Path + "/" + file);
  WriteText(registry::kJazyk, file);
}

void FrmSLang::Command1_Click() { ShowAboutTranslation(); }

void FrmSLang::Command2_Click() {
  Hide();
  if (showStart) showStart();
}

void FrmSLang::SetLW() {
  constexpr int kEdge = 20;
  constexpr int kHeight = 36;
  if (!LangStr[text::kAboutTranslation].empty()) Command1.set_caption(LangStr[text::kAboutTranslation]);
  const int about = std::max(150, Command1.text_width() + 32);
  const int inner = about + 10 + 110;
  Combo1.SetBounds(kEdge, kEdge, inner, kHeight);
  Command1.SetBounds(kEdge, 2 * kEdge + kHeight, about, kHeight);
  Command2.SetBounds(kEdge + about + 10, 2 * kEdge + kHeight, 110, kHeight);
  Resize(inner + 2 * kEdge, 3 * kEdge + 2 * kHeight);
}

void ShowAboutTranslation() {
  platform::ShowMessageBox({LangStr[text::kTranslationText], LangStr[text::kAboutTranslation],
                            platform::BoxButtons::kOk, platform::BoxIcon::kInformation});
}
