// The cave properties on the offscreen platform, with the cave editor behind them: fields, corrections, hand-over,
// help.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "cave/cave_text.h"
#include "editor/frm_formality.h"
#include "editor/frm_main.h"
#include "game_window.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/testing.h"

using namespace platform;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

std::string Utf8(const std::string& text) { return ToUtf8(text, CodePage::k1250); }
const std::string& Text(text::Row row) { return LangStr[row]; }

/// The cave editor with a cave, and the properties filled from it.
class Properties {
 public:
  explicit Properties(const CaveRecord& cave = DirtCave(30, 20, 2, 2), const std::string& language = "cestina.zbl") {
    NactiJazyk(kData + "/" + language);
    forms.frmMain = &main;
    forms.frmFormality = &form;
    form.FrmLoad();
    form.SetLW();
    main.OpenCave(BuildCaveText(cave));
    SetBoxResponder([this](const MessageBox& box) {
      boxes.push_back(box);
      return BoxAnswer::kOk;
    });
  }
  ~Properties() { SetBoxResponder({}); }
  Properties(const Properties&) = delete;
  Properties& operator=(const Properties&) = delete;

  /// What the boxes have said since the last call: title, "|", text.
  std::vector<std::string> Said() {
    std::vector<std::string> said;
    for (const MessageBox& box : boxes) said.push_back(box.title + "|" + box.text);
    boxes.clear();
    return said;
  }
  std::string Help(const Button& button) {
    Show();
    user::Click(button);
    EXPECT_EQ(boxes.size(), 1U);
    EXPECT_TRUE(boxes.back().icon == BoxIcon::kInformation && boxes.back().buttons == BoxButtons::kOk);
    EXPECT_TRUE(form.visible());
    return boxes.empty() ? "" : Said().back();
  }
  void Show() {
    form.Show();
    ASSERT_TRUE(user::WaitUntil([this] { return user::HasInput(form); }));
  }
  /// Opens the dialog by the editor's label and does something in it; back once it is closed.
  void Open(const std::function<void()>& action) {
    main.Show();
    user::WaitUntil([this] { return user::HasInput(main); });
    user::WhenFront(action);
    user::Click(main.Label3);
    EXPECT_FALSE(form.visible());
  }
  const CaveRecord& Cave() const { return main.edit.EdKomnata; }

  Forms forms;
  FrmMain main{kData, forms};
  FrmFormality form{kData, forms};
  std::vector<MessageBox> boxes;
};

TEST(PropertiesTest, FieldsTakeDigitsAndSoManyCharacters) {
  Properties desk;
  desk.Show();
  EXPECT_TRUE(desk.form.Text3.has_focus()) << "each opening begins with the name";
  const std::pair<TextBox*, std::string> fields[] = {
      {&desk.form.Text6, "123"}, {&desk.form.Text5, "123"}, {&desk.form.Text9, "12"},
      {&desk.form.Text10, "12"}, {&desk.form.Text7, "123"}, {&desk.form.Text8, "123"},
      {&desk.form.Text11, "1"},  {&desk.form.Text1, "12"},  {&desk.form.Text2, "12"}};
  for (const auto& [field, digits] : fields) {
    field->SetFocus();
    field->SelectAll();
    user::Type("-x1a 2,3b4");
    EXPECT_EQ(field->text(), digits);
  }
  desk.form.Text4.set_text(std::string(300, 'x'));
  EXPECT_EQ(desk.form.Text4.text().size(), 280U);
  desk.form.Text4.SetFocus();
  desk.form.Text4.SelectAll();
  user::Type("a");
  user::TapKey(kKeyEnter);
  user::Type("b");
  EXPECT_EQ(desk.form.Text4.text(), "a\r\nb") << "a line break, not the default button";
  desk.form.Text3.set_text(std::string(300, 'x'));
  EXPECT_EQ(desk.form.Text3.text().size(), 300U);
  EXPECT_EQ(desk.form.HScroll1.min(), 0);
  EXPECT_EQ(desk.form.HScroll1.max(), 14);
}

