// The cave editor: opening, drawing, operations, test play, handing back.

#include "editor/frm_main.h"

#include <algorithm>
#include <cstdlib>

#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "cave/cave_text.h"
#include "editor/frm_formality.h"
#include "editor/frm_sada.h"
#include "platform/application.h"
#include "view/form_hra.h"

namespace {

constexpr int kScrollStep = CaveEdit::kCell / 2;  // logical pixels of a step of the bars
constexpr int kShownColumns = 19;
constexpr int kShownRows = 11;

// An operation shows each cell that it changes. When this takes long, it goes on at the rate of the screen.
using std::chrono::milliseconds;
constexpr milliseconds kShowEachCell{400};
constexpr milliseconds kScreenRate{16};

int Number(const platform::TextBox& field) { return std::atoi(field.text().c_str()); }

std::uint8_t SmallNumber(const platform::TextBox& field) {
  return static_cast<std::uint8_t>(std::clamp(Number(field), 0, 255));
}

/// As much of a text as a cave text can hold.
std::string Fitting(const std::string& text) { return text.substr(0, kLargestSmallNumber); }

}  // namespace

// --- Opening --------------------

void FrmMain::FrmLoad() {
  edit.FrmLoad();
  if (pictures_) return;
  pictures_ =
      std::make_unique<PalettePictures>(folder_ + "/pictures", CaveEdit::kCell, platform::Application::PixelRatio());
  for (int i = 0; i < kPaletteSize; ++i) imgS[static_cast<std::size_t>(i)]->set_picture((*pictures_)[i]);
  NameCounts();
  ShowChosen();
}

void FrmMain::OpenCave(const std::string& caveText) {
  FrmLoad();
  edit.Open(caveText);
  pointerX_ = pointerY_ = -1;
  SizeCanvas();
  SetProps();
  edit.PaintAll();
  Dog_Click(1);
  imgS_MouseDown(kPaletteEmpty, platform::kRightButton);
  imgS_MouseDown(kPaletteGem, platform::kLeftButton);
  imgS_MouseDown(kPaletteDirt, platform::kMiddleButton);
  ShowCounts();
  EditKom.SetFocus();
  MoveCursor(0, 0);
}

void FrmMain::SetRozm() {
  edit.SetRozm();
  SizeCanvas();
  edit.PaintAll();
  ShowCounts();
  MoveCursor(0, 0);
}

/// The canvas takes the cave's size and shows its upper left corner. Nothing is painted on it yet.
void FrmMain::SizeCanvas() {
  const int width = CaveEdit::kCell * edit.Sirka;
  const int height = CaveEdit::kCell * edit.Vyska;
  EditKom.Resize(width, height);
  EditKom.surface().Reset(width, height, platform::Application::PixelRatio());
  HScroll1.set_max(2 * (edit.Sirka - kShownColumns));
  VScroll1.set_max(2 * (edit.Vyska - kShownRows));
  HScroll1.set_value(0);
  VScroll1.set_value(0);
  HScroll1_Change();
  VScroll1_Change();
}

void FrmMain::HScroll1_Change() {
  EditKom.set_left(-kScrollStep * HScroll1.value());
  ViewMoved();
}

void FrmMain::VScroll1_Change() {
  EditKom.set_top(-kScrollStep * VScroll1.value());
  ViewMoved();
}

/// Another cell lies below the mouse now. While the author works by keyboard the line tells the cursor's.
void FrmMain::ViewMoved() {
  int column = 0;
  int row = 0;
  const bool seen = pointerX_ >= 0 && pointerX_ < Ram.width() && pointerY_ >= 0 && pointerY_ < Ram.height();
  if (!seen || shpCursor.visible() || !CellAt(pointerX_ - EditKom.left(), pointerY_ - EditKom.top(), column, row))
    return;
  ShowCell(column, row);
}

/// The cell at a place of the canvas; false outside the cave.
bool FrmMain::CellAt(int x, int y, int& column, int& row) const {
  if (x < 0 || y < 0) return false;
  column = x / CaveEdit::kCell;
  row = y / CaveEdit::kCell;
  return column < edit.Sirka && row < edit.Vyska;
}

