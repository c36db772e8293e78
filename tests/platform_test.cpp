#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/fault.h"
#include "kit/fault_check.h"
#include "kit/temp_folder.h"
#include "platform/application.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/testing.h"
#include "platform/timer.h"
#include "shown_form.h"

using namespace platform;
using ::testing::ElementsAre;

namespace {

constexpr Colour kRed = Rgb(0xFF0000);
constexpr Colour kGreen = Rgb(0x00FF00);
constexpr Colour kBlue = Rgb(0x0000FF);

// ---------------------------------------------------------------------------------------------------------- Timers

TEST(TimerTest, FiresEachMillisecondAndDropsWhatItMissed) {
  int ticks = 0;
  Timer timer(1);
  timer.on_timer = [&] { ++ticks; };
  timer.Start();
  ASSERT_TRUE(user::WaitUntil([&] { return ticks >= 20; }));
  // One long handler among short ones: the ticks of its 100 ms are gone, they do not come in a burst.
  int after_pause = 0;
  timer.on_timer = [&] { Application::PaintAndSleep(100), timer.on_timer = [&] { ++after_pause; }; };
  ASSERT_TRUE(user::WaitUntil([&] { return after_pause > 0; }));
  Application::ProcessEvents();
  EXPECT_LT(after_pause, 50);
}

TEST(TimerTest, NeverEntersItsRunningHandlerButLeavesOthersRunning) {
  int depth = 0;
  int deepest = 0;
  int others = 0;
  Timer other(1, [&] { ++others; });
  Timer timer(1);
  timer.on_timer = [&] {
    deepest = std::max(deepest, ++depth);
    // Starting it anew from inside must not open a way around the rule.
    timer.set_interval(2);
    timer.Stop();
    timer.Start();
    user::Wait(30);
    --depth;
    timer.Stop();
  };
  timer.Start();
  other.Start();
  ASSERT_TRUE(user::WaitUntil([&] { return deepest > 0 && depth == 0; }));
  EXPECT_EQ(deepest, 1);
  EXPECT_GT(others, 0);
  EXPECT_FALSE(timer.enabled());
}

TEST(TimerTest, IntervalZeroNeverFires) {
  int ticks = 0;
  Timer timer(0, [&] { ++ticks; });
  timer.Start();
  user::Wait(20);
  EXPECT_EQ(ticks, 0);
  timer.set_interval(1);
  EXPECT_TRUE(user::WaitUntil([&] { return ticks > 0; }));
}

// ----------------------------------------------------------------------------------------------------------- Boxes

TEST(MessageBoxTest, StopsEveryTimerUntilItIsClosed) {
  ShownForm form;
  int ticks = 0;
  int ticks_at_open = -1;
  int ticks_at_close = -1;
  Timer timer(1, [&] { ++ticks; });
  Timer started_meanwhile(1, [&] { ++ticks; });
  timer.Start();
  ASSERT_TRUE(user::WaitUntil([&] { return ticks > 3; }));
  user::WhenFront([&] {
    ticks_at_open = ticks;
    started_meanwhile.Start();
    user::Later(50, [&] {
      ticks_at_close = ticks;
      user::TapKey(kKeyEnter);
    });
  });
  EXPECT_EQ(ShowMessageBox({"text", "title"}), BoxAnswer::kOk);
  EXPECT_GT(ticks_at_open, 0);
  EXPECT_EQ(ticks_at_close, ticks_at_open);
  timer.Stop();
  const int after = ticks;
  EXPECT_TRUE(user::WaitUntil([&] { return ticks > after; })) << "a timer started meanwhile runs now";
}

TEST(MessageBoxTest, ButtonsAnswerByKeyAndEscapeTakesTheLast) {
  ShownForm form;
  const auto answer = [](BoxButtons buttons, const std::vector<int>& keys) {
    user::WhenFront([keys] {
      for (const int key : keys) user::TapKey(key);
    });
    return ShowMessageBox({"text", "title", buttons, BoxIcon::kQuestion});
  };
  EXPECT_EQ(answer(BoxButtons::kOk, {kKeyEscape}), BoxAnswer::kOk);
  EXPECT_EQ(answer(BoxButtons::kYesNo, {kKeyEscape}), BoxAnswer::kNo);
  EXPECT_EQ(answer(BoxButtons::kYesNoCancel, {kKeyEscape}), BoxAnswer::kCancel);
  EXPECT_EQ(answer(BoxButtons::kYesNo, {kKeyEnter}), BoxAnswer::kYes);
  EXPECT_EQ(answer(BoxButtons::kYesNoCancel, {kKeyTab, kKeySpace}), BoxAnswer::kNo);
}

TEST(MessageBoxTest, FitsOnTheScreenHoweverLongItsTexts) {
  ShownForm form;
  std::string lines;
  for (int line = 0; line < 500; ++line) lines += "line\n";
  for (const std::string& text : {std::string(100000, 'W'), std::string(100000, '\n'), lines}) {
    Picture box;
    user::WhenFront([&] {
      box = user::GrabFront();
      user::TapKey(kKeyEnter);
    });
    ShowMessageBox({text, std::string(400, 'W')});
    EXPECT_GT(box.height(), 200);
    EXPECT_LT(box.height(), Application::ScreenHeight() - 60) << "a title and a task bar have room, too";
    EXPECT_LT(box.width(), Application::ScreenWidth());
  }
}

TEST(MessageBoxTest, AKeyOfItsOwnClosesItWhenStruckInsideAndLetGo) {
  ShownForm form;
  std::string seen;
  user::PressKey('P');  // still held when the box comes
  user::WhenFront([&] {
    user::ReleaseKey('P');
    user::TapKey('Q');
    user::Wait(30);
    seen += user::HasInput(form) ? "closed " : "open ";
    user::PressKey('P');
    user::Wait(30);
    seen += user::HasInput(form) ? "closed" : "open";
    user::ReleaseKey('P');
  });
  EXPECT_EQ(ShowMessageBox({"text", "title", BoxButtons::kOk, BoxIcon::kNone, 'P'}), BoxAnswer::kOk);
  EXPECT_EQ(seen, "open open");
  EXPECT_TRUE(Held('P')) << "pressed since it was last asked for";
  EXPECT_FALSE(Held('P')) << "and held no longer";
}

// ------------------------------------------------------------------------------------------------------------ Keys

TEST(KeysTest, HeldNowAndPressedSinceTheLastQuestion) {
  ShownForm form;
  for (int code = 0; code < 256; ++code) Held(code);
  user::PressKey(kKeyLeft);
  EXPECT_TRUE(Held(kKeyLeft));
  EXPECT_TRUE(Held(kKeyLeft)) << "still held";
  user::PressKey(kKeyLeft, 0, true);
  user::ReleaseKey(kKeyLeft, 0, true);
  EXPECT_TRUE(Held(kKeyLeft)) << "auto-repeat lets nothing go";
  user::ReleaseKey(kKeyLeft);
  EXPECT_FALSE(Held(kKeyLeft));

  user::TapKey(kKeyRight);
  EXPECT_TRUE(Held(kKeyRight)) << "a tap between two ticks counts";
  EXPECT_FALSE(Held(kKeyRight)) << "once";

  user::PressKey(kKeyUp);
  Held(kKeyUp);
  user::PressKey(kKeyUp, 0, true);
  user::ReleaseKey(kKeyUp);
  EXPECT_FALSE(Held(kKeyUp)) << "auto-repeat is no new press";
}

TEST(KeysTest, EveryCodeTheGameReadsArrives) {
  ShownForm form;
  std::vector<int> codes = {kKeyTab,  kKeyShift, kKeyCtrl, kKeySpace, kKeyLeft, kKeyUp,     kKeyRight,
                            kKeyDown, 'P',       'R',      'C',       kF1,      kKeyInsert, kKeyEnter};
  for (int digit = 0; digit <= 9; ++digit) codes.push_back(kNumpad0 + digit);
  for (const int code : codes) {
    user::PressKey(code);
    EXPECT_TRUE(Held(code)) << code;
    user::ReleaseKey(code);
    EXPECT_FALSE(Held(code)) << code;
  }
  EXPECT_FALSE(Held(-1));
  EXPECT_FALSE(Held(256));
}

TEST(KeysTest, LosingTheInputLetsAllGo) {
  ShownForm form;
  user::PressKey(kKeyLeft);
  user::PressKey(kKeySpace);
  Held(kKeyLeft);
  user::SetProgramActive(false);
  EXPECT_FALSE(Held(kKeyLeft));
  EXPECT_FALSE(Held(kKeySpace));
  user::SetProgramActive(true);
  user::PressKey(kKeyLeft);
  EXPECT_TRUE(Held(kKeyLeft));
  user::ReleaseKey(kKeyLeft);
}

TEST(KeysTest, AModalFormLetsAllGoSinceTheReleaseIsLostBehindItUntilAutoRepeatTellsOfIt) {
  ShownForm form;
  Form dialog;
  user::PressKey(kKeyCtrl);
  user::PressKey(kKeyRight);
  Held(kKeyCtrl);
  user::WhenFront([&] {
    user::PressKey(kKeyRight, 0, true);
    dialog.Close();
  });
  dialog.ShowModal();
  EXPECT_FALSE(Held(kKeyCtrl));
  EXPECT_TRUE(Held(kKeyRight));
  user::WaitUntil([&] { return user::HasInput(form); });
  user::ReleaseKey(kKeyRight);
  EXPECT_FALSE(Held(kKeyRight));
}

TEST(KeysTest, KeysGoToTheGameAndLeaveTheFocusAlone) {
  ShownForm form;
  Button first(&form);
  Button second(&form);
  int clicks = 0;
  std::vector<int> seen;
  first.on_click = [&] { ++clicks; };
  form.on_key_down = [&](KeyEvent& key) { seen.push_back(key.code); };
  form.set_default_button(&second);
  first.SetFocus();
  form.set_keys_go_to_game(true);
  for (const int code : {kKeyTab, kKeySpace, kKeyEnter, kKeyRight}) {
    user::TapKey(code);
    EXPECT_TRUE(Held(code)) << code;
    EXPECT_TRUE(first.has_focus()) << code;
  }
  EXPECT_EQ(clicks, 0);
  EXPECT_THAT(seen, ElementsAre(kKeyTab, kKeySpace, kKeyEnter, kKeyRight));

  form.set_keys_go_to_game(false);
  user::TapKey(kKeySpace);
  EXPECT_EQ(clicks, 1);
  EXPECT_TRUE(Held(kKeySpace)) << "a button with the focus takes no key from the key state";
  user::TapKey(kKeyTab);
  EXPECT_TRUE(second.has_focus());
}

TEST(KeysTest, FormSeesKeysFirstAndCanKeepThem) {
  ShownForm form;
  ScrollBar bar(&form, Orientation::kVertical);
  Button ok(&form);
  Button cancel(&form);
  std::string log;
  ok.on_click = [&] { log += "ok "; };
  cancel.on_click = [&] { log += "cancel "; };
  form.set_default_button(&ok);
  form.set_cancel_button(&cancel);
  bar.SetFocus();
  user::TapKey(kKeyDown);
  EXPECT_EQ(bar.value(), 1);
  form.on_key_down = [&](KeyEvent& key) {
    key.handled = key.code == kKeyDown;
    if (key.code == 'G') log += key.shift == kCtrl ? "ctrl-g " : "g ";
  };
  user::TapKey(kKeyDown);
  EXPECT_EQ(bar.value(), 1);
  user::TapKey('G', kCtrl);
  user::TapKey(kKeyEnter);
  user::TapKey(kKeyEscape);
  EXPECT_EQ(log, "ctrl-g ok cancel ");
  cancel.SetFocus();
  user::TapKey(kKeyEnter);
  EXPECT_EQ(log, "ctrl-g ok cancel cancel ") << "a button with the focus goes before the default button";
}

// ----------------------------------------------------------------------------------------------------------- Mouse

TEST(MouseTest, ReportsButtonsAndPlaces) {
  ShownForm form;
  PictureBox box(&form);
  box.SetBounds(10, 20, 100, 80);
  std::vector<std::string> log;
  const auto note = [&log](const std::string& what) {
    return [&log, what](const MouseEvent& mouse) {
      log.push_back(what + " " + std::to_string(mouse.button) + "/" + std::to_string(mouse.shift) + " " +
                    std::to_string(mouse.x) + "," + std::to_string(mouse.y));
    };
  };
  box.on_mouse_down = note("down");
  box.on_mouse_move = note("move");
  box.on_mouse_up = note("up");
  box.on_click = [&] { log.emplace_back("click"); };
  user::MoveMouse(box, 7, 8);
  user::PressMouse(box, 7, 8, kMiddleButton, kShift | kCtrl);
  user::MoveMouse(box, -3, 90, kLeftButton | kMiddleButton);
  user::ReleaseMouse(box, -3, 90, kMiddleButton);
  EXPECT_THAT(log, ElementsAre("move 0/0 7,8", "down 4/3 7,8", "move 5/0 -3,90", "up 4/0 -3,90"));

  box.on_mouse_move = {};
  log.clear();
  user::Click(box, 1, 1);
  user::Click(box, 1, 1, kRightButton);
  user::PressMouse(box, 1, 1);
  user::ReleaseMouse(box, 200, 1);
  EXPECT_THAT(log, ElementsAre("down 1/0 1,1", "up 1/0 1,1", "click", "down 2/0 1,1", "up 2/0 1,1", "down 1/0 1,1",
                               "up 1/0 200,1"))
      << "only the left button, let go inside, clicks";
}

TEST(MouseTest, SecondPressOfADoubleClickIsAPressToo) {
  ShownForm form;
  Label label(&form, "text");
  std::string log;
  label.on_mouse_down = [&](const MouseEvent&) { log += "down "; };
  label.on_click = [&] { log += "click "; };
  user::DoubleClick(label, 2, 2);
  EXPECT_EQ(log, "down click down click ");
  log.clear();
  label.on_double_click = [&] { log += "double "; };
  user::DoubleClick(label, 2, 2);
  EXPECT_EQ(log, "down click down double ");
}

TEST(MouseTest, ShapesLetClicksThroughAndHiddenOrDisabledControlsGetNone) {
  ShownForm form;
  int form_clicks = 0;
  int button_clicks = 0;
  form.on_click = [&] { ++form_clicks; };
  Shape shape(&form);
  shape.SetBounds(0, 0, 50, 50);
  user::Click(shape);
  EXPECT_EQ(form_clicks, 1);
  Button button(&form);
  button.on_click = [&] { ++button_clicks; };
  button.SetBounds(60, 0, 80, 30);
  user::Click(button);
  EXPECT_EQ(button_clicks, 1);
  EXPECT_EQ(form_clicks, 1);
  button.set_enabled(false);
  user::Click(button);
  EXPECT_EQ(button_clicks, 1);
}

// ----------------------------------------------------------------------------------------------------------- Forms

TEST(FormTest, CloseAsksAndHides) {
  ShownForm form;
  bool may_close = false;
  int asked = 0;
  form.on_close_query = [&] {
    ++asked;
    return may_close;
  };
  form.Close();
  EXPECT_TRUE(form.visible());
  may_close = true;
  form.Close();
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(asked, 2);
  form.Show();
  EXPECT_TRUE(form.visible()) << "a closed form lives on";
}

TEST(FormTest, ModalReturnsWhenHiddenAndTimersRunOn) {
  ShownForm form;
  Form dialog;
  Button below(&form);
  int clicks = 0;
  int ticks = 0;
  below.on_click = [&] { ++clicks; };
  Timer timer(1, [&] { ++ticks; });
  timer.Start();
  int ticks_inside = 0;
  for (int round = 1; round <= 2; ++round) {
    user::WhenFront([&] {
      ticks = 0;
      user::Wait(50);
      user::Click(below);
      ticks_inside = ticks;
      dialog.Close();
    });
    dialog.ShowModal();
    EXPECT_FALSE(dialog.visible());
    EXPECT_GT(ticks_inside, 0);
    EXPECT_EQ(clicks, 0) << "the form below takes no input";
  }
  user::Click(below);
  EXPECT_EQ(clicks, 1);
}

TEST(FormTest, OpensInFrontOfAnotherAndWhollyOnTheScreen) {
  ShownForm owner;
  for (const int left : {0, Application::ScreenWidth() - 200}) {
    owner.MoveTo(left, 0);
    user::Wait(20);
    Form form(Border::kFixed, 700, 100);
    form.Show();
    ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(form); }));
    EXPECT_GE(form.left(), 0);
    EXPECT_LE(form.left() + form.width(), Application::ScreenWidth());
    EXPECT_GE(form.top(), 0);
    form.Hide();
  }
}

