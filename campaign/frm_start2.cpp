// What the start screen does; how it looks stands in frm_start2_layout.cpp.

#include "campaign/frm_start2.h"

#include <algorithm>
#include <cmath>
#include <filesystem>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "campaign/frm_dialog3.h"
#include "campaign/frm_post.h"
#include "campaign/frm_settings.h"
#include "campaign/players.h"
#include "cave/names.h"
#include "cave/set_file.h"
#include "platform/application.h"
#include "platform/file_dialog.h"
#include "platform/keys.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "shell/frm_loading.h"
#include "shell/frm_slang.h"
#include "shell/links.h"
#include "shell/registry_values.h"
#include "view/form_hra.h"

namespace {

constexpr int kButtonRadius = 76;     // logical pixels, of the round buttons
constexpr const char* kNobody = "/";  // the player of a record from anywhere

/// A press hits a round button, or comes from its caption or the keyboard: these have no button.
bool Hits(int button, int x, int y) {
  return button == 0 || std::hypot(x - kButtonRadius, y - kButtonRadius) < kButtonRadius;
}

std::string FileNameOf(const std::string& path) { return path.substr(path.rfind('/') + 1); }

bool Ask(const std::string& question, platform::BoxButtons buttons) {
  return platform::ShowMessageBox({question, LangStr[text::kCopySetTitle], buttons, platform::BoxIcon::kQuestion}) ==
         platform::BoxAnswer::kYes;
}

/// The path of an existing file, or "".
std::string AskForFile(const std::string& title, const std::string& shown, const std::string& pattern,
                       const std::string& folder, const std::string& own_folder = {}) {
  namespace dialogs = platform::CommonDialogy;
  return dialogs::ShowOpenDialog({title, dialogs::FileFilter(shown, pattern), folder,
                                  dialogs::kFileMustExist | dialogs::kHideReadOnly, /*default_extension=*/{},
                                  own_folder});
}

/// Where a copy of a set goes. A name that is taken gets a "~", once: a second such copy takes the place of the first.
std::string CopyOf(const std::string& path) {
  const std::string name = FileNameOf(path);
  if (FindPath(OwnSets + name).empty() && FindPath(CestaKomnaty + name).empty()) return OwnSets + name;
  return OwnSets + name.substr(0, name.size() - std::min<std::size_t>(name.size(), 3)) + "~.zb";
}

}  // namespace

// --- Settings --------------------

void FrmStart2::FindSett() {
  FrmSettings& settings = *forms_.frmSettings;
  settings.ReadValues();
  FormHra& hra = *forms_.hra;
  hra.tmrHra.set_interval(settings.Rychlost * 10);  // each cave and each replay sets one of its own
  settings.SetSett();
  hra.set_window_state(static_cast<platform::WindowState>(ReadNumber(registry::kMaximized) == 1 ? 2 : 0));
  FindLanguage();
}

void FrmStart2::FindLanguage() {
  FrmSLang& language = *forms_.frmSLang;
  language.ListLanguages(folder_);
  std::string file = ReadText(registry::kJazyk);
  std::error_code ignored;
  if (file.size() < 2 || !std::filesystem::is_regular_file(FindPath(folder_ + "/" + file), ignored)) {
    forms_.frmLoading->Hide();
    language.Combo1.Choose(0);
    language.ShowModal();
    // What was chosen is what counts now, not the value that was lost. That is meant.
    file = language.File1.at(static_cast<std::size_t>(language.Combo1.list_index()));
    forms_.frmLoading->ShowNow();
  }
  int index = 0;
  for (std::size_t i = 0; i < language.File1.size(); ++i) {
    if (language.File1[i] == file) index = static_cast<int>(i);
  }
  language.Combo1.Choose(index);
}

// --- Lists --------------------