TEST(PropertiesTest, CorrectsInOrderAndTellsItInOneBox) {
  Properties desk;
  FrmFormality& form = desk.form;
  desk.Show();
  for (TextBox* field : {&form.Text1, &form.Text2, &form.Text5, &form.Text7, &form.Text8}) field->set_text("");
  form.Text11.set_text("9");
  form.Text3.set_text("diamant");
  form.Text4.set_text("  Popis ");
  user::Click(form.Command1);
  ASSERT_EQ(desk.boxes.size(), 1U);
  EXPECT_TRUE(desk.boxes[0].icon == BoxIcon::kExclamation && desk.boxes[0].buttons == BoxButtons::kOk);
  EXPECT_EQ(
      Utf8(desk.Said()[0]),
      "Upozornění|Tyto údaje bylo potřeba opravit:\r\n\r\n"
      "Šířka komnaty = 19\r\nVýška komnaty = 11\r\nCelkový čas = 5\r\nJak dlouho bude kouzelná zeď kouzlit = 1\r\n"
      "Čas améby = 1\r\nPropustnost bláta = 8\r\nNázev\r\nPopis\r\n");
  const CaveRecord& cave = desk.Cave();
  EXPECT_EQ(cave.Name, "Drahokam");
  EXPECT_EQ(cave.Description, "Popis");
  EXPECT_THAT(
      (std::vector<int>{cave.Width, cave.Height, cave.Time, cave.MagicTime, cave.AmoebaTime, cave.SlimeThrough}),
      ElementsAre(19, 11, 5, 1, 1, 8));

  NactiJazyk(kData + "/english.zbl");
  form.Text1.set_text("51");
  form.Text2.set_text("31");
  form.Text7.set_text("151");
  form.Text8.set_text("999");
  form.Text3.set_text("    ");
  form.Text4.set_text(std::string(188, 'X') + " \r\n");
  form.Command1_Click();
  EXPECT_THAT(desk.Said(), ElementsAre(Cp1250("Upozornění|") + Text(text::kCorrected) + "\r\n\r\n" +
                                       Text(text::kCaveWidth) + " = 50\r\n" + Text(text::kCaveHeight) + " = 30\r\n" +
                                       Text(text::kMagicTime) + " = 150\r\n" + Text(text::kAmoebaTime) + " = 150\r\n" +
                                       Text(text::kCaveName) + "\r\n" + Text(text::kCaveDescription) + " = 190\r\n"));
  EXPECT_EQ(desk.Cave().Name, "");
  EXPECT_EQ(desk.Cave().Description, std::string(188, 'X'))
      << "what a cave text has room for, without half a line break or a blank";
  EXPECT_EQ(ParseCaveText(desk.main.edit.Text()).Description, desk.Cave().Description);
}

TEST(PropertiesTest, NumbersWithinTheLimitsAreTakenOverWithoutAWord) {
  Properties desk;
  FrmFormality& form = desk.form;
  const std::pair<TextBox*, const char*> values[] = {{&form.Text1, "50"},  {&form.Text2, "30"},  {&form.Text5, "999"},
                                                     {&form.Text6, "999"}, {&form.Text7, "150"}, {&form.Text8, "1"},
                                                     {&form.Text9, "0"},   {&form.Text10, "99"}, {&form.Text11, ""}};
  for (const auto& [field, value] : values) field->set_text(value);
  form.Text3.set_text(Cp1250("Žlutá"));
  form.Text4.set_text("Popis\r\nna dva");
  form.HScroll1.set_value(14);
  form.Command1_Click();
  EXPECT_THAT(desk.Said(), IsEmpty());
  const CaveRecord& cave = desk.Cave();
  EXPECT_THAT((std::vector<int>{cave.Width, cave.Height, cave.Time, cave.Need, cave.MagicTime, cave.AmoebaTime,
                                cave.PointsBefore, cave.PointsAfter, cave.SlimeThrough, cave.Tint}),
              ElementsAre(50, 30, 999, 999, 150, 1, 0, 99, 0, 14));
  EXPECT_EQ(cave.Name, Cp1250("Žlutá"));
  EXPECT_EQ(cave.Description, "Popis\r\nna dva");
}

// No key makes a negative number; a text that came from elsewhere can.
TEST(PropertiesTest, ANegativeNumberOfGemsOrPointsTakesTheTimeAway) {
  for (TextBox FrmFormality::*field : {&FrmFormality::Text6, &FrmFormality::Text9, &FrmFormality::Text10}) {
    Properties desk;
    desk.form.Text5.set_text("3");
    (desk.form.*field).set_text("-1");
    desk.form.Command1_Click();
    EXPECT_EQ(desk.form.Text5.text(), "0") << "after it was set to its least value";
    EXPECT_EQ((desk.form.*field).text(), "-1");
    EXPECT_EQ(desk.Cave().Time, 0);
    EXPECT_THAT(desk.Said(), ElementsAre(Cp1250("Upozornění|") + Text(text::kCorrected) + "\r\n\r\n" +
                                         Text(text::kTotalTime) + " = 5\r\n"));
  }
}