void FrmMain::PREKR(int x, int y, int palette) {
  const platform::Picture& tile = palette == kPaletteHero ? imgS[kPaletteHero]->picture() : (*pictures_)[palette];
  EditKom.surface().Copy(tile, CaveEdit::kCell * x, CaveEdit::kCell * y);
}

// --- Drawing --------------------

void FrmMain::imgS_MouseDown(int index, int button) {
  if (!edit.Choose(button, index)) return;
  const platform::Image& tile = *imgS[static_cast<std::size_t>(index)];
  platform::Shape& marker = *Shape1[static_cast<std::size_t>(button - 1)];
  constexpr int kMiddleOffset = 7;
  constexpr int kBelow = 29;
  int left = tile.left();
  if (button == platform::kRightButton) {
    left += tile.width() - marker.width();
  } else if (button != platform::kLeftButton) {
    left += kMiddleOffset;
  }
  marker.MoveTo(left, tile.top() + kBelow);
  CaptionOperations();
  ShowChosen();
}

/// The operations name the tiles that they work with. A hero is not put in place of many.
void FrmMain::CaptionOperations() {
  const int left = edit.VybranyObjekt[platform::kLeftButton];
  const int right = edit.VybranyObjekt[platform::kRightButton];
  const std::string& l = imgS[static_cast<std::size_t>(left)]->tool_tip();
  const std::string& p = imgS[static_cast<std::size_t>(right)]->tool_tip();
  mnuObjbyObj.set_visible(left != kPaletteHero);
  mnuOkraj.set_visible(left != kPaletteHero);
  mnuOkraj.set_caption(LangStr[text::kMakeBorder] + " '" + l + "'");
  mnuObjbyObj.set_caption(Replaced(Replaced(LangStr[text::kReplaceTile], "?1?", p), "?2?", l));
  Sep1.set_visible(false);
}

void FrmMain::Dog_Click(int number) { edit.Dog_Click(number); }

/// The palette shows the hero whose number has been chosen.
void FrmMain::ShowHero(int number) {
  for (int i = 0; i < 10; ++i) Dog[static_cast<std::size_t>(i)]->set_checked(i == number);
  platform::Image& hero = *imgS[kPaletteHero];
  const std::string name = HeroName + " " + std::to_string(number);
  if (pictures_) hero.set_picture(pictures_->Hero(number));
  hero.set_tool_tip(name);
  hero.set_accessible_name(name);
  CaptionOperations();
  ShowChosen();
}

void FrmMain::EditKom_MouseMove(const platform::MouseEvent& event) {
  ShowCursor(false);
  edit.EditKom_MouseMove(event.button, event.x, event.y);
  if (event.button != 0) ShowCounts();
  pointerX_ = event.x + EditKom.left();
  pointerY_ = event.y + EditKom.top();
  int column = 0;
  int row = 0;
  if (!CellAt(event.x, event.y, column, row)) return;
  if (event.button != 0) SetCursor(column, row);  // keys go on where the mouse has drawn
  ShowCell(column, row);
}

// --- Operations --------------------

void FrmMain::mnuEd_Click() {
  const int found = edit.NuOfOb(edit.P());
  constexpr std::array<int, 4> kFrom = {2, 1, 5, 10};  // cells from which the replacement is offered
  for (std::size_t i = 0; i < kFrom.size(); ++i) mnuReplRan[i].set_visible(found >= kFrom[i]);
}

void FrmMain::Run(const std::function<void()>& operation) {
  runStart_ = std::chrono::steady_clock::now();
  operation();
  ShowCounts();
}

void FrmMain::ShowRun() {
  const auto now = std::chrono::steady_clock::now();
  if (now - runStart_ > kShowEachCell && now - runShown_ < kScreenRate) return;
  runShown_ = now;
  ShowAmoeba();
  EditKom.Refresh();
}

void FrmMain::ReplaceO(int index) {
  Run([&] { edit.ReplaceO(index); });
}

void FrmMain::mnuReplRan_Click(int index) {
  Run([&] { edit.mnuReplRan_Click(index); });
}