void FrmStart2::FindColls() {
  File1.clear();
  List1.Clear();
  std::vector<std::string> folders = {CestaKomnaty};
  if (OwnSets != CestaKomnaty) folders.push_back(OwnSets);
  for (const std::string& folder : folders) {
    for (const std::string& file : ListFiles(folder, ".zb")) {
      File1.push_back(std::string(folder).append(file));  // the folders end in a slash
      List1.Add(ReadSetName(File1.back()).append(" (").append(ReadableFromUtf8(file, PageInForce())).append(")"));
    }
  }
  if (!File1.empty()) List1.set_list_index(0);
  Command3.set_enabled(!File1.empty());
}

void FrmStart2::FindPlrs() {
  std::vector<std::string> players;
  for (;;) {
    MakeFolder(CestaHraci);
    players = ListPlayers();
    if (!players.empty()) break;
    AskForPlayer();
  }
  List2.Clear();
  for (const std::string& player : players) List2.Add(player, platform::CharsetOf(PlayerPage(player)));
  // The stored number is a place in the list: a new player whose name comes first moves it to somebody else.
  const int last = ReadNumber(registry::kPosledniHrac);
  List2.set_list_index(std::clamp(last, 0, List2.count() - 1));
  List2_Click();
}

void FrmStart2::List2_Click() {
  forms_.hra->PlayerName = List2.item(List2.list_index());
  WriteNumber(registry::kPosledniHrac, List2.list_index());
}

void FrmStart2::Command1_Click() {
  if (!AskForPlayer()) return;
  FindPlrs();
  // What comes next is to play, once it is clear as whom: the player selected may be another than the new one.
  if (List2.count() > 1) {
    List2.SetFocus();
  } else {
    List1.SetFocus();
  }
}

/// True when there is a new player.
bool FrmStart2::AskForPlayer() {
  FrmDialog3& dialog = *forms_.frmDialog3;
  const bool loading = forms_.frmLoading->visible();
  forms_.frmLoading->Hide();  // it would stand in front
  dialog.ShowModal();
  if (loading) forms_.frmLoading->ShowNow();
  if (dialog.Text1.text().empty()) return false;
  const std::string name = CistyNazev(dialog.Text1.text());
  // A letter that cannot be kept would be missing in the name.
  const bool made = !dialog.Text1.holds_unknown() && MakePlayer(name);
  if (made) {
    const std::string folder = ReadableFromUtf8(PlayerFolder(name), PageInForce());
    platform::ShowMessageBox({Replaced(Replaced(LangStr[text::kWelcome], "?1?", Shortened(name)), "?2?", folder),
                              LangStr[text::kWelcomeTitle], platform::BoxButtons::kOk,
                              platform::BoxIcon::kInformation});
  } else {
    platform::ShowMessageBox({LangStr[text::kPlayerNotMade], LangStr[text::kPlayerNotMadeTitle],
                              platform::BoxButtons::kOk, platform::BoxIcon::kExclamation});
  }
  dialog.Text1.set_text("");
  return made;
}

// --- Playing --------------------

void FrmStart2::Image3_MouseDown(int button, int x, int y) {
  if (Hits(button, x, y)) ShowPanel(true);
  Timer1.Stop();
}

void FrmStart2::Label1_Click() {
  Image3_MouseDown(0, 0, 0);
  List2_Click();
  List1.SetFocus();
}

void FrmStart2::ShowPanel(bool open) {
  Picture1.set_visible(open);
  Image1.set_visible(!open);
  Label8_4.set_visible(!open);
  OknoStart(*this, open ? StartShape::kPanelOpen : StartShape::kResting);
  set_default_button(open ? &Command3 : nullptr);
}

// A further move does not put the closing off.
void FrmStart2::Image4_MouseMove() {
  if (!Timer1.enabled()) Timer1.Start();
}

void FrmStart2::Image5_MouseMove() { Image4_MouseMove(); }

void FrmStart2::Image6_MouseMove() { Image4_MouseMove(); }

void FrmStart2::Image10_MouseMove() { Timer1.Stop(); }

void FrmStart2::Timer1_Timer() {
  Timer1.Stop();
  const bool open = Picture1.visible();
  ShowPanel(false);
  if (open) Label1.SetFocus();
}

