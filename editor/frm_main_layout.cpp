// How the cave editor looks: its controls, palette, menus and places.

#include <initializer_list>

#include "base/code_page.h"
#include "editor/frm_main.h"
#include "platform/application.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kEdge = 16;
constexpr int kBar = MenuBar::kHeight;
constexpr int kRamWidth = 494;
constexpr int kRamHeight = 286;
constexpr int kScrollBar = 18;
constexpr int kWidth = kEdge + kRamWidth + 6 + kScrollBar + kEdge;
constexpr int kRamTop = kBar + 14;
constexpr int kPaletteTop = kRamTop + kRamHeight + 6 + kScrollBar + 22;
constexpr int kPitchX = 33;
constexpr int kPitchY = 42;
constexpr int kPaletteLeft = kEdge + 6;
constexpr int kHeroLeft = kWidth - kEdge - 6 - CaveEdit::kCell;
constexpr int kLegendTop = kPaletteTop + 2 * kPitchY;
constexpr int kLegend = 30;
constexpr int kStatusTop = kLegendTop + kLegend + 14;
constexpr int kHeight = kStatusTop + StatusLine::kHeight + kEdge;

// One colour for each button: its marker, its picture and its keys.
constexpr platform::Colour kLeftColour = platform::Rgb(0xF2A93B);
constexpr platform::Colour kMiddleColour = platform::Rgb(0x8BD450);
constexpr platform::Colour kRightColour = platform::Rgb(0x6FB7FF);

constexpr platform::Colour kShelf = platform::Rgb(0x4C3828);  // lighter than the tile of an empty cell

}  // namespace

FrmMain::FrmMain(const std::string& programFolder, const Forms& forms)
    : Form(platform::Border::kFixed, kWidth, kHeight),
      status(this, programFolder + "/pictures"),
      folder_(programFolder),
      forms_(forms) {
  MakePalette();
  MakeControls();
  MakeMenus();
  Place();
  PlacePalette();
  edit.hooks.PREKR = [this](int x, int y, int palette) {
    if (pictures_) PREKR(x, y, palette);
  };
  edit.hooks.heroChosen = [this](int number) { ShowHero(number); };
  edit.hooks.refresh = [this] { ShowRun(); };
}

void FrmMain::MakePalette() {
  for (int i = 0; i < kPaletteSize; ++i) {
    auto& tile = imgS[static_cast<std::size_t>(i)];
    tile = std::make_unique<platform::Image>(this);
    tile->set_stretch(true);
    tile->set_tool_tip(Cp1250(kPalette[static_cast<std::size_t>(i)].name));
    tile->set_pointer(platform::Pointer::kHand);
    tile->on_mouse_down = [this, i](const platform::MouseEvent& event) { imgS_MouseDown(i, event.button); };
  }
  StopAtTile(kPaletteGem);
  const platform::Colour colours[] = {kLeftColour, kRightColour, {}, kMiddleColour};
  for (const std::size_t i : {0u, 1u, 3u}) {
    Shape1[i] = std::make_unique<platform::Shape>(this);
    Shape1[i]->set_back_colour(colours[i]);
  }
  Label1.BringToFront();
}

void FrmMain::MakeControls() {
  set_caption(Cp1250("Zorbíkův editor komnat"));
  Label7.set_caption(Cp1250(" Úpravy "));
  Label3.set_caption(" Vlastnosti ");
  Label8.set_caption(Cp1250(" Odzkoušet "));
  Label7.on_click = [this] { Label7_Click(); };
  Label3.on_click = [this] { Label3_Click(); };
  Label8.on_click = [this] { Label8_Click(); };
  Label7.set_tool_tip("F10");
  Label3.set_tool_tip("F4");
  Label8.set_tool_tip("F5");
  EditKom.set_tab_stop(true);
  EditKom.on_mouse_move = [this](const platform::MouseEvent& event) { EditKom_MouseMove(event); };
  EditKom.on_mouse_down = [this](const platform::MouseEvent& event) {
    EditKom.SetFocus();
    EditKom_MouseMove(event);
  };
  EditKom.on_got_focus = [this] { ShowCursor(true); };
  EditKom.on_lost_focus = [this] { ShowCursor(false); };
  Ram.on_wheel = [this](const platform::WheelEvent& event) {
    platform::ScrollBar& bar = (event.shift & platform::kShift) != 0 ? HScroll1 : VScroll1;
    bar.set_value(bar.value() - 2 * event.steps);
  };
  HScroll1.on_change = [this] { HScroll1_Change(); };
  VScroll1.on_change = [this] { VScroll1_Change(); };
  HScroll1.set_max(10);
  VScroll1.set_max(5);
  HScroll1.set_large_change(3);
  VScroll1.set_large_change(3);
  Label1.on_mouse_down = [this](const platform::MouseEvent& event) { imgS_MouseDown(kPaletteAmoeba, event.button); };
  Label1.set_pointer(platform::Pointer::kHand);
  Command2.set_caption("1-9");
  Command2.set_font({12, true, false, false});
  Command2.on_click = [this] { Command2_Click(); };
  on_key_down = [this](platform::KeyEvent& event) { Form_KeyDown(event); };
  on_close_query = [this] { return Form_QueryUnload(); };
}