TEST(FormTest, SizeStateAndResizeHandler) {
  Form form(Border::kSizable, 300, 200);
  EXPECT_EQ(form.width(), 300);
  EXPECT_EQ(form.height(), 200);
  int resized = 0;
  form.on_resize = [&] { ++resized; };
  form.set_window_state(WindowState::kMaximised);
  EXPECT_EQ(form.window_state(), WindowState::kMaximised) << "kept while hidden";
  form.Show();
  user::Wait(20);
  EXPECT_GT(resized, 0);
  EXPECT_GT(form.width(), 300);
  resized = 0;
  form.set_window_state(WindowState::kMinimised);
  user::Wait(20);
  EXPECT_EQ(form.window_state(), WindowState::kMinimised);
  EXPECT_GT(resized, 0) << "a form learns that it was minimised";
  form.set_window_state(WindowState::kNormal);
  user::Wait(20);
  EXPECT_EQ(form.width(), 300);
}

TEST(FormTest, AControlJustShownIsPaintedBeforeTheSleep) {
  ShownForm form;
  Shape flash(&form);
  flash.SetBounds(0, 0, 200, 100);
  flash.set_visible(false);
  user::Wait(20);
  user::PaintedPixels();
  flash.set_visible(true);
  Application::PaintAndSleep(1);
  EXPECT_GE(user::PaintedPixels(), 200LL * 100 * Application::PixelRatio() * Application::PixelRatio());
}

