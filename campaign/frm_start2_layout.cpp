// How the start screen looks: its shape, controls, pictures and places.

#include <algorithm>
#include <array>
#include <cmath>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "campaign/frm_start2.h"
#include "platform/application.h"
#include "platform/window_shape.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

// The round parts of the shape are drawn in units of which 0.86 make a logical pixel.
constexpr double kUnit = 0.86;

struct Circle {
  int x;
  int y;
  int radius;
};
constexpr Circle kDisc = {265, 270, 140};
constexpr Circle kPlay = {70, 180, 70};
constexpr Circle kReplay = {185, 70, 70};
constexpr Circle kEditor = {345, 70, 70};
constexpr Circle kHelp = {460, 180, 70};

constexpr int kWidth = 620;
constexpr int kHeight = 484;
constexpr int kButton = 152;
constexpr int kDiscSize = 326;
constexpr platform::Rect kCorner = {504, 5, 106, 52};
constexpr platform::Rect kBadge = {130, 349, 115, 70};
constexpr platform::Rect kPanel = {163, 193, 290, 242};

int Pixels(double units) { return static_cast<int>(std::lround(units / kUnit)); }

platform::Rect BoundsOf(const Circle& circle) {
  return {Pixels(circle.x - circle.radius), Pixels(circle.y - circle.radius), Pixels(2 * circle.radius),
          Pixels(2 * circle.radius)};
}

/// A picture in the middle of a circle.
void Centre(platform::Image& image, const Circle& circle, int size) {
  image.SetBounds(Pixels(circle.x) - size / 2, Pixels(circle.y) - size / 2, size, size);
}

}  // namespace

void OknoStart(platform::Form& window, StartShape shape) {
  platform::WindowShape region;
  region.AddRectangle(kCorner);
  for (const Circle& circle : {kDisc, kReplay, kEditor, kPlay, kHelp}) region.AddEllipse(BoundsOf(circle));
  if (shape != StartShape::kPanelOpen) region.AddEllipse(kBadge);
  platform::SetWindowShape(window, region);
}

FrmStart2::FrmStart2(const std::string& programFolder, const Forms& forms)
    : Form(platform::Border::kNone, kWidth, kHeight), folder_(programFolder), forms_(forms) {
  MakeControls();
  LoadPictures();
  Place();
  PlacePanel();
}

void FrmStart2::MakeControls() {
  Label1.set_caption(Cp1250("Hrát"));
  Label2.set_caption(Cp1250(" Přehrát záznam"));
  Label3.set_caption(" Editor komnat");
  Label5.set_caption(Cp1250("Jméno hráče :"));
  Label6.set_caption("Sady komnat :");
  Label7.set_caption("Konec");
  Label9.set_caption("Language");
  Command1.set_caption(Cp1250("Nový hráč"));
  Command2.set_caption(Cp1250("Procházet"));
  Command3.set_caption(Cp1250("Začít hrát vybranou sadu"));
  const auto link = [](platform::Control& control, std::function<void()> action) {
    control.on_click = std::move(action);
    control.set_pointer(platform::Pointer::kHand);
    control.set_tab_stop(true);
  };
  link(Label1, [this] { Label1_Click(); });
  link(Label2, [this] { Label2_Click(); });
  link(Label3, [this] { Label3_Click(); });
  link(Label4, [this] { Label4_Click(); });
  link(Label7, [this] { Label7_Click(); });
  link(Label9, [this] { Label9_Click(); });
  link(Label8_4, [this] { Image1_Click(); });
  Label8_3.on_click = [this] { Image1_Click(); };
  Image1.on_click = [this] { Image1_Click(); };
  Picture4.on_click = [this] { Picture4_Click(); };
  Picture5.on_click = [this] { Label9_Click(); };

  using platform::MouseEvent;
  Image3.on_mouse_down = [this](const MouseEvent& mouse) { Image3_MouseDown(mouse.button, mouse.x, mouse.y); };
  Image4.on_mouse_down = [this](const MouseEvent& mouse) { Image4_MouseDown(mouse.button, mouse.x, mouse.y); };
  Image5.on_mouse_down = [this](const MouseEvent& mouse) { Image5_MouseDown(mouse.button, mouse.x, mouse.y); };
  Image6.on_mouse_down = [this](const MouseEvent& mouse) { Image6_MouseDown(mouse.button, mouse.x, mouse.y); };
  Image4.on_mouse_move = [this](const MouseEvent&) { Image4_MouseMove(); };
  Image5.on_mouse_move = [this](const MouseEvent&) { Image5_MouseMove(); };
  Image6.on_mouse_move = [this](const MouseEvent&) { Image6_MouseMove(); };
  Image10.on_mouse_move = [this](const MouseEvent&) { Image10_MouseMove(); };
  Timer1.on_timer = [this] { Timer1_Timer(); };

  List2.on_click = [this] { List2_Click(); };
  List1.on_double_click = [this] { Command3_Click(); };
  Command1.on_click = [this] { Command1_Click(); };
  Command2.on_click = [this] { Command2_Click(); };
  Command3.on_click = [this] { Command3_Click(); };
  on_key_down = [this](platform::KeyEvent& event) { Form_KeyDown(event); };
  on_close_query = [this] { return Form_QueryUnload(); };
  // The panel belongs to the first button: Tab goes from there into it and on to the second one.
  List2.set_tab_after(Label1);
  Command1.set_tab_after(List2);
  List1.set_tab_after(Command1);
  Command2.set_tab_after(List1);
  Command3.set_tab_after(Command2);
  Label2.set_tab_after(Command3);
  MakeDraggable();
}