void FrmMain::MakeMenus() {
  for (int i = 0; i < 10; ++i) {
    auto& item = Dog[static_cast<std::size_t>(i)];
    item = std::make_unique<platform::MenuItem>(&PesMenu, std::to_string(i));
    item->set_visible(i != 0);
    item->on_click = [this, i] { Dog_Click(i); };
  }
  mnuEd.on_open = [this] { mnuEd_Click(); };
  mnuRestore.set_caption(Cp1250("Vrátit do původního stavu"));
  mnuRestore.on_click = [this] { mnuRestore_Click(); };
  mnuObjbyObj.set_caption("Nahradit P za L");
  for (std::size_t i = 0; i < mnuReplEvery.size(); ++i) {
    mnuReplEvery[i].set_caption(Cp1250(i == 0 ? "Každý" : "Každý druhý"));
    mnuReplEvery[i].on_click = [this, i] { mnuReplEvery_Click(static_cast<int>(i) + 1); };
  }
  constexpr std::array<int, 4> kRandom = {0, 1, 5, 10};
  for (std::size_t i = 0; i < mnuReplRan.size(); ++i) {
    const int index = kRandom[i];
    mnuReplRan[i].set_caption(Cp1250("Náhodně ") + (index == 0 ? "50%" : std::to_string(index)));
    mnuReplRan[i].on_click = [this, index] { mnuReplRan_Click(index); };
  }
  mnuOkraj.set_caption(Cp1250("Udělat okraj z L"));
  mnuOkraj.on_click = [this] { mnuOkraj_Click(); };
  Sep1.set_visible(false);
  mnuStats.set_visible(false);
}

void FrmMain::Place() {
  const platform::Theme& theme = platform::Application::theme();
  const int ratio = platform::Application::PixelRatio();
  Picture4.SetBounds(0, 0, kWidth, kBar);
  Picture4.set_back_colour(theme.panel);
  shpRam.SetBounds(kEdge - 3, kRamTop - 3, kRamWidth + 6, kRamHeight + 6);
  shpRam.set_back_colour(theme.field);
  shpRam.set_fore_colour(theme.outline);
  shpRam.set_line_width(3);
  Ram.SetBounds(kEdge, kRamTop, kRamWidth, kRamHeight);
  EditKom.SetBounds(0, 0, kRamWidth, kRamHeight);
  HScroll1.SetBounds(kEdge - 3, kRamTop + kRamHeight + 6, kRamWidth + 6, kScrollBar);
  VScroll1.SetBounds(kEdge + kRamWidth + 6, kRamTop - 3, kScrollBar, kRamHeight + 6);
  shpCursorLine.set_fore_colour(theme.outline);
  shpCursorLine.set_line_width(4);
  shpCursor.set_fore_colour(theme.accent);
  shpCursor.set_line_width(2);
  MoveCursor(0, 0);

  const std::string files = folder_ + "/pictures";
  constexpr std::array<picture::Extra, 3> kMice = {picture::kMouseLeft, picture::kMouseMiddle, picture::kMouseRight};
  constexpr std::array<picture::Extra, 3> kKeys = {picture::kKeysLeft, picture::kKeysMiddle, picture::kKeysRight};
  constexpr std::array<int, 3> kLefts = {kPaletteLeft, kPaletteLeft + 160, kPaletteLeft + 358};
  for (std::size_t i = 0; i < kMice.size(); ++i) {
    int left = kLefts[i];
    const auto show = [&](platform::Image& image, const picture::Extra& extra) {
      image.set_picture(LoadExtra(files, extra, extra.width, extra.height, ratio));
      image.MoveTo(left, kLegendTop + (kLegend - extra.height) / 2);
      left += extra.width + 8;
    };
    show(imgMouse[i], kMice[i]);
    show(imgKeys[i], kKeys[i]);
    imgChosen[i].set_stretch(true);
    imgChosen[i].SetBounds(left, kLegendTop + (kLegend - CaveEdit::kCell) / 2, CaveEdit::kCell, CaveEdit::kCell);
  }
  status.Place(kEdge - 3, kStatusTop, kWidth - 2 * kEdge + 6);
  bar_.Place();
}

void FrmMain::PlacePalette() {
  const platform::Theme& theme = platform::Application::theme();
  shpPalette.SetBounds(kEdge - 3, kPaletteTop - 10, kWidth - 2 * kEdge + 6, kLegendTop + kLegend - kPaletteTop + 16);
  shpPalette.set_back_colour(kShelf);
  shpPalette.set_fore_colour(theme.outline);
  for (std::size_t row = 0; row < kPaletteRows.size(); ++row) {
    for (std::size_t column = 0; column < kPaletteRows[row].size(); ++column) {
      imgS[static_cast<std::size_t>(kPaletteRows[row][column])]->SetBounds(
          kPaletteLeft + kPitchX * static_cast<int>(column), kPaletteTop + kPitchY * static_cast<int>(row),
          CaveEdit::kCell, CaveEdit::kCell);
    }
  }
  imgS[kPaletteHero]->SetBounds(kHeroLeft, kPaletteTop + kPitchY, CaveEdit::kCell, CaveEdit::kCell);
  constexpr int kButtonWidth = 38;
  Command2.SetBounds(kHeroLeft + CaveEdit::kCell - kButtonWidth + 2, kPaletteTop - 2, kButtonWidth,
                     CaveEdit::kCell + 4);
  Label1.set_font({11, true, false, false});
  Label1.set_alignment(platform::Alignment::kCentre);
  Label1.set_middle(true);
  Label1.set_back_colour(theme.field);
  ShowAmoeba();
  // Where they stand until a tile is chosen: under the one that each button has from the beginning.
  const platform::Image& empty = *imgS[kPaletteEmpty];
  constexpr int kMarker = 8;
  constexpr int kMarkerHeight = 7;
  Shape1[0]->SetBounds(empty.left(), empty.top() + 29, kMarker, kMarkerHeight);
  Shape1[1]->SetBounds(empty.left() + empty.width() - kMarker, empty.top() + 29, kMarker, kMarkerHeight);
  Shape1[3]->SetBounds(empty.left() + 7, empty.top() + 29, empty.width() - 2 * 7, kMarkerHeight);
}