TEST(FormTest, PaintingAtOnceTakesNoInputAndStopsTimers) {
  ShownForm form;
  int ticks = 0;
  Timer timer(1, [&] { ++ticks; });
  timer.Start();
  Form loading(Border::kNone, 200, 100);
  Application::PaintAndSleep(5);  // the timer is due
  user::PaintedPixels();
  loading.ShowNow();
  const long long pixels = 200LL * 100 * Application::PixelRatio() * Application::PixelRatio();
  EXPECT_GE(user::PaintedPixels(), pixels);
  Shape flash(&loading);
  flash.SetBounds(0, 0, 200, 100);
  Application::PaintAndSleep(5);
  EXPECT_GE(user::PaintedPixels(), pixels) << "the flash is on the screen before anything else happens";
  EXPECT_EQ(ticks, 0);
}

// ------------------------------------------------------------------------------------------------------------ Text

TEST(TextTest, BytesBecomeGlyphsByCharset) {
  ShownForm form;
  const auto draw = [&form](const std::string& bytes, Charset charset) {
    Label label(&form, bytes);
    label.set_charset(charset);
    return user::Grab(label);
  };
  const std::string hero = FromUtf8("ЗОРБИК", CodePage::k1251);
  const Picture cyrillic = draw(hero, Charset::kCyrillic);
  EXPECT_GT(cyrillic.CountColours(), 1);
  EXPECT_NE(cyrillic, draw(hero, Charset::kCentralEuropean));
  EXPECT_NE(draw(Cp1250("žluť"), Charset::kCentralEuropean), draw("zlut", Charset::kCentralEuropean));
  EXPECT_EQ(draw("Zorb", Charset::kCyrillic), draw("Zorb", Charset::kCentralEuropean));
}