void FrmMain::mnuOkraj_Click() {
  Run([&] { edit.mnuOkraj_Click(); });
}

void FrmMain::mnuRestore_Click() { forms_.frmSada->mnuEdit_Click(); }

// --- The bar --------------------

// Whatever was chosen there, the author goes on drawing.

void FrmMain::Label7_Click() {
  mnuEd.PopUp(*this, Picture4.left() + Label7.left(), Picture4.height());
  EditKom.SetFocus();
}

void FrmMain::Label3_Click() {
  SetProps();
  forms_.frmFormality->ShowModal();
  EditKom.SetFocus();
}

void FrmMain::Command2_Click() {
  PesMenu.PopUp(*this, Command2.left() + Command2.width(), Command2.top() + Command2.height() / 2);
}

// --- Properties --------------------

void FrmMain::SetProps() {
  FrmFormality& dialog = *forms_.frmFormality;
  const CaveRecord& cave = edit.EdKomnata;
  dialog.Text3.set_text(cave.Name);
  dialog.Text4.set_text(cave.Description);
  dialog.Text5.set_text(std::to_string(cave.Time));
  dialog.Text6.set_text(std::to_string(cave.Need));
  dialog.Text7.set_text(std::to_string(cave.MagicTime));
  dialog.Text8.set_text(std::to_string(cave.AmoebaTime));
  dialog.Text9.set_text(std::to_string(cave.PointsBefore));
  dialog.Text10.set_text(std::to_string(cave.PointsAfter));
  dialog.Text11.set_text(std::to_string(cave.SlimeThrough));
  dialog.Text1.set_text(std::to_string(cave.Width));
  dialog.Text2.set_text(std::to_string(cave.Height));
  dialog.HScroll1.set_value(cave.Tint);
  dialog.HScroll1_Change();
}

// The dialog's fields take more characters than a cave text can hold.
void FrmMain::VlOK_Click() {
  const FrmFormality& dialog = *forms_.frmFormality;
  CaveRecord& cave = edit.EdKomnata;
  cave.Name = Fitting(dialog.Text3.text());
  cave.Description = Fitting(dialog.Text4.text());
  cave.Time = static_cast<std::int16_t>(Number(dialog.Text5));
  cave.AmoebaTime = SmallNumber(dialog.Text8);
  cave.MagicTime = SmallNumber(dialog.Text7);
  cave.Need = static_cast<std::int16_t>(Number(dialog.Text6));
  cave.SlimeThrough = SmallNumber(dialog.Text11);
  cave.PointsBefore = SmallNumber(dialog.Text9);
  cave.PointsAfter = SmallNumber(dialog.Text10);
  if (Number(dialog.Text2) != cave.Height || Number(dialog.Text1) != cave.Width) {
    cave.Width = SmallNumber(dialog.Text1);
    cave.Height = SmallNumber(dialog.Text2);
    SetRozm();
  }
  cave.Tint = static_cast<std::uint8_t>(dialog.HScroll1.value());
  ShowCounts();
}

// --- Test play and return --------------------

void FrmMain::Label8_Click() {
  Ram.SetFocus();
  platform::Application::ProcessEvents();
  if (!visible()) return;  // an event that waited has closed the editor, or started the test play
  FormHra& hra = *forms_.hra;
  hra.PlayerName = LangStr[text::kCaveAuthor];
  hra.SetName = forms_.frmSada->Text3.text();
  Hide();
  hra.Show();
  StartTestPlay();
  EditKom.SetFocus();  // where the author goes on
}

void FrmMain::HraRest() { StartTestPlay(); }

/// The cave runs at once, without waiting for "Start".
void FrmMain::StartTestPlay() {
  FormHra& hra = *forms_.hra;
  hra.game.TestPlay = true;
  hra.game.PlayingReplay = false;
  hra.PaintCave(edit.Text());
  hra.Command1_Click();
}

void FrmMain::VratKomnatu() {
  forms_.frmSada->SetKKKtoK(edit.Text());
  Hide();
  forms_.frmSada->Show();
}