/// There is no title bar to take the window by: the disc takes its place.
void FrmStart2::MakeDraggable() {
  imgDisc.on_mouse_down = [this](const platform::MouseEvent& mouse) { grip_ = mouse; };
  imgDisc.on_mouse_move = [this](const platform::MouseEvent& mouse) {
    if (mouse.button == platform::kLeftButton) MoveTo(left() + mouse.x - grip_.x, top() + mouse.y - grip_.y);
  };
}

void FrmStart2::LoadPictures() {
  const std::string files = folder_ + "/pictures";
  const int ratio = platform::Application::PixelRatio();
  const auto load = [&](const picture::Extra& extra, int width, int height) {
    return LoadExtra(files, extra, width, height, ratio);
  };
  imgDisc.set_picture(load(picture::kStart, kDiscSize, kDiscSize));
  Image1.set_picture(load(picture::kContest, kBadge.width, kBadge.height));
  Image3.set_picture(load(picture::kButton, kButton, kButton));
  Image10.set_picture(load(picture::kPlaque, kPanel.width, kPanel.height));
  Image11.set_picture(load(picture::kLogo, 170, 68));
  Image12.set_picture(load(picture::kLogoEnglish, 170, 68));
  Image13.set_picture(load(picture::kLogoRussian, 170, 68));
  for (platform::Image* logo : {&Image11, &Image12, &Image13}) logo->set_visible(false);
  platform::Application::set_icon(load(picture::kApp, 64, 64));
}

