// Lists, text boxes, menus, file dialogs and window shapes, driven by the events of a real keyboard and mouse.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "kit/temp_folder.h"
#include "platform/application.h"
#include "platform/controls.h"
#include "platform/file_dialog.h"
#include "platform/form.h"
#include "platform/keys.h"
#include "platform/list_controls.h"
#include "platform/menu.h"
#include "platform/message_box.h"
#include "platform/testing.h"
#include "platform/text_box.h"
#include "platform/window_shape.h"
#include "shown_form.h"

using namespace platform;
using ::testing::ElementsAre;

namespace {

// ----------------------------------------------------------------------------------------------------------- Lists

/// A list of a, b, c ... that writes down what its handlers hear.
template <typename List>
struct FilledList : List {
  explicit FilledList(Container* parent, int rows = 5) : List(parent) {
    for (int row = 0; row < rows; ++row) this->Add(std::string(1, static_cast<char>('a' + row)) + " row");
    this->on_click = [this] { log += std::to_string(this->list_index()) + " "; };
  }
  std::string log;
};

TEST(ListBoxTest, MouseAndKeysSelect) {
  ShownForm form;
  FilledList<ListBox> list(&form, 30);
  EXPECT_EQ(list.list_index(), -1);
  user::Click(list, 20, 15);
  user::Click(list, 20, 15);  // the same row once more
  user::Click(list, 20, 36);
  user::TapKey(kKeyDown);
  user::TapKey(kKeyEnd);
  user::TapKey(kKeyHome);
  user::Type("h");
  EXPECT_EQ(list.log, "0 1 2 29 0 7 ");
  user::PressMouse(list, 20, 15, kLeftButton, kCtrl);
  user::ReleaseMouse(list, 20, 15, kLeftButton, kCtrl);
  EXPECT_GE(list.list_index(), 0) << "Ctrl takes no selection away";
}

TEST(ListBoxTest, DoubleClickAndEnterOpenARow) {
  ShownForm form;
  FilledList<ListBox> list(&form, 2);
  Button ok(&form);
  ok.on_click = [&] { list.log += "ok "; };
  form.set_default_button(&ok);
  list.SetFocus();
  user::TapKey(kKeyEnter);
  list.on_double_click = [&] { list.log += "open" + std::to_string(list.list_index()) + " "; };
  user::DoubleClick(list, 20, 36);
  user::TapKey(kKeyEnter);
  user::DoubleClick(list, 20, 100);  // below the last row
  EXPECT_EQ(list.log, "ok 1 open1 open1 ");
}

template <typename List>
class AnyListTest : public ::testing::Test {};
using Lists = ::testing::Types<ListBox, ComboBox>;
TYPED_TEST_SUITE(AnyListTest, Lists);

TYPED_TEST(AnyListTest, SelectionFollowsItsRow) {
  ShownForm form;
  FilledList<TypeParam> list(&form, 1);
  EXPECT_EQ(list.list_index(), -1) << "the first row does not select itself";
  list.Add("b");
  list.Add("c");
  list.set_list_index(2);
  EXPECT_EQ(list.log, "") << "nobody chose it";
  list.Remove(0);
  EXPECT_EQ(list.list_index(), 1);
  EXPECT_EQ(list.item(list.list_index()), "c");
  list.Remove(1);
  EXPECT_EQ(list.list_index(), -1);
  list.Choose(0);
  list.Choose(0);
  EXPECT_EQ(list.log, "0 0 ");
  EXPECT_THROW(list.Choose(1), std::out_of_range);
  EXPECT_THROW(list.set_list_index(-2), std::out_of_range);
  EXPECT_THROW(list.item(-1), std::out_of_range);
  list.Clear();
  EXPECT_EQ(list.list_index(), -1);
  EXPECT_EQ(list.count(), 0);
  EXPECT_EQ(list.log, "0 0 ");
}

TYPED_TEST(AnyListTest, RowsAreInTheCodePageOfTheCharset) {
  ShownForm form;
  TypeParam list(&form);
  TypeParam other(&form);
  const std::string russian = FromUtf8("Русский", CodePage::k1251);
  list.Add("x");
  list.set_item(0, russian);
  list.set_list_index(0);
  other.Add(ToUtf8(russian, CodePage::k1250));
  const Picture before = user::Grab(list);
  list.set_charset(Charset::kCyrillic);
  EXPECT_NE(user::Grab(list), before);
  EXPECT_EQ(list.item(0), russian);
}

TYPED_TEST(AnyListTest, ARowCanHaveACharsetOfItsOwn) {
  const auto draw = [](const std::string& text, std::optional<Charset> row, Charset list) {
    ShownForm form;
    TypeParam control(&form);
    control.Add("x");
    control.Add(text, row);
    control.set_charset(list);
    control.set_list_index(1);
    return user::Grab(control);
  };
  const std::string russian = FromUtf8("Русский", CodePage::k1251);
  const Picture whole = draw(russian, {}, Charset::kCyrillic);
  EXPECT_EQ(draw(russian, Charset::kCyrillic, Charset::kCentralEuropean), whole);
  EXPECT_EQ(draw(russian, Charset::kCyrillic, Charset::kCyrillic), whole);
  const std::string czech = Cp1250("Čeština");
  EXPECT_EQ(draw(czech, Charset::kCentralEuropean, Charset::kCyrillic), draw(czech, {}, Charset::kCentralEuropean))
      << "it stays when the list gets another one";
}

TEST(ComboBoxTest, KeysChooseWhileClosedAndInTheDropDown) {
  ShownForm form;
  FilledList<ComboBox> list(&form);
  Button ok(&form);
  ok.on_click = [&] { list.log += "ok "; };
  form.set_default_button(&ok);
  list.SetFocus();
  user::TapKey(kKeyDown);
  user::TapKey(kKeyDown);
  user::Type("d");
  user::TapKey(kKeyEnter);
  EXPECT_EQ(list.log, "0 1 3 ok ");
  list.log.clear();
  user::TapKey(kKeySpace);
  user::TapKey(kKeyUp);
  EXPECT_EQ(list.log, "") << "not yet";
  user::TapKey(kKeyEnter);
  user::TapKey(kKeySpace);
  user::TapKey(kKeyUp);
  user::TapKey(kKeyEscape);
  EXPECT_EQ(list.log, "2 ");
  user::TurnWheel(list, -1);
  EXPECT_EQ(list.list_index(), 2);
}

// ------------------------------------------------------------------------------------------------------ Text boxes

TEST(TextBoxTest, TypedTextBecomesBytesAndUnknownCharactersQuestionMarks) {
  ShownForm form;
  TextBox box(&form);
  box.SetFocus();
  user::Type("Žluť я€ 😀.");
  EXPECT_EQ(box.text(), Cp1250("Žluť ?€ ?."));
  box.SelectAll();
  user::SetClipboard("Z\u030c\n\x01я\x7f");  // a letter and its accent apart
  user::TapKey('V', kCtrl);
  EXPECT_EQ(box.text(), Cp1250("Ž ?"));
  user::TapKey(kKeyHome);
  user::Type("a");
  EXPECT_EQ(box.text(), Cp1250("aŽ ?")) << "the caret stays where it was put";

  TextBox cyrillic(&form);
  cyrillic.set_charset(Charset::kCyrillic);
  cyrillic.SetFocus();
  user::Type("Жук ž");
  EXPECT_EQ(cyrillic.text(), FromUtf8("Жук ?", CodePage::k1251));
}

TEST(TextBoxTest, ManyLines) {
  ShownForm form;
  TextBox box(&form, TextLines::kMany);
  Button ok(&form);
  int oks = 0;
  ok.on_click = [&] { ++oks; };
  form.set_default_button(&ok);
  box.SetFocus();
  user::Type("a");
  user::TapKey(kKeyEnter);
  user::Type("я");
  EXPECT_EQ(box.text(), "a\r\n?");
  EXPECT_EQ(oks, 0);
  user::SetClipboard("b\nc\x02\r\nя");
  user::TapKey('V', kCtrl);
  EXPECT_EQ(box.text(), "a\r\n?b\r\nc\r\n?");
  user::TapKey('Z', kCtrl);
  EXPECT_EQ(box.text(), "a\r\n?") << "one step back, though the paste was mended";
  user::EmptyClipboard();
  user::TapKey('V', kCtrl);
  user::TapKey(kKeyInsert, kShift);
  EXPECT_EQ(box.text(), "a\r\n?") << "there was nothing to paste";
  box.set_locked(true);
  user::Type("x");
  user::TapKey(kKeyEnter);
  EXPECT_EQ(box.text(), "a\r\n?");
  EXPECT_EQ(oks, 1) << "a locked box needs no Enter";
  user::TapKey(kKeyTab);
  EXPECT_TRUE(ok.has_focus());
}

TEST(TextBoxTest, BytesThatNobodyTouchedStay) {
  ShownForm form;
  TextBox box(&form, TextLines::kMany);
  std::string all;
  for (int byte = 0; byte < 256; ++byte) all += static_cast<char>(byte);
  box.set_text(all);
  box.set_fore_colour(Rgb(0xFF0000));
  EXPECT_EQ(box.text(), all);
  box.set_text("a\nb\r\nc" + std::string("\xA0") + "d");
  box.SetFocus();
  user::Type("x");
  EXPECT_EQ(box.text(),
            "xa\r\nb\r\nc\xA0"
            "d");
}

TEST(TextBoxTest, LengthIsLimitedWhereTheCaretIs) {
  ShownForm form;
  for (const TextLines lines : {TextLines::kOne, TextLines::kMany}) {
    TextBox box(&form, lines);
    box.set_text("123456");
    box.set_max_length(4);
    EXPECT_EQ(box.text(), "1234");
    box.SetFocus();
    user::Type("0");
    EXPECT_EQ(box.text(), "1234");
    box.Select(1, 2);
    user::SetClipboard("abc");
    user::TapKey('V', kCtrl);
    EXPECT_EQ(box.text(), "1ab4");
    user::Type("x");
    EXPECT_EQ(box.text(), "1ab4");
  }
  TextBox box(&form, TextLines::kMany);
  box.set_max_length(4);
  box.set_text("abc\r\nd");
  EXPECT_EQ(box.text(), "abc") << "no half of a line break";
  box.Select(3, 0);
  box.SetFocus();
  user::TapKey(kKeyEnter);
  EXPECT_EQ(box.text(), "abc") << "a line break takes two";
}

TEST(TextBoxTest, DigitsOnly) {
  ShownForm form;
  TextBox box(&form);
  box.set_digits_only(true);
  box.set_max_length(3);
  box.SetFocus();
  user::Type("1a-2");
  EXPECT_EQ(box.text(), "12");
  user::TapKey('A', kCtrl);
  user::SetClipboard("3 7");
  user::TapKey('V', kCtrl);
  EXPECT_EQ(box.text(), "37");
}

TEST(TextBoxTest, ChangesAreTold) {
  ShownForm form;
  for (const TextLines lines : {TextLines::kOne, TextLines::kMany}) {
    TextBox box(&form, lines);
    int changes = 0;
    box.on_change = [&] { ++changes; };
    box.set_text("abc");
    box.set_text("abc");
    box.set_charset(Charset::kCyrillic);
    box.set_back_colour(Rgb(0x102030));
    EXPECT_EQ(changes, 1);
    box.SetFocus();
    user::Type("x");
    user::TapKey(kKeyRight);
    EXPECT_EQ(changes, 2);
    box.Select(0, 0);
    user::TapKey(kKeyBackspace);
    EXPECT_EQ(changes, 2) << "nothing to take away";
    box.set_locked(true);
    user::Type("y");
    EXPECT_EQ(changes, 2);
  }
}

TEST(TextBoxTest, SelectionAndFocus) {
  ShownForm form;
  TextBox first(&form);
  TextBox second(&form);
  Button last(&form);
  first.set_text("00000123");
  std::string log;
  first.on_got_focus = [&] {
    first.Select(0, 5);
    log += "got ";
  };
  first.on_lost_focus = [&] { log += "lost "; };
  second.SetFocus();
  user::TapKey(kKeyTab, kShift);
  EXPECT_EQ(first.selected_text(), "00000") << "the handler's selection stands";
  user::Type("9");
  EXPECT_EQ(first.text(), "9123");
  user::TapKey(kKeyTab);
  EXPECT_TRUE(second.has_focus());
  EXPECT_EQ(log, "got lost ");
  last.set_tab_after(first);
  user::TapKey(kKeyTab, kShift);
  EXPECT_TRUE(last.has_focus());

  TextBox page(&form, TextLines::kMany);
  page.set_text("ab\r\ncd\r\nef");
  page.Select(1, 6);
  EXPECT_EQ(page.selected_text(), "b\r\ncd");
  page.Select(3, 99);
  EXPECT_EQ(page.selected_text(), "\r\ncd\r\nef") << "a line break is selected whole or not at all";
}

// ------------------------------------------------------------------------------------- What every control can do now

TEST(ControlTest, PaintedControlsWithATabStopAreClickedByKeys) {
  ShownForm form;
  Label plain(&form, "text");
  Label link(&form, "link");
  Button ok(&form);
  link.set_top(50);
  ok.set_top(100);
  std::string log;
  plain.on_click = [&] { log += "plain "; };
  link.on_click = [&] { log += "link "; };
  ok.on_click = [&] { log += "ok "; };
  form.on_click = [&] { log += "form "; };
  form.set_default_button(&ok);
  const Picture bare = user::Grab(link);
  link.set_tab_stop(true);
  ok.SetFocus();
  user::TapKey(kKeyTab);
  ASSERT_TRUE(link.has_focus());
  EXPECT_NE(user::Grab(link), bare) << "the focus is seen";
  user::TapKey(kKeySpace);
  user::TapKey(kKeyEnter);
  EXPECT_EQ(log, "link link ");
  user::Click(plain);
  EXPECT_TRUE(link.has_focus());
  link.set_tab_stop(false);
  plain.SetFocus();
  user::TapKey(kKeySpace);
  user::TapKey(kKeyEnter);
  EXPECT_EQ(log, "link link plain ok ") << "without a tab stop keys click nothing";
}

TEST(ControlTest, WheelOverRowsReachesTheirContainer) {
  ShownForm form;
  Frame view(&form);
  view.SetBounds(0, 0, 200, 100);
  Frame rows(&view);
  rows.SetBounds(0, 0, 200, 1400);
  Label row(&rows, "row");
  int turned = 0;
  view.on_wheel = [&](const WheelEvent& wheel) { turned += wheel.steps; };
  user::TurnWheel(row, 1);
  user::TurnWheel(row, -3);
  EXPECT_EQ(turned, -2);
  user::TurnWheel(row, -1, 4);
  EXPECT_EQ(turned, -3) << "a fine wheel turns by parts of a notch";

  TextBox text(&view, TextLines::kMany);
  text.SetBounds(0, 20, 100, 60);
  std::string lines;
  for (int line = 0; line < 50; ++line) lines += "line\r\n";
  text.set_text(lines);
  const Picture top = user::Grab(text);
  user::TurnWheel(text, -1);
  EXPECT_NE(user::Grab(text), top) << "a text box scrolls by itself";
  EXPECT_EQ(turned, -3);
}

// ---------------------------------------------------------------------------------------------------- File dialogs

/// A folder with sets in it and a dialog upon them.
class FileDialogTest : public ::testing::Test {
 protected:
  FileDialogTest() {
    setenv("XDG_CONFIG_HOME", settings_.path().c_str(), 1);
    dialog_.filter = FileFilter("Sets (*.zb)", "*.zb");
    dialog_.folder = folder_.path();
    dialog_.default_extension = "*.zb";
    folder_.Make("Žlutá.zb");
    folder_.Make("old.zb");
    folder_.Make("folder/inner.ZB");
  }