TEST(TextTest, LabelsMeasureBreakAndShorten) {
  ShownForm form;
  Label label(&form, "one\r\ntwo");
  const int one_line = Label(&form, "one").text_height();
  EXPECT_EQ(label.text_height(), 2 * one_line);
  label.set_auto_size(true);
  EXPECT_EQ(label.height(), 2 * one_line);
  EXPECT_EQ(label.width(), label.text_width());
  label.set_caption("a longer text");
  EXPECT_EQ(label.width(), label.text_width()) << "the size follows the caption";
  EXPECT_EQ(label.height(), one_line);

  Label narrow(&form, "some words that need more than one line");
  narrow.set_word_wrap(true);
  narrow.Resize(100, 100);
  EXPECT_GE(narrow.text_height(), 3 * one_line);
  const int width = narrow.text_width();
  narrow.set_font({.size = 28});
  EXPECT_GT(narrow.text_width(), width * 3 / 2);

  const Button button(&form, "&A");
  EXPECT_NE(user::Grab(button), user::Grab(Button(&form, "A"))) << "an ampersand is a letter like any other";
  EXPECT_EQ(button.text_width(), Label(&form, "&A").text_width());
}

// -------------------------------------------------------------------------------------------------------- Controls

TEST(ControlsTest, ScrollBarKeepsItsRangeAndTellsRealChanges) {
  ShownForm form;
  ScrollBar bar(&form, Orientation::kHorizontal);
  bar.SetBounds(0, 0, 200, 16);
  int changes = 0;
  bar.on_change = [&] { ++changes; };
  bar.set_min(1);
  bar.set_max(10);
  EXPECT_EQ(bar.value(), 1);
  changes = 0;
  bar.set_value(99);
  EXPECT_EQ(bar.value(), 10);
  bar.set_value(10);
  EXPECT_EQ(changes, 1);
  bar.set_max(-5);
  EXPECT_EQ(bar.max(), 1) << "no range below min";
  EXPECT_EQ(bar.value(), 1);
  EXPECT_EQ(changes, 2);
  bar.set_max(10);
  user::Click(bar, 195, 8);
  EXPECT_EQ(bar.value(), 2) << "the arrow steps";
  bar.SetFocus();
  user::TapKey(kKeyRight);
  user::TapKey(kKeyRight);
  user::TapKey(kKeyLeft);
  EXPECT_EQ(bar.value(), 3) << "to the right is more";
}