bool FrmMain::Form_QueryUnload() {
  VratKomnatu();
  return true;
}

// --- What is shown --------------------

/// The tiles that the mouse buttons have.
void FrmMain::ShowChosen() {
  constexpr std::array<int, 3> kButtons = {platform::kLeftButton, platform::kMiddleButton, platform::kRightButton};
  for (std::size_t i = 0; i < kButtons.size(); ++i) {
    const int palette = edit.VybranyObjekt[static_cast<std::size_t>(kButtons[i])];
    const platform::Image& tile = *imgS[static_cast<std::size_t>(palette)];
    imgChosen[i].set_picture(tile.picture());
    for (platform::Image* image : {&imgMouse[i], &imgChosen[i], &imgKeys[i]}) image->set_tool_tip(tile.tool_tip());
  }
}

void FrmMain::ShowCounts() {
  ShowAmoeba();
  status.ShowCounts(edit.Counts(), edit.EdKomnata.Need);
}

/// The counter grows beyond its tile when the number needs it.
void FrmMain::ShowAmoeba() {
  constexpr int kTop = 12;
  constexpr int kHeight = 14;
  const platform::Image& amoeba = *imgS[kPaletteAmoeba];
  Label1.set_caption(std::to_string(edit.AmoebaCount));
  const int width = std::max(amoeba.width(), Label1.text_width() + 2);
  Label1.SetBounds(amoeba.left() + (amoeba.width() - width) / 2, amoeba.top() + kTop, width, kHeight);
}

void FrmMain::ShowCell(int x, int y) {
  const char c = edit.EdKomnata.Cell(x, y);
  const int palette = PaletteIndexOf(c);
  if (palette < 0) {
    status.ShowCell(x, y, {}, std::string("'") + c + "'");
  } else if (palette == kPaletteHero) {
    const int number = HeroNumberOf(c);
    status.ShowCell(x, y, pictures_->Hero(number), HeroName + " " + std::to_string(number));
  } else {
    status.ShowCell(x, y, (*pictures_)[palette], imgS[static_cast<std::size_t>(palette)]->tool_tip());
  }
}

void FrmMain::SetLWEd() {
  set_caption(LangStr[text::kCaveEditorTitle]);
  Label7.set_caption(LangStr[text::kEditMenu]);
  Label3.set_caption(LangStr[text::kPropertiesMenu]);
  Label8.set_caption(LangStr[text::kTestPlayMenu]);
  bar_.Place();
  for (std::size_t i = 0; i < imgS.size(); ++i) {
    imgS[i]->set_tool_tip(LangStr[text::kTileEmpty + i]);
    imgS[i]->set_accessible_name(LangStr[text::kTileEmpty + i]);
  }
  mnuRestore.set_caption(LangStr[text::kRestore]);
  for (std::size_t i = 0; i < mnuReplEvery.size(); ++i) mnuReplEvery[i].set_caption(LangStr[text::kReplaceEach + i]);
  for (std::size_t i = 0; i < mnuReplRan.size(); ++i) mnuReplRan[i].set_caption(LangStr[text::kReplaceHalf + i]);
  EditKom.set_accessible_name(LangStr[text::kCaveEditorTitle]);
  Label1.set_tool_tip(LangStr[text::kTileEmpty + kPaletteAmoeba]);
  HScroll1.set_accessible_name(LangStr[text::kCaveWidth]);
  VScroll1.set_accessible_name(LangStr[text::kCaveHeight]);
  NameCounts();
  ShowHero(edit.AktualniPes);  // the hero's name is that of the language, its number the one chosen
  Command2.set_accessible_name(HeroName);
  Command2.set_tool_tip(HeroName + " 1 - 9");
  forms_.frmFormality->SetLW();
}

void FrmMain::NameCounts() {
  if (!pictures_) return;
  constexpr int kExit = 9;
  status.SetTiles({(*pictures_)[kPaletteGem], (*pictures_)[kPaletteHero], (*pictures_)[kExit]},
                  {LangStr[text::kTileEmpty + kPaletteGem], HeroName, LangStr[text::kTileEmpty + kExit]});
}