TEST(PropertiesTest, OkTakesASizeOverAndLeavesTheViewWhenItStays) {
  CaveRecord large = DirtCave(60, 40, 2, 2);
  large.Time = 1507;
  large.PointsBefore = 100;
  large.PointsAfter = 190;
  large.SlimeThrough = 12;
  large.Tint = 15;
  Properties desk(large);
  desk.main.HScroll1.set_value(10);
  desk.main.VScroll1.set_value(4);
  desk.Open([] { user::TapKey(kKeyEscape); });
  EXPECT_EQ(desk.Cave().Width, 60) << "nobody pressed OK";
  EXPECT_EQ(desk.Cave().Time, 1507);

  desk.Open([&] {
    EXPECT_EQ(desk.form.Text1.text(), "60");
    user::TapKey(kKeyEnter);
  });
  EXPECT_EQ(desk.Said().size(), 1U);
  EXPECT_EQ(desk.Cave().Width, 50);
  EXPECT_EQ(desk.Cave().Height, 30);
  const CaveRecord& cave = desk.Cave();
  EXPECT_THAT((std::vector<int>{cave.Time, cave.PointsBefore, cave.PointsAfter, cave.SlimeThrough, cave.Tint}),
              ElementsAre(150, 10, 19, 1, 14))
      << "the digits that the fields have room for, and the last place of the bar";
  EXPECT_EQ(desk.main.EditKom.width(), 50 * CaveEdit::kCell);
  EXPECT_EQ(desk.main.HScroll1.value(), 0) << "back to the upper left corner";

  desk.main.HScroll1.set_value(10);
  desk.Open([&] {
    user::Type("Jeskyně");
    user::Click(desk.form.Command1);
  });
  EXPECT_EQ(desk.Cave().Name, Cp1250("Jeskyně"));
  EXPECT_EQ(desk.main.HScroll1.value(), 10);
  EXPECT_THAT(desk.Said(), IsEmpty());
}

TEST(PropertiesTest, GivingUpChangesNothing) {
  Properties desk;
  const std::string before = desk.main.edit.Text();
  const std::vector<std::function<void()>> ways = {
      [] { user::TapKey(kKeyEscape); }, [&] { user::Click(desk.form.Command2); }, [&] { desk.form.Close(); }};
  for (const auto& leave : ways) {
    desk.Open([&] {
      user::Type("diamant");
      desk.form.Text1.set_text("3");
      desk.form.HScroll1.set_value(9);
      leave();
    });
    EXPECT_EQ(desk.main.edit.Text(), before);
    EXPECT_THAT(desk.Said(), IsEmpty());
  }
  desk.Open([&] {
    EXPECT_EQ(desk.form.Text3.text(), "Doupe") << "filled anew";
    user::TapKey(kKeyEscape);
  });
}

TEST(PropertiesTest, HelpExplains) {
  CaveRecord cave = DirtCave(19, 11, 2, 2);
  for (int x = 4; x < 9; ++x) cave.Cell(x, 4) = 'D';
  cave.Cell(5, 5) = '!';
  for (int x = 4; x < 7; ++x) cave.Cell(x, 6) = 'A';
  Properties desk(cave);
  FrmFormality& form = desk.form;
  EXPECT_EQ(desk.Help(form.Command3), Text(text::kBonusTitle) + "|" + Text(text::kBonusText));
  form.Text3.set_text("Moje Bonusovka");
  EXPECT_EQ(Utf8(desk.Help(form.Command3)),
            Utf8(Text(text::kBonusTitle) + "|" + Text(text::kBonusText)) + "\r\nKomnata 'Moje Bonusovka' je bonusová.");
  form.Text6.set_text("77");
  EXPECT_EQ(desk.Help(form.Command4), Text(text::kCountGemsTitle) + "|" + Text(text::kCountGemsText) + " 5")
      << "of the grid";
  EXPECT_EQ(desk.Help(form.Command5), Text(text::kTimeTitle) + "|" + Text(text::kTimeText));
  EXPECT_EQ(desk.Help(form.Command6), Text(text::kMagicTitle) + "|" + Text(text::kMagicText));
}