TEST(ControlsTest, CheckBoxClicksForTheUserOnly) {
  ShownForm form;
  CheckBox box(&form, "Zvuk");
  int clicks = 0;
  box.on_click = [&] { ++clicks; };
  box.set_value(1);
  EXPECT_EQ(box.value(), 1);
  EXPECT_EQ(clicks, 0);
  user::Click(box, 10, 12);
  EXPECT_EQ(box.value(), 0);
  EXPECT_EQ(clicks, 1);
}

TEST(ControlsTest, LaterSiblingsStandInFrontUntilReordered) {
  ShownForm form;
  Shape below(&form);
  Shape above(&form);
  for (Shape* shape : {&below, &above}) {
    shape->SetBounds(0, 0, 40, 40);
    shape->set_line_width(0);
  }
  below.set_back_colour(kRed);
  above.set_back_colour(kBlue);
  EXPECT_EQ(user::Grab(form).At(20, 20), kBlue);
  below.BringToFront();
  EXPECT_EQ(user::Grab(form).At(20, 20), kRed);
  below.SendToBack();
  EXPECT_EQ(user::Grab(form).At(20, 20), kBlue);
}

// -------------------------------------------------------------------------------------------------------- Pictures

constexpr char kCircle[] =
    R"(<svg xmlns="http://www.w3.org/2000/svg" viewBox="0 0 10 10"><circle cx="5" cy="5" r="5" fill="#7f7f81"/></svg>)";