  /// Does something in the dialog that comes to the front next.
  static void Then(const std::function<void()>& act) { user::WhenFront(act); }
  static void TypeAndEnter(const std::string& utf8) {
    user::Type(utf8);
    user::TapKey(kKeyEnter);
  }

  const TempFolder settings_;  // Qt's dialog remembers its size and more
  const TempFolder folder_;
  FileDialog dialog_;
  const ShownForm form_;
};

TEST_F(FileDialogTest, OpensWhatIsTypedOrNothing) {
  dialog_.flags = kFileMustExist | kHideReadOnly;
  Then([] { TypeAndEnter("Žlutá.zb"); });
  EXPECT_EQ(ShowOpenDialog(dialog_), folder_.Path("Žlutá.zb"));
  Then([] { TypeAndEnter("old"); });
  EXPECT_EQ(ShowOpenDialog(dialog_), folder_.Path("old.zb"));
  Then([this] { TypeAndEnter(folder_.Path("folder/inner.ZB")); });
  EXPECT_EQ(ShowOpenDialog(dialog_), folder_.Path("folder/inner.ZB"));
  Then([] {
    Then([] {  // the box that says so
      Then([] { user::TapKey(kKeyEscape); });
      user::TapKey(kKeyEnter);
    });
    TypeAndEnter("missing.zb");
  });
  EXPECT_EQ(ShowOpenDialog(dialog_), "");
}

TEST_F(FileDialogTest, SavesWithTheEndingAndAsksBeforeItReplaces) {
  dialog_.flags = kOverwritePrompt | kExplorerStyle | kHideReadOnly;
  Then([] { TypeAndEnter("new 1.5"); });
  EXPECT_EQ(ShowSaveDialog(dialog_), folder_.Path("new 1.5.zb"));
  Then([] { TypeAndEnter("New.ZB"); });
  EXPECT_EQ(ShowSaveDialog(dialog_), folder_.Path("New.ZB"));
  const auto take_old = [](const std::function<void()>& answer) {
    Then([answer] {
      Then(answer);
      TypeAndEnter("old");
    });
  };
  take_old([] {
    user::TapKey(kKeyLeft);  // from "No" to "Yes"
    user::TapKey(kKeyEnter);
  });
  EXPECT_EQ(ShowSaveDialog(dialog_), folder_.Path("old.zb"));
  bool still_open = false;
  take_old([&] {
    Then([&] {
      still_open = true;
      user::TapKey(kKeyEscape);
    });
    user::TapKey(kKeyEnter);
  });
  EXPECT_EQ(ShowSaveDialog(dialog_), "");
  EXPECT_TRUE(still_open) << "after a \"No\"";
  dialog_.flags = 0;
  Then([] { TypeAndEnter("old"); });
  EXPECT_EQ(ShowSaveDialog(dialog_), folder_.Path("old.zb"));
}

// ----------------------------------------------------------------------------------------------------------- Menus

/// A form with a menu as the editors have one.
struct MenuForm : ShownForm {
  Label bar{this, "Caves"};
  MenuItem caves;
  MenuItem copy{&caves, Cp1250("Zkopírovat")};
  MenuItem paste{&caves, "Paste & go"};
  MenuItem line{&caves, "-"};
  MenuItem move{&caves, "Move"};
  MenuItem up{&move, "Up"};
  MenuItem down{&move, "Down"};
  MenuItem hidden{&caves, "Hidden"};
  std::string log;

