// How the game window looks: controls, pictures, places, colours.

#include <cmath>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "platform/application.h"
#include "view/colours.h"
#include "view/form_hra.h"

namespace {

constexpr int kColumns = 19;  // tiles of the window on the cave
constexpr int kRows = 11;
constexpr int kEdge = 12;         // between the window's edge and what stands in it
constexpr int kPanelHeight = 56;  // of the counters
constexpr int kMessageHeight = 32;
constexpr int kFooterHeight = 36;
constexpr int kGap = 6;
constexpr int kLine = 3;  // around the window on the cave
constexpr int kIcon = 24;

}  // namespace

void FormHra::MakeControls() {
  using platform::Alignment;
  for (platform::Label* value : {&lblCas, &lblSebr, &lblTreba, &lblBz1, &lblBody}) {
    value->set_font({24, true, false, false});
    value->set_middle(true);
  }
  for (platform::Label* caption : {&Label1, &Label2, &Label4, &Label7}) caption->set_middle(true);
  lblName.set_font({18, true, false, false});
  lblName.set_alignment(Alignment::kRight);
  lblName.set_middle(true);
  Ram.set_back_colour(platform::Colour{});
  pctBlesk.set_visible(false);
  pctBlesk.set_stretch(true);
  Picture5.set_border(true);
  lblStart.set_font({24, true, false, false});
  lblStart.set_alignment(Alignment::kCentre);
  lblDescr.set_word_wrap(true);
  lblDescr.set_alignment(Alignment::kCentre);
  lblDescr.set_font({16, false, false, false});
  Command1.set_caption("Start");
  Picture8.set_border(true);
  Picture8.set_visible(false);
  lblRestart.set_caption("Restart (Ctrl+R)");
  lblRestart.set_middle(true);
  Message1.set_font({18, true, false, false});
  Message1.set_middle(true);
  Message1.set_alignment(Alignment::kCentre);
  Picture6.set_visible(false);
  chkRec.set_caption(Cp1250("Zaznamenat hru"));
  Label5.set_middle(true);
  Command3.set_caption("Restart (Ctrl+R)");
  Image2.set_visible(false);

  Command1.on_click = [this] { Command1_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  Command4.on_click = [this] { Command4_Click(); };
  EndGame.on_click = [this] { EndGame_Click(); };
  chkRec.on_click = [this] { game.chkRec = chkRec.value(); };
  tmrHra.on_timer = [this] { tmrHra_Timer(); };
  tmrMsg.on_timer = [this] { tmrMsg_Timer(); };
  on_resize = [this] { Form_Resize(); };
  on_close_query = [this] { return Form_QueryUnload(); };
  on_key_down = [this](platform::KeyEvent& event) { KeyDown(event); };
  set_keys_go_to_game(true);
}

void FormHra::FrmLoad() {
  const int screen = platform::Application::ScreenWidth();
  // Between the two limits the size stays what it was. That is meant.
  if (screen >= 1024) {
    TileTw = 50;
  } else if (screen < 1000) {
    TileTw = 2 * (screen / 20 / 2);
  }
  TileTh = TileTw;
  LoadPictures();
  const int tile = static_cast<int>(TileTw);
  Ram.SetBounds(kEdge + kLine, kEdge + kPanelHeight + kGap, kColumns * tile, kRows * tile);
  shpRam.SetBounds(Ram.left() - kLine, Ram.top() - kLine, Ram.width() + 2 * kLine, Ram.height() + 2 * kLine);
  Frame1.Resize(Ram.width() + 2 * (kEdge + kLine),
                Ram.top() + Ram.height() + kLine + kMessageHeight + kFooterHeight + 3 * kGap);
  PlaceCounters();
  PlaceFooter();
  PlaceOverlays();
  set_min_size(Frame1.width(), Frame1.height());
  if (width() < Frame1.width() || height() < Frame1.height()) Resize(Frame1.width(), Frame1.height());
  Form_Resize();
}

void FormHra::LoadPictures() {
  const int tile = static_cast<int>(TileTw);
  const int ratio = platform::Application::PixelRatio();
  if (pictures_ && pictures_->size() == tile && pictures_->ratio() == ratio) return;
  const std::string files = folder_ + "/pictures";
  pictures_ = std::make_unique<TilePictures>(files, tile, ratio);
  const auto icon = [&files, ratio](const picture::Extra& extra) {
    return LoadExtra(files, extra, kIcon, kIcon, ratio);
  };
  imgCas.set_picture(icon(picture::kIconClock));
  imgSebr.set_picture(icon(picture::kIconGem));
  imgTreba.set_picture(icon(picture::kIconNeed));
  imgBz.set_picture(icon(picture::kIconPoints));
  imgBody.set_picture(icon(picture::kIconScore));
  Image2.set_picture(LoadExtra(files, picture::kReplay, 32, 32, ratio));
  pctBlesk.set_picture(LoadExtra(files, picture::kBlesk, kColumns * tile, kRows * tile, ratio));
  imgMrtvej.set_picture(LoadNumbered(files, picture::kMrtvejPes, 32, ratio));
  for (int number = picture::kMultiPes; number <= picture::kMrtvejPes; ++number) {
    small_[static_cast<std::size_t>(number)] = LoadNumbered(files, number, 25, ratio);
  }
  set_icon(LoadExtra(files, picture::kApp, 64, 64, ratio));
}

/// Each counter is a picture, its caption if it has one, and its value right behind the caption.
void FormHra::PlaceCounters() {
  shpPanel.SetBounds(kEdge, kEdge, Frame1.width() - 2 * kEdge, kPanelHeight - kGap / 2);
  const int top = shpPanel.top();
  const int height = shpPanel.height();
  int left = kEdge + 14;
  const auto place = [&left, top, height](platform::Image& icon, platform::Label* caption, platform::Label& value,
                                          int digits) {
    icon.MoveTo(left, top + (height - kIcon) / 2);
    left += kIcon + 6;
    if (caption != nullptr) {
      caption->SetBounds(left, top, caption->text_width() + 1, height);
      left += caption->width() + 6;
    }
    value.SetBounds(left, top, digits * 16 + 2, height);
    left += value.width() + 18;
  };
  place(imgCas, &Label1, lblCas, 3);
  place(imgSebr, &Label2, lblSebr, 3);
  place(imgTreba, &Label4, lblTreba, 3);
  place(imgBz, &Label7, lblBz1, 2);
  place(imgBody, nullptr, lblBody, 5);
  lblName.SetBounds(left, top, shpPanel.left() + shpPanel.width() - 16 - left, height);
}

void FormHra::PlaceFooter() {
  const int messageTop = Ram.top() + Ram.height() + kLine + kGap;
  Picture6.SetBounds(0, messageTop, Picture6.width(), kMessageHeight);
  shpO7.SetBounds(15, 0, Picture6.width() - 30, kMessageHeight);
  Message1.SetBounds(30, 0, Message1.width(), kMessageHeight);
  const int top = messageTop + kMessageHeight + kGap;
  Psi.SetBounds(kEdge, top + (kFooterHeight - 25) / 2, 9 * 25, 25);
  int left = kEdge + Psi.width() + 20;
  Picture7.SetBounds(left, top + (kFooterHeight - 16) / 2, 16, 16);
  Picture7.surface().Reset(16, 16, platform::Application::PixelRatio());
  left += 24;
  chkRec.SetBounds(left, top + (kFooterHeight - 24) / 2, chkRec.text_width() + 34, 24);
  Image2.MoveTo(left + chkRec.width() + 12, top + (kFooterHeight - 32) / 2);
  Label5.SetBounds(Image2.left() + 40, top, 150, kFooterHeight);
  int right = Frame1.width() - kEdge;
  for (platform::Button* button : {&EndGame, &Command4, &Command3}) {
    const int width = button->text_width() + 32;
    right -= width;
    button->SetBounds(right, top, width, kFooterHeight - 4);
    right -= kGap;
  }
}

void FormHra::PlaceOverlays() {
  pctBlesk.SetBounds(0, 0, Ram.width(), Ram.height());
  PlaceStartPanel();
  const int hint = lblRestart.text_width();
  Picture8.SetBounds(Ram.width() - hint - 76, 12, hint + 64, 44);
  imgMrtvej.MoveTo(8, 6);
  lblRestart.SetBounds(48, 0, hint + 8, 44);
  pctBlesk.BringToFront();
}

/// As high as the cave's description needs.
void FormHra::PlaceStartPanel() {
  constexpr int kWidth = 520;
  lblStart.SetBounds(16, 12, kWidth - 32, 32);
  lblDescr.SetBounds(20, 50, kWidth - 40, 20);
  lblDescr.set_height(lblDescr.text_height());
  const int buttonTop = lblDescr.top() + lblDescr.height() + 14;
  Command1.SetBounds((kWidth - 140) / 2, buttonTop, 140, 38);
  const int height = buttonTop + 38 + 14;
  Picture5.SetBounds((Ram.width() - kWidth) / 2, Ram.height() - height - 16, kWidth, height);
}

void FormHra::PaintPanels() {
  const TintShades shades = ShadesOf(game.Tint);
  shpPanel.set_back_colour(shades.dark);
  shpPanel.set_fore_colour(shades.bright);
  shpRam.set_back_colour(shades.base);
  shpRam.set_fore_colour(shades.light);
  shpO7.set_back_colour(shades.dark);
  shpO7.set_fore_colour(shades.bright);
}

void FormHra::SetLW() {
  Label1.set_caption(LangStr[85]);
  Label2.set_caption(LangStr[86]);
  Label4.set_caption(LangStr[87]);
  Label7.set_caption(LangStr[88]);
  Command4.set_caption(LangStr[59]);
  EndGame.set_caption(LangStr[6]);
  if (pictures_) FrmLoad();
}