TEST(PictureTest, SvgIsCrispAtEachRatioAndTakesATint) {
  const TempFolder folder;
  const std::string file = folder.Make("circle.svg", kCircle);
  const Picture coarse = Picture::LoadSvg(file, 20, 20, 1, {{"#7f7f81", "#ff0000"}});
  const Picture fine = Picture::LoadSvg(file, 20, 20, 2, {{"#7f7f81", "#ff0000"}});
  EXPECT_EQ(fine.width(), 20);
  EXPECT_EQ(fine.ratio(), 2);
  EXPECT_EQ(coarse.At(10, 10), kRed);
  EXPECT_FALSE(coarse.opaque());
  // Rendered anew, not enlarged: twice the pixels hold more shades along the edge.
  EXPECT_GT(fine.CountColours(), coarse.CountColours());
  EXPECT_EQ(Picture::LoadSvg(file, 20, 20, 1).At(10, 10), Rgb(0x7F7F81));

  const Picture ground = Picture::Solid(20, 20, 1, kBlue);
  const Picture over = coarse.Over(ground);
  EXPECT_TRUE(over.opaque());
  EXPECT_EQ(over.At(10, 10), kRed);
  EXPECT_EQ(over.At(0, 0), kBlue);
  EXPECT_EQ(ground.At(10, 10), kBlue) << "the picture below is untouched";
  EXPECT_EQ(over.Scaled(40, 10).width(), 40);
  EXPECT_EQ(over.Part({8, 8, 30, 4}).width(), 12) << "cut to the picture";
}