  MenuForm() {
    hidden.set_visible(false);
    up.set_shortcut_text("F5");
    for (MenuItem* item : {&caves, &copy, &paste, &move, &up, &down}) {
      item->on_click = [this, item] { log += item->caption() + " "; };
    }
  }
  /// Pops the menu up and does something while it is open; what the menu showed.
  std::vector<std::string> PopUpAnd(const std::function<void()>& act) const {
    std::vector<std::string> seen;
    user::WhenMenuIsOpen([&] {
      seen = user::MenuCaptions();
      act();
    });
    caves.PopUp(bar, 0, bar.height());
    return seen;
  }
};

TEST(MenuTest, KeysChooseAndTheHandlerRunsOnceTheMenuHasClosed) {
  MenuForm form;
  std::vector<int> form_keys;
  form.on_key_down = [&](KeyEvent& key) { form_keys.push_back(key.code); };
  bool open_in_handler = true;
  form.paste.on_click = [&] { open_in_handler = user::GrabFront().width() > 0; };
  EXPECT_THAT(form.PopUpAnd([] {
    user::TapKey(kKeyDown);
    user::TapKey(kKeyDown);
    user::TapKey(kKeyEnter);
  }),
              ElementsAre("Zkopírovat", "Paste & go", "-", "Move"));
  EXPECT_FALSE(open_in_handler);
  form.PopUpAnd([] {
    user::TapKey(kKeyUp);
    user::TapKey(kKeyRight);
    user::TapKey(kKeyDown);
    user::TapKey(kKeyEnter);
  });
  EXPECT_EQ(form.log, "Down ");
  form.PopUpAnd([] { user::TapKey(kKeyEscape); });
  EXPECT_EQ(form.log, "Down ");
  EXPECT_TRUE(form_keys.empty()) << "the form gets no keys of a menu";
}

TEST(MenuTest, TheMouseChoosesAndAHandlerMayOpenADialog) {
  MenuForm form;
  Form dialog;
  form.up.on_click = [&] {
    user::WhenFront([&] { dialog.Close(); });
    dialog.ShowModal();
    form.log += "shown ";
  };
  form.PopUpAnd([] {
    ASSERT_TRUE(user::ClickMenuItem("Move"));
    ASSERT_TRUE(user::WaitUntil([] { return user::MenuCaptions().size() == 2; }));
    EXPECT_THAT(user::MenuCaptions(), ElementsAre("Up", "Down"));
    EXPECT_TRUE(user::ClickMenuItem("Up"));
  });
  EXPECT_EQ(form.log, "shown ");
  form.PopUpAnd([&] { user::Click(form, 390, 290); });
  EXPECT_EQ(form.log, "shown ") << "a click beside the menu closes it";
}

TEST(MenuTest, ItemsAreBroughtUpToDateAsTheMenuOpens) {
  MenuForm form;
  std::string clipboard;
  form.caves.on_open = [&] {
    form.paste.set_enabled(!clipboard.empty());
    form.hidden.set_visible(true);
    form.up.set_visible(false);
    form.down.set_visible(false);
    form.copy.set_checked(true);
  };
  EXPECT_THAT(form.PopUpAnd([] {
    user::ClickMenuItem("Paste & go");
    user::ClickMenuItem("Move");  // has nothing to show
    user::TapKey(kKeyEscape);
  }),
              ElementsAre("Zkopírovat", "Paste & go", "-", "Move", "Hidden"));
  EXPECT_EQ(form.log, "");
  clipboard = "x";
  form.PopUpAnd([] { user::ClickMenuItem("Paste & go"); });
  EXPECT_EQ(form.log, "Paste & go ");
  MenuItem none;
  none.PopUp(form, 0, 0);  // shows nothing and returns
}

// --------------------------------------------------------------------------------------------------------- Windows

TEST(LanguageTest, BoxesSpeakTheLanguageAskedFor) {
  const ShownForm form;
  const auto box_in = [](const std::string& language) {
    Picture box;
    Application::set_language(language);
    user::WhenFront([&] {
      box = user::GrabFront();
      user::TapKey(kKeyEscape);
    });
    ShowMessageBox({"text", "title", BoxButtons::kYesNo});
    return box;
  };
  const Picture english = box_in("en");
  EXPECT_NE(box_in("cs"), english);
  EXPECT_EQ(box_in("en"), english);
}

TEST(FormTest, WhatIsShownAtOnceStandsInFrontOfThePresentForm) {
  ShownForm form;
  Form loading(Border::kNone, 100, 40);
  for (const int left : {50, 600}) {
    form.MoveTo(left, 200);
    user::Wait(20);
    loading.ShowNow();
    constexpr int kFrame = 4;  // of the window around the form
    EXPECT_NEAR(loading.left(), left + 150, kFrame);
    EXPECT_NEAR(loading.top(), 200 + 130, kFrame);
    loading.Hide();
    form.Show();
  }
}

TEST(WindowShapeTest, CutsTheWindowToTheUnion) {
  Form form(Border::kNone, 200, 100);
  EXPECT_TRUE(InWindow(form, 199, 99));
  WindowShape shape;
  shape.AddRectangle({0, 0, 50, 20});
  shape.AddEllipse({40, 10, 80, 80});
  SetWindowShape(form, shape);
  form.Show();
  EXPECT_TRUE(InWindow(form, 49, 19));
  EXPECT_FALSE(InWindow(form, 10, 20));
  EXPECT_FALSE(InWindow(form, 51, 12)) << "the corner of the ellipse's bounds";
  EXPECT_TRUE(InWindow(form, 80, 12));
  EXPECT_TRUE(InWindow(form, 118, 50));
  EXPECT_FALSE(InWindow(form, 121, 50));
  WindowShape smaller;
  smaller.AddRectangle({0, 0, 10, 10});
  SetWindowShape(form, smaller);
  EXPECT_FALSE(InWindow(form, 80, 50)) << "a new shape replaces the old one";
  ClearWindowShape(form);
  EXPECT_TRUE(InWindow(form, 199, 99));
  EXPECT_FALSE(InWindow(form, 200, 50));
}

}  // namespace

int main(int argc, char** argv) {
  user::UseOffscreen();
  ::testing::InitGoogleTest(&argc, argv);
  const Application application(argc, argv, "Zorb");
  return RUN_ALL_TESTS();
}