TEST(PropertiesTest, HelpReckonsWithTheFieldsAsTheyStand) {
  CaveRecord cave = DirtCave(19, 11, 2, 2);
  for (int x = 1; x < 18; ++x) cave.Cell(x, 4) = 'A';
  for (int x = 1; x < 18; ++x) cave.Cell(x, 5) = 'A';
  Properties desk(cave);
  FrmFormality& form = desk.form;
  const std::pair<const char*, std::string> slime[] = {{"", " 0?|" + Text(text::kSlimeNever)},
                                                       {"0", " 0?|" + Text(text::kSlimeNever)},
                                                       {"1", " 1?|" + Text(text::kSlimeOdds) + " 1:127."},
                                                       {"7", " 7?|" + Text(text::kSlimeOdds) + " 1:1."},
                                                       {"8", " 8?|" + Text(text::kSlimeAlways)},
                                                       {"9", " 9?|:-)"}};
  for (const auto& [value, text] : slime) {
    form.Text11.set_text(value);
    EXPECT_EQ(desk.Help(form.Command7), Text(text::kSlimeTitle) + text);
  }

  const auto stone = [&](const char* width, const char* height, const char* time) {
    form.Text1.set_text(width);
    form.Text2.set_text(height);
    form.Text8.set_text(time);
    const std::string said = Utf8(desk.Help(form.Command8));
    const std::size_t first = said.find("přirůst:") + std::string("přirůst:").size();
    return said.substr(first, said.find("\r\n\r\nOdhad počítá") - first);
  };
  EXPECT_EQ(stone("19", "11", "100"), "  14\r\nOdhad času v sekundách:  44");
  EXPECT_EQ(stone("20", "11", "10"), "  16\r\nOdhad času v sekundách:  15");
  EXPECT_EQ(stone("10", "11", "10"), " -9\r\nOdhad času v sekundách: -29") << "more than enough already";
}

TEST(PropertiesTest, PreviewIsTheDirtOfTheGameInThatColour) {
  CaveRecord cave = DirtCave(19, 11, 2, 2);
  cave.Tint = 5;
  Properties desk(cave);
  TilePictures pictures(kPictures, desk.form.Picture1.width(), Application::PixelRatio());
  const auto expectDirt = [&](int tint) {
    pictures.LoadTint(tint);
    EXPECT_TRUE(desk.form.Picture1.picture() == pictures[picture::kDirt]) << tint;
  };
  expectDirt(5);
  desk.Open([&] {
    desk.form.HScroll1.SetFocus();
    user::TapKey(kKeyRight);
    expectDirt(6);
    user::TapKey(kKeyEscape);
  });
  desk.main.SetProps();
  expectDirt(5);
}

/// Makes a text longer by two fifths, as in a language of long words.
void MakeLonger(std::string& text) { text += std::string(text.size() * 2 / 5 + 1, 'm'); }

TEST(PropertiesTest, ShowsItsTextsWholeInEveryLanguage) {
  Properties desk;
  FrmFormality& form = desk.form;
  const std::pair<const Button*, const Label*> helps[] = {
      {&form.Command3, &form.Label4}, {&form.Command4, &form.Label8},  {&form.Command5, &form.Label7},
      {&form.Command6, &form.Label9}, {&form.Command8, &form.Label10}, {&form.Command7, &form.Label13}};
  const auto check = [&](const char* language) {
    form.SetLW();
    ForEachControl(form, [&](Control& control) {
      EXPECT_TRUE(control.left() >= 0 && control.left() + control.width() <= form.width()) << language;
      EXPECT_TRUE(control.top() >= 0 && control.top() + control.height() <= form.height()) << language;
      const auto* captioned = dynamic_cast<Captioned*>(&control);
      if (!captioned) return;
      EXPECT_LE(captioned->text_width(), control.width()) << language << Utf8(captioned->caption());
    });
    for (const auto& [button, label] : helps) {
      EXPECT_GT(button->left(), label->left() + label->text_width()) << language;
      EXPECT_GE(button->width(), button->text_width() + 20) << language;
      EXPECT_EQ(button->left() + button->width(), form.Command3.left() + form.Command3.width()) << language;
    }
    EXPECT_LE(form.Label3.left() + form.Label3.text_width(), form.Picture1.left());
    EXPECT_LE(form.height(), 768 - 60) << "with the desktop's own bars";
    EXPECT_LE(form.width(), 1024);
  };
  check("Czech");
  EXPECT_EQ(Utf8(form.caption() + form.Label11.caption() + form.Command6.caption()),
            "Vlastnosti komnaty- Bodů za drahokam před otevřením cíleCo pak?");
  NactiJazyk(kData + "/english.zbl");
  check("English");
  EXPECT_EQ(form.Label1.caption(), "- Cave width");
  NactiJazyk(kData + "/cestina.zbl");
  for (std::string& text : LangStr) MakeLonger(text);
  check("long");
}

}  // namespace
