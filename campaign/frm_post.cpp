#include "campaign/frm_post.h"

#include <algorithm>

#include "base/code_page.h"
#include "base/fault.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "campaign/frm_start2.h"
#include "cave/names.h"
#include "engine/recording.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "shell/frm_dialog2.h"
#include "shell/frm_loading.h"
#include "shell/links.h"
#include "view/form_analyze.h"
#include "view/form_hra.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kRowsShown = 10;
constexpr int kRow = 32;  // logical pixels of a row
constexpr const char* kUnknown = "???";
constexpr std::size_t kShortestMail = 6;
constexpr platform::Colour kWhite = platform::Rgb(0xFFFFFF);
constexpr platform::Colour kCyan = platform::Rgb(0x00FFFF);
constexpr platform::Colour kSelected = platform::Rgb(0x54361F);

/// The sets of a contest, which has a page of its own.
const std::array<std::string, 2>& ContestSets() {
  static const std::array<std::string, 2> sets = {Cp1250("TEMPO - O bodový zisk"), Cp1250("TEMPOerný Zorbík")};
  return sets;
}

}  // namespace

FrmPoSt::FrmPoSt(const std::string& programFolder, const Forms& forms) : folder_(programFolder), forms_(forms) {
  Command1.set_caption(Cp1250("Přehrát záznam"));
  Command2.set_caption("Start");
  Command3.set_caption("Gratulace");
  Command4.set_caption("Podrobnosti");
  Label2.set_caption("00000");
  Image1.set_picture(
      LoadExtra(programFolder + "/pictures", picture::kBonus, 50, 50, platform::Application::PixelRatio()));
  Label1.set_locked(true);
  for (platform::Control* control : std::initializer_list<platform::Control*>{&Command3, &Command4, &Command1, &Image1})
    control->set_visible(false);
  VScroll1.on_change = [this] { VScroll1_Change(); };
  Picture1.on_wheel = [this](const platform::WheelEvent& event) { VScroll1.set_value(VScroll1.value() - event.steps); };
  Label3.on_click = [this] { Label3_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  Command4.on_click = [this] { Command4_Click(); };
  on_key_down = [this](platform::KeyEvent& event) { Form_KeyDown(event); };
  on_close_query = [this] { return Form_QueryUnload(); };
  set_default_button(&Command2);
  Place();
}

void FrmPoSt::Place() {
  constexpr int kEdge = 20;
  constexpr int kWidth = 880;
  constexpr int kHead = 84;
  constexpr int kListTop = kEdge + kHead + 12;
  constexpr int kListWidth = 456;
  constexpr int kRight = kEdge + kListWidth + 16;
  constexpr int kRightWidth = kWidth - kEdge - kRight;
  constexpr int kButton = 38;
  constexpr int kListHeight = kRowsShown * kRow + 16;
  constexpr int kBottom = kListTop + kListHeight + 34 + kButton + 10;
  const platform::Theme& theme = platform::Application::theme();

  for (platform::Shape* panel : {&shpHead, &shpList, &shpCard}) {
    panel->set_back_colour(panel == &shpList ? theme.field : theme.panel);
    panel->set_fore_colour(theme.outline);
    panel->set_line_width(2);
    panel->set_corner(10);
  }
  shpHead.SetBounds(kEdge, kEdge, kWidth - 2 * kEdge, kHead);
  Label4.SetBounds(kEdge + 18, kEdge + 10, 560, 38);
  Label4.set_font({26, true, false, false});
  Label4.set_fore_colour(theme.accent);
  Label4.set_middle(true);
  Label3.SetBounds(kEdge + 18, kEdge + 50, 400, 24);
  Label3.set_middle(true);
  Label5.SetBounds(kWidth - kEdge - 18 - 230, kEdge + 12, 230, 20);
  Label5.set_alignment(platform::Alignment::kRight);
  Label2.SetBounds(kWidth - kEdge - 18 - 230, kEdge + 34, 230, 40);
  Label2.set_alignment(platform::Alignment::kRight);
  Label2.set_middle(true);
  Label2.set_font({32, true, false, false});
  Label2.set_fore_colour(theme.accent);

  shpList.SetBounds(kEdge, kListTop, kListWidth, kListHeight);
  Picture1.SetBounds(kEdge + 8, kListTop + 8, kListWidth - 16 - 24, kRowsShown * kRow);
  Picture2.SetBounds(0, 0, Picture1.width(), kHighestCaveNumber * kRow);
  VScroll1.SetBounds(kEdge + kListWidth - 8 - 18, kListTop + 8, 18, kRowsShown * kRow);
  VScroll1.set_large_change(kRowsShown);
  shpAktK.set_back_colour(kSelected);
  shpAktK.set_line_width(0);
  Label6.SetBounds(kEdge + 8, kListTop + kListHeight + 6, kListWidth - 16, 24);
  Label6.set_middle(true);
  Label6.set_font({16, false, false, false});
  Command3.SetBounds(kEdge, kBottom - kButton, 150, kButton);
  Command4.SetBounds(kEdge + 160, kBottom - kButton, 150, kButton);

  constexpr int kText = 134;
  Label1.SetBounds(kRight, kListTop, kRightWidth, kText);
  const int card = kListTop + kText + 12;
  shpCard.SetBounds(kRight, card, kRightWidth, kBottom - card);
  Image1.MoveTo(kRight + kRightWidth - 42, card - 12);  // on the corner of the card, above the description
  lblName.SetBounds(kRight + 18, card + 14, kRightWidth - 18 - 50, 62);
  lblName.set_font({22, true, false, false});
  lblName.set_word_wrap(true);
  lblDescr.SetBounds(kRight + 18, 0, kRightWidth - 36, 0);
  lblDescr.set_word_wrap(true);
  lblDescr.set_font({16, false, false, false});
  lblZzn.SetBounds(kRight + 18, kBottom - kButton - 18 - 28, kRightWidth - 36, 20);
  lblZzn.set_font({14, false, false, false});
  Command1.SetBounds(kRight + 18, kBottom - kButton - 14, 190, kButton);
  Command2.SetBounds(kRight + kRightWidth - 18 - 120, kBottom - kButton - 14, 120, kButton);
  Command2.set_font({18, true, false, false});
  Resize(kWidth, kBottom + kEdge);
}

void FrmPoSt::FrmLoad() {
  BarvaZamcena = {191, 95, 0};
  BarvaOtevrena = {255, 255, 255};
  BarvaProsla = {255, 191, 63};
  BarvaCizi = {255, 63, 63};
  constexpr int kNumWidth = 44;
  constexpr int kScoreWidth = 80;
  for (int i = 1; i <= kHighestCaveNumber; ++i) {
    const int top = kRow * i - kRow;
    const auto make = [&](Column& column, int left, int columnTop, int width) -> platform::Label& {
      auto& label = column[static_cast<std::size_t>(i)];
      label = std::make_unique<platform::Label>(&Picture2);
      label->SetBounds(left, columnTop, width, kRow);
      label->set_visible(false);
      label->set_middle(true);
      label->set_font({16, false, false, false});
      label->set_pointer(platform::Pointer::kHand);
      label->on_click = [this, i] { lblCave_Click(i); };
      label->on_double_click = [this, i] {
        if (StavK[static_cast<std::size_t>(i)] != Locked) Command2_Click();
      };
      return *label;
    };
    platform::Label& num = make(lblNum, 0, top - 1, kNumWidth);
    num.set_alignment(platform::Alignment::kCentre);
    num.set_fore_colour(platform::Application::theme().muted_text);
    num.set_caption(Digits(i, 2));
    make(lblCave, kNumWidth, top, Picture1.width() - kNumWidth - kScoreWidth);
    platform::Label& score = make(lblScore, Picture1.width() - kScoreWidth, top, kScoreWidth);
    score.set_alignment(platform::Alignment::kCentre);
    score.on_click = [this, i] { lblScore_Click(i); };
  }
}

// --- Loading a set --------------------

void FrmPoSt::LoadColl(const std::string& path) {
  forms_.frmLoading->ShowNow();
  try {
    ShowSet(path);
    ReadRecords(PlayerRecords(forms_.hra->PlayerName));
  } catch (...) {
    forms_.frmLoading->Hide();  // it would stand before the message
    throw;
  }
  for (std::size_t row = 1; row <= PocetK; ++row) ShowRow(row);
  lblCave_Click(1);
  if (PocetK == 0) ShowNoCave();
  VScroll1.set_max(PocetK - kRowsShown);
  VScroll1.set_enabled(PocetK > kRowsShown);
  forms_.hra->SetFile = path;
  forms_.hra->SetName = Label4.caption();
  CelkSkore();
  forms_.frmLoading->Hide();
  forms_.frmStart2->Hide();
  SetLWPost();
  Show();
}

void FrmPoSt::ShowSet(const std::string& path) {
  if (!HasRow(1)) FrmLoad();
  for (Column* column : {&lblNum, &lblCave, &lblScore}) {
    for (auto& label : *column) {
      if (label) label->set_visible(false);
    }
  }
  ::LoadColl(path, *this);
  Label4.set_caption(Name);
  Label4.set_tool_tip(Name);
  Label3.set_caption(Cp1250("© ") + Author);
  Label1.set_text(Description);
  ShowMail();
  forms_.hra->game.Score = 0;
}

void FrmPoSt::ShowMail() {
  const bool link = Mail.find('@') != std::string::npos && Mail.size() >= kShortestMail;
  MailAutora = link ? Mail : "";
  Label3.set_fore_colour(link ? kCyan : kWhite);
  Label3.set_font({16, false, false, link});
  Label3.set_tool_tip(link ? LangStr[text::kMailToAuthorTip] + " '" + Shortened(MailAutora) + "'" : "");
  Label3.set_pointer(link ? platform::Pointer::kHand : platform::Pointer::kArrow);
  Label3.set_tab_stop(link);
  Label3.set_width(std::min(Label3.text_width() + 4, 540));
}

void FrmPoSt::ShowRow(std::size_t row) {
  const std::array<platform::Colour, 4> colours = {BarvaZamcena, BarvaOtevrena, BarvaProsla, BarvaCizi};
  lblCave[row]->set_caption(StavK[row] == Locked ? kUnknown : KomRec[row].Name);
  lblCave[row]->set_fore_colour(colours.at(StavK[row]));
  lblCave[row]->set_visible(true);
  lblScore[row]->set_caption(Digits(Score[row], 5));
  lblScore[row]->set_visible(true);
  lblScore[row]->BringToFront();
  lblNum[row]->set_visible(true);
}

void FrmPoSt::SetLWPost() {
  Command1.set_caption(LangStr[text::kWatchReplay]);
  Command2.set_caption(LangStr[text::kPlay]);
  Command3.set_caption(LangStr[text::kCongratulation]);
  Label5.set_caption(LangStr[text::kTotalScore]);
  Label1.set_accessible_name(LangStr[text::kSetDescriptionLabel]);
  VScroll1.set_accessible_name(LangStr[text::kCavesLabel]);
  const auto& contest = ContestSets();
  Command4.set_visible(std::find(contest.begin(), contest.end(), Label4.caption()) != contest.end());
}

// --- Selecting a cave --------------------

void FrmPoSt::lblCave_Click(int n) {
  if (n < 1 || n > PocetK) return;
  ShowCard(n);
  PlaceDescription();
  AktK = static_cast<std::int16_t>(n);
  const int top = lblCave[static_cast<std::size_t>(n)]->top();
  while (Picture2.top() + top + 4 >= Picture1.height()) VScroll1.set_value(VScroll1.value() + 1);
  while (Picture2.top() + top < 0) VScroll1.set_value(VScroll1.value() - 1);
  MarkRow(AktK);
  if (Command2.visible()) Command2.SetFocus();
}

/// A set without caves leaves nothing to play.
void FrmPoSt::ShowNoCave() {
  for (platform::Label* label : {&lblName, &lblDescr, &lblZzn}) label->set_caption("");
  for (platform::Control* control : std::initializer_list<platform::Control*>{&Command1, &Command2, &Image1, &shpAktK})
    control->set_visible(false);
}

void FrmPoSt::ShowCard(int n) {
  const auto cave = static_cast<std::size_t>(n);
  Command1.set_visible(StavK[cave] > Open);
  Image1.set_visible(StavK[cave] != Locked && JeBonus(KomRec[cave].Name));
  lblZzn.set_caption("");
  lblZzn.set_tool_tip("");
  if (StavK[cave] == Locked) {
    lblName.set_caption(kUnknown);
    lblDescr.set_caption(LangStr[text::kCaveLocked] + std::string(kLineBreak) + KomRec[OpenBefore(cave)].Name);
    Command2.set_visible(false);
    return;
  }
  if (StavK[cave] != Open) {
    const std::string& player = forms_.hra->PlayerName;
    const std::string name = RecordName(Name, KomRec[cave].Name);
    lblZzn.set_caption(name);
    lblZzn.set_tool_tip(Shortened(ReadableFromUtf8(PlayerFolder(player), PageInForce())) + "/" + Shortened(name));
  }
  PresetGame(KomRec[cave]);
  lblName.set_caption(KomRec[cave].Name);
  lblDescr.set_caption(KomRec[cave].Description);
  Command2.set_visible(true);
}

/// The description follows right below the name, which takes one line or two.
void FrmPoSt::PlaceDescription() {
  lblDescr.set_top(lblName.top() + std::min(lblName.text_height(), lblName.height()) + 8);
  lblDescr.set_height(lblZzn.top() - 4 - lblDescr.top());
}

void FrmPoSt::PresetGame(const CaveRecord& cave) {
  forms_.hra->lblCas.set_caption(Digits(cave.Time, 3));
  forms_.hra->lblTreba.set_caption(Digits(cave.Need, 3));
  forms_.hra->lblBz1.set_caption(Digits(cave.PointsBefore, 2));
  forms_.hra->lblBody.set_caption("0");
  forms_.hra->lblSebr.set_caption("000");
}

void FrmPoSt::MarkRow(int n) {
  shpAktK.set_visible(true);
  shpAktK.SetBounds(0, lblCave[static_cast<std::size_t>(n)]->top(), Picture1.width(), kRow);
}

void FrmPoSt::VScroll1_Change() { Picture2.set_top(-kRow * VScroll1.value()); }

void FrmPoSt::Form_KeyDown(platform::KeyEvent& event) {
  const bool reading = Label1.has_focus();  // the description scrolls by these keys
  event.handled = true;
  if (event.code == platform::kKeyDown) {
    lblCave_Click(AktK + 1);
  } else if (event.code == platform::kKeyUp) {
    lblCave_Click(AktK - 1);
  } else if (event.code == platform::kKeyEscape) {
    Close();
  } else if (event.code == platform::kKeyPageDown && !reading) {
    lblCave_Click(std::min<int>(AktK + kRowsShown, PocetK));
  } else if (event.code == platform::kKeyPageUp && !reading) {
    lblCave_Click(std::max(AktK - kRowsShown, 1));
  } else if (event.code == platform::kKeyHome && !reading) {
    lblCave_Click(1);
  } else if (event.code == platform::kKeyEnd && !reading) {
    lblCave_Click(PocetK);
  } else {
    event.handled = false;
  }
}

bool FrmPoSt::Form_QueryUnload() {
  Hide();
  forms_.frmStart2->Show();
  return true;
}

// --- Progress --------------------

void FrmPoSt::Prosel() {
  const int next = Win(AktK, forms_.hra->WinScore);
  for (std::size_t row = 1; row <= PocetK; ++row) ShowRow(row);
  lblCave_Click(next);
  CelkSkore();
}

void FrmPoSt::CelkSkore() {
  Label6.set_caption(LeftText());
  Command3.set_visible(Left() == 0);
  Label2.set_caption(Digits(Total(), 5));
}

// --- Buttons and links --------------------

void FrmPoSt::Command2_Click() {
  FormHra& hra = *forms_.hra;
  hra.FrmLoad();
  hra.game.TestPlay = false;
  forms_.frmLoading->ShowNow();
  hra.SetName = Label4.caption();
  hra.game.PlayingReplay = false;
  hra.PaintCave(KomText[static_cast<std::size_t>(AktK)]);
  forms_.frmLoading->Hide();
  hra.Command1_Click();
  hra.Show();
  Hide();
}

void FrmPoSt::Command1_Click() {
  FormHra& hra = *forms_.hra;
  hra.FrmLoad();
  forms_.frmLoading->ShowNow();
  const std::string name = RecordName(Name, KomRec[static_cast<std::size_t>(AktK)].Name);
  hra.CurrentFile = PlayerFolder(hra.PlayerName) + "/" + ToUtf8(ToLower(name, CodePage::k1250), CodePage::k1250);
  Hide();
  hra.Show();
  hra.game.TestPlay = false;
  forms_.frmLoading->Hide();
  hra.Replay();
}

void FrmPoSt::Command3_Click() {
  FrmDialog2& dialog = *forms_.frmDialog2;
  dialog.Vysledek = Replaced(Gratulace, "$P", Label2.caption());
  dialog.ShowG();
  dialog.ShowModal();
}

void FrmPoSt::Command4_Click() { OtevriOdkaz(folder_ + "/Help/Tempo/index.htm"); }

void FrmPoSt::Label3_Click() {
  if (!Label3.font().underline) return;
  OtevriOdkaz(MailTo(ToUtf8(MailAutora, PageInForce())) +
              ToUtf8("?subject=" + LangStr[text::kMailSubjectBefore] + " '" + Label4.caption() + "' " +
                         LangStr[text::kMailSubjectBehind],
                     PageInForce()));
}
