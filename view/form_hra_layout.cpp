// How the game window looks: controls, pictures, places, colours.

#include <algorithm>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "platform/application.h"
#include "view/colours.h"
#include "view/form_hra.h"

namespace {

constexpr int kColumns = 19;  // tiles of the window on the cave
constexpr int kRows = 11;
constexpr int kLine = 3;  // around the window on the cave

/// Measures that depend on how much room the screen has, in logical pixels.
struct Measures {
  int edge;     // between the window's edge and what stands in it
  int gap;      // between rows
  int panel;    // height of the row of counters
  int message;  // height of the row of messages
  int footer;   // height of the last row
  int icon;
  int value;      // font size of the counters
  int inPanel;    // between the panel's edge and the first counter
  int inCounter;  // between the parts of a counter
  int between;    // between two counters

  /// Of the whole window around so many pixels of cave.
  int Height(int cave) const { return edge + panel + gap + cave + 2 * kLine + message + footer + 3 * gap; }
};
constexpr Measures kAmple = {12, 6, 53, 32, 36, 24, 24, 14, 6, 18};
constexpr Measures kTight = {8, 4, 42, 28, 32, 22, 20, 10, 4, 10};

/// The ample ones where the whole window with its title fits beside a task bar.
const Measures& MeasuresFor(int cave) {
  constexpr int kTitleAndTaskBar = 80;
  return platform::Application::ScreenHeight() >= kAmple.Height(cave) + kTitleAndTaskBar ? kAmple : kTight;
}

/// Sets a text in what room its label has: in one line or more, in the largest font that will do. One that no font
/// makes fit is cut off.
void FitText(platform::Label& label, std::initializer_list<int> sizes) {
  for (const int size : sizes) {
    label.set_font({size, true, false, false});
    label.set_word_wrap(label.text_width() > label.width());
    if (label.text_height() <= label.height()) return;
  }
  label.set_word_wrap(false);
}

}  // namespace

void FormHra::MakeControls() {
  using platform::Alignment;
  for (platform::Label* value : {&lblCas, &lblSebr, &lblTreba, &lblBz1, &lblBody}) value->set_middle(true);
  for (platform::Label* caption : {&Label1, &Label2, &Label4, &Label7}) caption->set_middle(true);
  lblName.set_alignment(Alignment::kRight);
  lblName.set_middle(true);
  pctBlesk.set_visible(false);
  pctBlesk.set_stretch(true);
  Picture5.set_border(true);
  lblStart.set_font({24, true, false, false});
  lblStart.set_alignment(Alignment::kCentre);
  lblStart.set_word_wrap(true);
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
  // Ticks without a line end leave a hole in the recording, so a game that is once not recorded stays so.
  chkRec.on_click = [this] {
    game.chkRec = chkRec.value();
    chkRec.set_enabled(game.chkRec != 0);
  };
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
    const int pairs = screen / 20 / 2;  // a tile is an even number of pixels
    TileTw = 2 * pairs;
  }
  TileTh = TileTw;
  const int tile = static_cast<int>(TileTw);
  const Measures& m = MeasuresFor(kRows * tile);
  LoadPictures(m.icon);
  Ram.SetBounds(m.edge + kLine, m.edge + m.panel + m.gap + kLine, kColumns * tile, kRows * tile);
  shpRam.SetBounds(Ram.left() - kLine, Ram.top() - kLine, Ram.width() + 2 * kLine, Ram.height() + 2 * kLine);
  Frame1.Resize(Ram.width() + 2 * (m.edge + kLine), m.Height(Ram.height()));
  PlaceCounters();
  PlaceFooter();
  PlaceOverlays();
  set_min_size(Frame1.width(), Frame1.height());
  if (width() < Frame1.width() || height() < Frame1.height()) Resize(Frame1.width(), Frame1.height());
  Form_Resize();
  joyStick_.JoyInit();
}

void FormHra::LoadPictures(int iconSize) {
  const int tile = static_cast<int>(TileTw);
  const int ratio = platform::Application::PixelRatio();
  if (pictures_ && pictures_->size() == tile && pictures_->ratio() == ratio) return;
  const std::string files = folder_ + "/pictures";
  pictures_ = std::make_unique<TilePictures>(files, tile, ratio);
  const auto icon = [&](const picture::Extra& extra) { return LoadExtra(files, extra, iconSize, iconSize, ratio); };
  imgCas.set_picture(icon(picture::kIconClock));
  imgSebr.set_picture(icon(picture::kIconGem));
  imgTreba.set_picture(icon(picture::kIconNeed));
  imgBz.set_picture(icon(picture::kIconPoints));
  imgBody.set_picture(icon(picture::kIconScore));
  imgLamp.set_picture(LoadExtra(files, picture::kLamp, 24, 24, ratio));
  Image2.set_picture(LoadExtra(files, picture::kReplay, 32, 32, ratio));
  pctBlesk.set_picture(LoadExtra(files, picture::kBlesk, kColumns * tile, kRows * tile, ratio));
  imgMrtvej.set_picture(LoadNumbered(files, picture::kMrtvejPes, 32, ratio));
  for (int number = picture::kMultiPes; number <= picture::kMrtvejPes; ++number) {
    small_[static_cast<std::size_t>(number)] = LoadNumbered(files, number, 25, ratio);
  }
  platform::Application::set_icon(LoadExtra(files, picture::kApp, 64, 64, ratio));
}