TEST(PictureTest, BadFilesAreFaultsThatNameThem) {
  const TempFolder folder;
  const std::string broken = folder.Make("broken.svg", "<svg");
  const std::string missing = folder.Path("missing.svg");
  ExpectFault([&] { Picture::LoadSvg(broken, 10, 10, 1); }, broken, "no SVG");
  ExpectFault([&] { Picture::LoadSvg(missing, 10, 10, 1); }, missing, "");
  const std::string nowhere = folder.Path("no/folder.png");
  ExpectFault([&] { Picture::Solid(1, 1, 1, kRed).SavePng(nowhere); }, nowhere, "cannot write");
}

/// Four squares of four pixels: red, green above blue, white; see-through on request.
Picture Quarters(int ratio) {
  Surface surface;
  surface.Reset(8, 8, ratio, Rgb(0xFFFFFF));
  surface.Fill({0, 0, 4, 4}, kRed);
  surface.Fill({4, 0, 4, 4}, kGreen);
  surface.Fill({0, 4, 4, 4}, kBlue);
  return surface.Snapshot();
}

class SurfaceTest : public ::testing::TestWithParam<int> {};

TEST_P(SurfaceTest, CopiesLandWhereTheyBelongAndAreCutAtTheEdges) {
  const int ratio = GetParam();
  const Picture tile = Quarters(ratio);
  Surface surface;
  std::vector<Rect> changed;
  surface.Reset(20, 20, ratio, Rgb(0x111111));
  surface.on_change = [&](const Rect& area) { changed.push_back(area); };
  surface.Copy(tile, 2, 3);
  EXPECT_EQ(surface.Snapshot().Part({2, 3, 8, 8}), tile);
  EXPECT_EQ(surface.At(1, 3), Rgb(0x111111));
  EXPECT_EQ(surface.At(10, 10), Rgb(0x111111));
  surface.Copy(tile, -4, -4);
  EXPECT_EQ(surface.At(0, 0), Rgb(0xFFFFFF));
  surface.Copy(tile, 16, 16);
  EXPECT_EQ(surface.At(19, 19), kRed);
  surface.Copy(tile, 20, 0);
  surface.Copy(tile, 0, -8);
  surface.CopyPart(tile, {0, 0, 8, 4}, 12, 0);
  EXPECT_EQ(surface.At(12, 3), kRed);
  EXPECT_EQ(surface.At(16, 3), kGreen);
  EXPECT_EQ(surface.At(12, 4), Rgb(0x111111)) << "only the upper half";
  surface.CopyPart(tile, {4, 4, 40, 40}, 0, 12);
  EXPECT_EQ(surface.At(3, 15), Rgb(0xFFFFFF));
  EXPECT_EQ(surface.At(4, 15), Rgb(0x111111));
  EXPECT_THAT(changed, ElementsAre(Rect{2, 3, 8, 8}, Rect{0, 0, 4, 4}, Rect{16, 16, 4, 4}, Rect{12, 0, 8, 4},
                                   Rect{0, 12, 4, 4}));
  surface.CopyScaled(tile, {0, 0, 16, 16});
  EXPECT_EQ(surface.At(1, 1), kRed);
  EXPECT_EQ(surface.At(14, 1), kGreen);
  EXPECT_EQ(surface.At(1, 14), kBlue);
}

TEST_P(SurfaceTest, SeeThroughPicturesAndOtherRatios) {
  const int ratio = GetParam();
  const TempFolder folder;
  const std::string file = folder.Make("circle.svg", kCircle);
  Surface surface;
  surface.Reset(20, 20, ratio, kBlue);
  surface.Copy(Picture::LoadSvg(file, 20, 20, ratio), 0, 0);
  EXPECT_EQ(surface.At(0, 0), kBlue);
  EXPECT_EQ(surface.At(10, 10), Rgb(0x7F7F81));
  surface.Copy(Picture::Solid(5, 5, 3 - ratio, kRed), 5, 5);
  EXPECT_EQ(surface.At(9, 9), kRed) << "a picture of another ratio keeps its logical size";
  EXPECT_EQ(surface.At(10, 10), Rgb(0x7F7F81));
}

INSTANTIATE_TEST_SUITE_P(Ratios, SurfaceTest, ::testing::Values(1, 2));