void FrmStart2::Command3_Click() {
  if (List1.list_index() < 0) throw Fault("No cave set is selected.");
  const std::string path = File1.at(static_cast<std::size_t>(List1.list_index()));
  forms_.frmPoSt->set_caption(Replaced(LangStr[text::kOverviewTitle], "?1?", Shortened(forms_.hra->PlayerName)));
  forms_.frmPoSt->LoadColl(path);
}

void FrmStart2::Command2_Click() {
  std::string path = AskForFile(LangStr[text::kOpenSetElsewhereTitle], LangStr[text::kSetFiles] + "(*.zb)", "*.zb",
                                CestaKomnaty, OwnSets);
  AnotherColl(path);
}

void FrmStart2::AnotherColl(std::string& path) {
  if (path.empty()) return;
  if (Ask(LangStr[text::kCopySetQuestion], platform::BoxButtons::kYesNo)) {
    const std::string copy = CopyOf(path);
    MakeFolder(OwnSets);
    WriteFile(copy, ReadFile(path));
    if (Ask(LangStr[text::kDeleteCopiedQuestion], platform::BoxButtons::kYesDefaultNo)) {
      std::error_code error;
      std::filesystem::remove(path, error);
      if (error) throw Fault("The file cannot be deleted: " + error.message() + ".", path);
    }
    path = copy;
    FindColls();
  }
  // The mark for the player stays in the text, and the name follows it. That is meant.
  forms_.frmPoSt->set_caption(LangStr[text::kOverviewTitle] + " " + Shortened(forms_.hra->PlayerName));
  forms_.frmPoSt->LoadColl(path);
}

// --- The other buttons --------------------

void FrmStart2::Image4_MouseDown(int button, int x, int y) {
  if (!Hits(button, x, y)) return;
  AnotherRepl(
      AskForFile(LangStr[text::kOpenReplayTitle], LangStr[text::kRecordFiles] + " (*.zbr)", "*.zbr", CestaZaznamy));
}

void FrmStart2::AnotherRepl(const std::string& path) {
  if (path.empty()) return;
  FormHra& hra = *forms_.hra;
  hra.CurrentFile = path;
  hra.SetFile = kNobody;
  hra.PlayerName = kNobody;
  hra.game.TestPlay = false;
  hra.Show();
  Hide();
  hra.Replay();
}

void FrmStart2::Image5_MouseDown(int button, int x, int y) {
  if (Hits(button, x, y)) openEditor();
}

void FrmStart2::Image6_MouseDown(int button, int x, int y) {
  if (!Hits(button, x, y)) return;
  forms_.mnuHelpP->PopUp(*this, Image6.left() + Image6.width(), Label4.top() + Label4.height() / 2);
}

void FrmStart2::Label2_Click() { Image4_MouseDown(0, 0, 0); }

void FrmStart2::Label3_Click() { Image5_MouseDown(0, 0, 0); }

void FrmStart2::Label4_Click() { Image6_MouseDown(0, 0, 0); }

void FrmStart2::Image1_Click() { OtevriOdkaz(folder_ + "/Help/Tempo/index.htm"); }

void FrmStart2::Label9_Click() { forms_.frmSLang->ShowModal(); }

void FrmStart2::Picture4_Click() { Label7_Click(); }

bool FrmStart2::Form_QueryUnload() {
  Label7_Click();
  return false;
}

void FrmStart2::Label7_Click() {
  const int state = static_cast<int>(forms_.hra->window_state());
  WriteNumber(registry::kMaximized, state == 1 ? 0 : state / 2);
  platform::Application::Quit(0);
}

void FrmStart2::Form_KeyDown(platform::KeyEvent& event) {
  if (event.code == platform::kKeyEscape && Picture1.visible()) Timer1_Timer();
  // Enter takes the player over and goes on to the sets, from where it plays.
  if (event.code == platform::kKeyEnter && List2.has_focus()) {
    List1.SetFocus();
    event.handled = true;
  }
}