/// Each counter is a picture, its caption if it has one, and its value right behind the caption.
void FormHra::PlaceCounters() {
  const Measures& m = MeasuresFor(Ram.height());
  shpPanel.SetBounds(m.edge, m.edge, Frame1.width() - 2 * m.edge, m.panel);
  int left = m.edge + m.inPanel;
  const auto place = [&left, &m](platform::Image& icon, platform::Label* caption, platform::Label& value, int digits) {
    icon.MoveTo(left, m.edge + (m.panel - m.icon) / 2);
    left += m.icon + m.inCounter;
    if (caption != nullptr) {
      caption->SetBounds(left, m.edge, caption->text_width() + 1, m.panel);
      left += caption->width() + m.inCounter;
    }
    value.set_font({m.value, true, false, false});
    value.SetBounds(left, m.edge, std::max(digits * m.value * 2 / 3, value.text_width()) + 2, m.panel);
    left += value.width() + m.between;
  };
  place(imgCas, &Label1, lblCas, 3);
  place(imgSebr, &Label2, lblSebr, 3);
  place(imgTreba, &Label4, lblTreba, 3);
  place(imgBz, &Label7, lblBz1, 2);
  place(imgBody, nullptr, lblBody, 5);
  lblName.SetBounds(left, m.edge, shpPanel.left() + shpPanel.width() - m.inPanel - left, m.panel);
  FitName();
}

/// The cave's name in what the counters leave.
void FormHra::FitName() {
  lblName.set_tool_tip(lblName.caption());
  FitText(lblName, {18, 16, 14, 12});
}

/// A note is as wide as its text, as far as the window reaches.
void FormHra::FitMessage() {
  const int widest = Frame1.width() - 60;
  Message1.set_width(widest);
  FitText(Message1, {18, 16, 14, 12, 10});
  Message1.set_width(std::min(Message1.text_width(), widest));
}

/// The strip of heroes, the lamp, what is recorded or replayed, and at the right end the buttons.
void FormHra::PlaceFooter() {
  const Measures& m = MeasuresFor(Ram.height());
  const int messageTop = Ram.top() + Ram.height() + kLine + m.gap;
  Picture6.SetBounds(0, messageTop, Picture6.width(), m.message);
  shpO7.SetBounds(15, 0, Picture6.width() - 30, m.message);
  Message1.SetBounds(30, 0, Message1.width(), m.message);
  const int top = messageTop + m.message + m.gap;
  const auto middle = [&m, top](int height) { return top + (m.footer - height) / 2; };
  Psi.SetBounds(m.edge, middle(25), 9 * 25, 25);
  int left = m.edge + Psi.width() + 16;
  imgLamp.MoveTo(left, middle(24));
  Picture7.SetBounds(left + 4, middle(16), 16, 16);
  left += 32;
  chkRec.SetBounds(left, middle(24), chkRec.text_width() + 34, 24);
  Image2.MoveTo(left, middle(32));
  int right = Frame1.width() - m.edge;
  for (platform::Button* button : {&EndGame, &Command4, &Command3}) {
    const int width = button->text_width() + 32;
    right -= width;
    button->SetBounds(right, top, width, m.footer);
    right -= m.gap + 2;
  }
  Label5.SetBounds(left + 40, top, right - left - 40, m.footer);
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

/// As high as the cave's name and description need, and where it does not cover the hero.
void FormHra::PlaceStartPanel() {
  constexpr int kWidth = 520;
  constexpr int kMargin = 16;
  constexpr int kButtonHeight = 38;
  int top = kMargin;
  for (platform::Label* label : {&lblStart, &lblDescr}) {
    label->SetBounds(kMargin, top, kWidth - 2 * kMargin, 0);
    if (!label->caption().empty()) label->set_height(label->text_height());
    top += label->height() + 8;
  }
  top += 8;
  Command1.SetBounds((kWidth - 140) / 2, top, 140, kButtonHeight);
  const int height = top + kButtonHeight + kMargin;
  const double hero = top_ + (game.Heroes[static_cast<std::size_t>(game.CurrentHero)].y + 0.5) * TileTh;
  const int panelTop = hero > Ram.height() / 2.0 ? kMargin : Ram.height() - height - kMargin;
  Picture5.SetBounds((Ram.width() - kWidth) / 2, panelTop, kWidth, height);
}

void FormHra::PaintPanels() {
  const TintShades shades = ShadesOf(game.Tint);
  shpPanel.set_back_colour(shades.dark);
  shpPanel.set_fore_colour(shades.bright);
  Ram.set_back_colour(ScaledColour(shades.base, 0.25));  // around a cave smaller than the window
  shpRam.set_back_colour(shades.base);
  shpRam.set_fore_colour(shades.light);
  shpO7.set_back_colour(ScaledColour(shades.dark, 0.5));  // messages come in several colours, all of them light
  shpO7.set_fore_colour(shades.bright);
}

void FormHra::SetLW() {
  Label1.set_caption(LangStr[text::kTimeCounter]);
  Label2.set_caption(LangStr[text::kTakenCounter]);
  Label4.set_caption(LangStr[text::kNeededCounter]);
  Label7.set_caption(LangStr[text::kPointsCounter]);
  Command4.set_caption(LangStr[text::kSettingsTitle]);
  EndGame.set_caption(LangStr[text::kQuit]);
  if (!pictures_) return;
  PlaceCounters();
  PlaceFooter();
  PlaceOverlays();
}