void FrmStart2::Place() {
  const platform::Theme& theme = platform::Application::theme();
  Centre(imgDisc, kDisc, kDiscSize);
  Image7.MoveTo(Pixels(kDisc.x) - 85, 160);
  const auto button = [](platform::Image& image, platform::Label& label, const Circle& circle) {
    Centre(image, circle, kButton);
    label.SetBounds(Pixels(circle.x) - 58, Pixels(circle.y) - 30, 116, 60);
    label.set_font({18, true, false, false});
    label.set_alignment(platform::Alignment::kCentre);
    label.set_middle(true);
    label.set_word_wrap(true);
  };
  button(Image3, Label1, kPlay);
  button(Image4, Label2, kReplay);
  button(Image5, Label3, kEditor);
  button(Image6, Label4, kHelp);
  Image1.MoveTo(kBadge.left, kBadge.top);
  // As much of the badge as a rectangle can take, so that the mark of the focus is whole.
  for (platform::Label* label : {&Label8_3, &Label8_4}) {
    label->SetBounds(kBadge.left + 17, kBadge.top + 10, kBadge.width - 34, kBadge.height - 20);
  }
  for (platform::Control* control : std::initializer_list<platform::Control*>{&Image1, &Label8_3, &Label8_4}) {
    control->set_tool_tip(Cp1250("Klikni pro více informací o soutěžích"));
    control->set_accessible_name(control->tool_tip());  // none of them has a caption
    control->set_pointer(platform::Pointer::kHand);
  }
  Label8_2.SetBounds(Pixels(kDisc.x) - 70, 444, 140, 18);
  Label8_2.set_font({12, false, false, false});
  Label8_2.set_alignment(platform::Alignment::kCentre);

  int top = kCorner.top;
  for (platform::Frame* frame : {&Picture4, &Picture5}) {
    frame->SetBounds(kCorner.left, top, kCorner.width, kCorner.height / 2);
    top += kCorner.height / 2;
  }
  for (platform::Shape* shape : {&shpKonec, &shpLanguage}) {
    shape->SetBounds(0, 0, kCorner.width, kCorner.height / 2);
    shape->set_back_colour(theme.button);
    shape->set_fore_colour(theme.outline);
    shape->set_line_width(2);
    shape->set_corner(7);
  }
  for (platform::Label* label : {&Label7, &Label9}) {
    label->SetBounds(0, 0, kCorner.width, kCorner.height / 2);
    label->set_alignment(platform::Alignment::kCentre);
    label->set_middle(true);
  }
}

/// The panel is as wide as the disc allows at each height.
void FrmStart2::PlacePanel() {
  constexpr int kLeft = 20;
  constexpr int kInner = kPanel.width - 2 * kLeft;
  constexpr int kSide = 104;  // width of the buttons beside the lists
  constexpr int kList = kInner - kSide - 6;
  Picture1.SetBounds(kPanel.left, kPanel.top, kPanel.width, kPanel.height);
  Label5.SetBounds(kLeft + 14, 24, kList - 14, 18);
  List2.SetBounds(kLeft, 42, kList, 27);
  Command1.SetBounds(kLeft + kInner - kSide, 42, kSide, 27);
  Label6.SetBounds(kLeft, 77, kList, 18);
  Command2.SetBounds(kLeft + kInner - kSide, 70, kSide, 27);
  List1.SetBounds(kLeft - 6, 98, kInner + 12, 103);  // five rows
  List1.set_font({13, false, false, false});         // room for a name and its file
  Command3.SetBounds(42, 202, kPanel.width - 84, 28);
  Picture1.set_visible(false);
}

void FrmStart2::FrmLoad() {
  OknoStart(*this, StartShape::kResting);
  Image1.set_visible(true);
  Label8_4.set_visible(true);
  Label8_3.set_visible(true);
  Picture1.MoveTo(kPanel.left, kPanel.top);
  for (platform::Image* image : {&Image4, &Image5, &Image6}) image->set_picture(Image3.picture());
  FindColls();
  FindPlrs();
  Label1.SetFocus();
}

void FrmStart2::SetLW() {
  Label1.set_caption(LangStr[text::kPlay]);
  Label2.set_caption(" " + LangStr[text::kWatchReplay]);
  Label3.set_caption(" " + LangStr[text::kCaveEditor]);
  Label4.set_caption(LangStr[text::kHelp]);
  Label5.set_caption(LangStr[text::kPlayersLabel]);
  Label6.set_caption(LangStr[text::kSetsLabel]);
  Label7.set_caption(LangStr[text::kQuit]);
  Command3.set_caption(LangStr[text::kPlaySelectedSet]);
  Command2.set_caption(LangStr[text::kBrowse]);
  Command1.set_caption(LangStr[text::kNewPlayer]);
  Label8_2.set_caption(LangStr[text::kVersion] + " 1.1L");
  List1.set_accessible_name(LangStr[text::kSetsLabel]);
  List2.set_accessible_name(LangStr[text::kPlayersLabel]);
  set_caption(HeroName);
  const std::array<const platform::Image*, 3> logos = {&Image11, &Image12, &Image13};
  if (LogoNumber >= 1) Image7.set_picture(logos.at(static_cast<std::size_t>(LogoNumber) - 1)->picture());
}