TEST(PictureBoxTest, PicturesReachTheScreenPixelByPixel) {
  ShownForm form;
  const Picture tile = Quarters(Application::PixelRatio());
  PictureBox box(&form);
  box.surface().Reset(8, 8, Application::PixelRatio());
  box.surface().Copy(tile, 0, 0);
  box.SetBounds(11, 7, 8, 8);
  Image image(&form, tile);
  image.MoveTo(33, 5);
  const Picture screen = user::Grab(form);
  EXPECT_EQ(screen.ratio(), Application::PixelRatio());
  EXPECT_EQ(screen.Part({11, 7, 8, 8}), tile);
  EXPECT_EQ(screen.Part({33, 5, 8, 8}), tile);
  image.set_stretch(true);
  image.Resize(16, 4);
  EXPECT_EQ(user::Grab(form).At(47, 5), kGreen);
}

TEST(PictureBoxTest, ScrollsAndRepaintsOnlyWhatChanged) {
  ShownForm form;
  Frame view(&form);
  view.SetBounds(0, 0, 100, 100);
  PictureBox cave(&view);
  cave.surface().Reset(400, 400, Application::PixelRatio(), kGreen);
  cave.SetBounds(0, 0, 400, 400);
  cave.surface().Fill({200, 200, 50, 50}, kRed);
  user::Wait(20);
  EXPECT_EQ(user::Grab(view).At(50, 50), kGreen);
  cave.MoveTo(-180, -180);
  EXPECT_EQ(user::Grab(view).At(50, 50), kRed);
  EXPECT_EQ(user::Grab(form).At(120, 50), Application::theme().background) << "clipped to its container";
  cave.MoveTo(0, 0);
  user::Wait(20);

  const int pixels = Application::PixelRatio() * Application::PixelRatio();
  user::PaintedPixels();
  cave.surface().Copy(Picture::Solid(10, 10, Application::PixelRatio(), kBlue), 20, 20);
  cave.surface().Copy(Picture::Solid(10, 10, Application::PixelRatio(), kBlue), 300, 300);
  user::Wait(20);
  EXPECT_EQ(user::PaintedPixels(), 100 * pixels) << "one changed tile is in view";
  EXPECT_EQ(user::Grab(view).At(25, 25), kBlue);
}

// ------------------------------------------------------------------------------------------------- The application

using ApplicationDeathTest = ::testing::Test;

TEST(ApplicationDeathTest, AFaultInAHandlerIsShownAndEndsTheProgram) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto run_into = [](const std::function<void()>& fault) {
    SetBoxResponder([](const MessageBox& box) {
      std::fprintf(stderr, "[%s|%s]", box.title.c_str(), box.text.c_str());
      return BoxAnswer::kOk;
    });
    Timer timer(1, fault);
    timer.Start();
    user::Wait(1000);
  };
  EXPECT_EXIT(run_into([] { throw Fault("line 3 is too short", "cave.zb"); }), ::testing::ExitedWithCode(1),
              "\\[Zorb\\|cave.zb: line 3 is too short\\]");
  EXPECT_EXIT(run_into([] { throw std::out_of_range("index"); }), ::testing::ExitedWithCode(1), "\\|index\\]");
}

TEST(ApplicationDeathTest, QuitEndsAtOnceFromInsideAModalForm) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  const auto quit = [] {
    Form dialog;
    user::WhenFront([] { Application::Quit(7); });
    dialog.ShowModal();
    std::fprintf(stderr, "went on");
    std::_Exit(1);
  };
  EXPECT_EXIT(quit(), ::testing::ExitedWithCode(7), "");
}

Application* application = nullptr;

TEST(ApplicationTest, RunsUntilNoFormIsVisible) {
  Form first;
  Form second;
  int steps = 0;
  const int code = application->Run([&] {
    first.Show();
    user::Later(20, [&] {
      ++steps;
      first.Hide();
      second.Show();
    });
    user::Later(60, [&] {
      ++steps;
      second.Hide();
    });
  });
  EXPECT_EQ(code, 0);
  EXPECT_EQ(steps, 2) << "changing from one form to another does not end the program";
}

}  // namespace

int main(int argc, char** argv) {
  user::UseOffscreen();
  ::testing::InitGoogleTest(&argc, argv);
  Application the_application(argc, argv, "Zorb");
  application = &the_application;
  return RUN_ALL_TESTS();
}
