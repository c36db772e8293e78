// The cave editor's form on the offscreen platform, driven by mouse and keys as an author does.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "base/code_page.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "cave/cave_text.h"
#include "kit/desk.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/registry.h"
#include "platform/testing.h"

using namespace platform;
using ::testing::ElementsAre;

namespace {

constexpr int kCell = CaveEdit::kCell;
constexpr int kF = kF1 - 1;  // kF + n: function key n

/// A small cave of dirt with a hero and an exit beside him.
CaveRecord Winnable() {
  CaveRecord record = Filled(19, 11, ';');
  record.Cell(2, 2) = '1';
  record.Cell(3, 2) = 'T';
  return record;
}

/// The whole program with the cave editor on the screen: a new set, and the cave in place of its first one.
struct Editor {
  explicit Editor(const CaveRecord& cave) {
    Registr::SetFolder(folder.path());
    NactiJazyk(kData + "/cestina.zbl");
    program.hra.FrmLoad();
    program.frmSada.FrmLoad();
    program.frmFormality.FrmLoad();
    form.FrmLoad();
    program.frmSada.mnuNew_Click();
    program.frmSada.SetKKKtoK(BuildCaveText(cave));
    program.frmSada.mnuEdit_Click();
    user::WaitUntil([this] { return user::HasInput(form); });
  }

  char At(int x, int y) const { return form.edit.EdKomnata.Cell(x, y); }
  std::string Row(int x, int y, int length) const {
    std::string row;
    for (int i = 0; i < length; ++i) row += At(x + i, y);
    return row;
  }
  Picture Shown(int x, int y) { return form.EditKom.surface().Snapshot().Part({x * kCell, y * kCell, kCell, kCell}); }
  Picture Tile(int palette) const { return form.imgS[static_cast<std::size_t>(palette)]->picture(); }
  void Press(int x, int y, int button) const { user::PressMouse(form.EditKom, x * kCell + 5, y * kCell + 5, button); }
  void Drag(int x, int y, int held) const { user::MoveMouse(form.EditKom, x * kCell + 5, y * kCell + 5, held); }
  void Draw(int x, int y, int button = kLeftButton) const {
    Press(x, y, button);
    user::ReleaseMouse(form.EditKom, x * kCell + 5, y * kCell + 5, button);
  }
  void Pick(int palette, int button = kLeftButton) const {
    user::Click(*form.imgS[static_cast<std::size_t>(palette)], 3, 3, button);
  }
  bool Warns(int count) const { return form.status.imgWarning[static_cast<std::size_t>(count)].visible(); }
  std::string Count(int count) const { return form.status.lblCount[static_cast<std::size_t>(count)].caption(); }

  const TempFolder folder;
  Program program{kData, "zorbik", {}};
  FrmMain& form = program.frmMain;
};

TEST(CaveEditor, PaintsWithThreeMouseButtons) {
  Editor editor(Filled(19, 11, '.'));
  editor.Draw(1, 1);
  editor.Draw(2, 1, kMiddleButton);
  editor.Draw(1, 1, kRightButton);
  EXPECT_EQ(editor.Row(1, 1, 2), ".;") << "gems left, dirt in the middle, emptiness right";
  EXPECT_EQ(editor.Shown(2, 1), editor.Tile(kPaletteDirt));
  editor.Press(3, 3, kLeftButton);
  editor.Drag(4, 3, kLeftButton);
  editor.Drag(6, 3, kLeftButton);
  user::MoveMouse(editor.form.EditKom, -3, 4 * kCell, kLeftButton);
  user::MoveMouse(editor.form.EditKom, 5 * kCell, 700, kLeftButton);
  editor.Drag(8, 3, 0);
  EXPECT_EQ(editor.Row(3, 3, 6), "DD.D..") << "nothing in between, outside, or without a button";
  EXPECT_EQ(editor.form.edit.NuOfOb('D'), 3);
  EXPECT_EQ(editor.Shown(4, 3), editor.Tile(kPaletteGem));
  editor.Drag(4, 3, kLeftButton | kRightButton);
  editor.Drag(3, 3, kLeftButton | kMiddleButton);
  EXPECT_EQ(editor.Row(3, 3, 2), "D.");

  editor.Pick(kPaletteHero);
  editor.form.Dog[4]->Click();
  editor.Press(10, 5, kLeftButton);
  editor.Drag(11, 5, kLeftButton);
  editor.Drag(12, 5, kLeftButton);
  EXPECT_EQ(editor.Row(10, 5, 3), "..4") << "a hero is dragged";
  EXPECT_EQ(editor.Shown(11, 5), editor.Tile(kPaletteEmpty));
  EXPECT_EQ(editor.Shown(12, 5), editor.Tile(kPaletteHero));
  editor.form.Dog[2]->Click();
  EXPECT_NE(editor.Shown(12, 5), editor.Tile(kPaletteHero)) << "the palette shows another hero now";
}

TEST(CaveEditor, MarksTheTilesOfTheButtonsAndCaptionsTheOperations) {
  Editor editor(Filled(19, 11, '.'));
  FrmMain& form = editor.form;
  const auto left = [&](int shape) { return form.Shape1[static_cast<std::size_t>(shape)]->left(); };
  const auto& gem = *form.imgS[kPaletteGem];
  EXPECT_EQ(left(0), gem.left());
  EXPECT_EQ(form.Shape1[0]->top(), gem.top() + 29);
  EXPECT_EQ(left(1), form.imgS[kPaletteEmpty]->left() + kCell - form.Shape1[1]->width());
  EXPECT_EQ(left(3), form.imgS[kPaletteDirt]->left() + 7);
  EXPECT_EQ(Utf8(form.mnuOkraj.caption()), "Udělat okraj z 'Drahokam'");
  EXPECT_EQ(Utf8(form.mnuObjbyObj.caption()), "Nahradit 'Prázdno' za 'Drahokam'");
  editor.Pick(8);
  editor.Pick(2, kRightButton);
  EXPECT_EQ(Utf8(form.mnuObjbyObj.caption()), "Nahradit 'Kámen' za 'Ocelová zeď'");
  EXPECT_EQ(left(1), form.imgS[2]->left() + kCell - form.Shape1[1]->width());
  user::Click(form.Label1, 5, 5, kLeftButton);
  EXPECT_EQ(form.edit.VybranyObjekt[1], kPaletteAmoeba) << "a click on the counter picks what lies below";
  EXPECT_EQ(form.imgChosen[0].picture(), editor.Tile(kPaletteAmoeba));
  editor.Pick(kPaletteHero);
  EXPECT_FALSE(form.mnuOkraj.visible());
  EXPECT_FALSE(form.mnuObjbyObj.visible());
  editor.Pick(kPaletteHero, kRightButton);
  editor.Pick(5);
  form.Dog[7]->Click();
  EXPECT_TRUE(form.mnuOkraj.visible());
  EXPECT_EQ(Utf8(form.mnuObjbyObj.caption()), "Nahradit 'Zorbík 7' za 'Zeď'");
  EXPECT_TRUE(form.Dog[7]->checked());
  EXPECT_FALSE(form.Dog[1]->checked());
  EXPECT_FALSE(form.Dog[0]->visible());
  NactiJazyk(kData + "/english.zbl");
  EXPECT_EQ(form.mnuObjbyObj.caption(), "Replace 'Borzeek 7' with 'Wall'");
  EXPECT_EQ(form.caption(), "Borzeek's cave editor");
}

TEST(CaveEditor, OffersRandomReplacementsWhereSoManyCellsExist) {
  Editor editor(Filled(19, 11, ';'));
  FrmMain& form = editor.form;
  const auto offered = [&] {
    std::vector<int> shown;
    form.mnuEd.on_open();
    for (const MenuItem& item : form.mnuReplRan) shown.push_back(item.visible());
    return shown;
  };
  EXPECT_THAT(offered(), ElementsAre(0, 0, 0, 0)) << "50%, 1, 5, 10";
  for (const auto& [count, expected] : std::vector<std::pair<int, std::vector<int>>>{
           {1, {0, 1, 0, 0}}, {2, {1, 1, 0, 0}}, {5, {1, 1, 1, 0}}, {10, {1, 1, 1, 1}}}) {
    while (form.edit.NuOfOb('.') < count) editor.Draw(1 + form.edit.NuOfOb('.'), 2, kRightButton);
    EXPECT_EQ(offered(), expected) << count;
  }
  // By keyboard, from the bar through the menu within the menu.
  editor.Pick(kPaletteAmoeba);
  std::vector<std::string> captions;
  user::WhenMenuIsOpen([&] {
    captions = user::MenuCaptions();
    user::TapKey(kKeyDown);
    user::TapKey(kKeyDown);
    user::TapKey(kKeyRight);
    user::TapKey(kKeyEnter);
  });
  user::TapKey(kF + 10);
  user::TapKey(kKeyEnter);
  EXPECT_THAT(captions,
              ElementsAre("Vrátit do původního stavu", "Nahradit 'Prázdno' za 'Améba'", "Udělat okraj z 'Améba'"));
  EXPECT_EQ(form.edit.NuOfOb('A'), 10);
  EXPECT_TRUE(form.EditKom.has_focus()) << "back from the bar";
  EXPECT_EQ(form.Label1.caption(), "10");
  EXPECT_EQ(editor.Shown(5, 2), editor.Tile(kPaletteAmoeba));
  editor.Pick(9);
  editor.Pick(kPaletteAmoeba, kRightButton);
  user::PaintedPixels();
  form.mnuReplRan[2].Click();
  const int ratio = Application::PixelRatio();
  EXPECT_GE(user::PaintedPixels(), 5LL * kCell * kCell * ratio * ratio) << "each of five cells is shown at once";
  EXPECT_EQ(form.Label1.caption(), "5");
  form.mnuOkraj.Click();
  EXPECT_EQ(form.Label1.caption(), "5") << "the border does not count";
  form.mnuRestore.Click();
  EXPECT_EQ(form.edit.NuOfOb(';'), 19 * 11);
  EXPECT_EQ(form.Label1.caption(), "0");
  EXPECT_THAT(form.edit.VybranyObjekt, ElementsAre(0, kPaletteGem, kPaletteEmpty, 0, kPaletteDirt));
  EXPECT_EQ(form.edit.AktualniPes, 1);
}

TEST(CaveEditor, ScrollsOverTheLargestCave) {
  Editor editor(Filled(80, 50, '.'));
  FrmMain& form = editor.form;
  EXPECT_EQ(form.EditKom.width(), 80 * kCell);
  EXPECT_EQ(form.HScroll1.max(), 122);
  EXPECT_EQ(form.VScroll1.max(), 78);
  form.HScroll1.set_value(122);
  form.VScroll1.set_value(1);
  EXPECT_EQ(form.EditKom.left(), -(80 - 19) * kCell);
  EXPECT_EQ(form.EditKom.top(), -13);
  user::Click(form.Ram, form.Ram.width() - 2, 14, kLeftButton);
  EXPECT_EQ(editor.At(79, 1), 'D');
  user::TapKey(kKeyLeft);
  user::TapKey(kKeySpace);
  EXPECT_EQ(editor.At(78, 1), 'D') << "a click has moved the cursor";
  user::MoveMouse(form.Ram, form.Ram.width() - 5, 15);
  user::TurnWheel(form.Ram, -2);
  EXPECT_EQ(form.VScroll1.value(), 5);
  EXPECT_EQ(form.status.lblPlace.caption(), "79, 3") << "another cell lies below the mouse";
  // The cursor takes the view along, and no further than needed.
  user::TapKey(kKeyHome, kCtrl);
  EXPECT_EQ(form.HScroll1.value(), 0);
  for (int i = 0; i < 18; ++i) user::TapKey(kKeyRight);
  EXPECT_EQ(form.HScroll1.value(), 0);
  user::TapKey(kKeyRight);
  EXPECT_EQ(form.HScroll1.value(), 2);
  user::TapKey(kKeyPageDown);
  EXPECT_EQ(form.VScroll1.value(), 2);
  user::TapKey(kKeyEnd, kCtrl);
  EXPECT_EQ(form.HScroll1.value(), 122);
  EXPECT_EQ(form.VScroll1.value(), 78);
  user::TapKey(kKeyUp, kCtrl);
  EXPECT_EQ(form.VScroll1.value(), 76) << "the view alone";
  form.VScroll1.set_value(0);
  user::TapKey(kKeySpace);
  EXPECT_EQ(editor.At(79, 49), 'D');
  EXPECT_EQ(form.VScroll1.value(), 78) << "what is drawn is seen";
}

TEST(CaveEditor, WorksByKeyboardAlone) {
  Editor editor(Filled(30, 20, '.'));
  FrmMain& form = editor.form;
  EXPECT_TRUE(form.shpCursor.visible());
  user::TapKey(kKeySpace);
  user::TapKey(kKeyRight);
  user::TapKey(kKeySpace, kCtrl);
  user::TapKey(kKeyDown, kShift);
  user::TapKey(kKeyLeft);
  user::TapKey(kKeyUp);
  user::TapKey(kKeySpace, kShift);
  EXPECT_EQ(editor.Row(0, 0, 2), ".D") << "Shift and an arrow draw where they leave, too";
  EXPECT_EQ(editor.Row(0, 1, 2), ".D");
  EXPECT_EQ(form.shpCursorLine.left(), 0);
  user::MoveMouse(form.EditKom, 200, 200);
  EXPECT_FALSE(form.shpCursor.visible());
  EXPECT_EQ(form.status.lblPlace.caption(), "7, 7");

  // To the palette: one stop of Tab, arrows from tile to tile.
  for (int i = 0; i < 3; ++i) user::TapKey(kKeyTab);
  ASSERT_TRUE(form.imgS[kPaletteGem]->has_focus());
  user::TapKey(kKeyLeft);
  user::TapKey(kKeyDown);
  ASSERT_TRUE(form.imgS[9]->has_focus());
  user::TapKey(kKeySpace, kShift);
  for (int i = 0; i < 20; ++i) user::TapKey(kKeyRight);
  ASSERT_TRUE(form.imgS[kPaletteHero]->has_focus());
  user::TapKey(kKeyEnter);
  user::TapKey('6');
  EXPECT_THAT(form.edit.VybranyObjekt, ElementsAre(0, kPaletteHero, 9, 0, kPaletteDirt));
  user::TapKey(kKeyEscape);
  ASSERT_TRUE(form.EditKom.has_focus());
  user::TapKey(kKeySpace);
  EXPECT_EQ(editor.At(0, 0), '6');
  EXPECT_EQ(Utf8(form.status.lblTile.caption()), "Zorbík 6");
}

TEST(CaveEditor, TellsThePlaceAndWhatKeepsACaveFromBeingWon) {
  CaveRecord cave = Filled(19, 11, '.');
  cave.Need = 2;
  cave.Cell(4, 3) = '?';
  Editor editor(cave);
  EXPECT_EQ(editor.Count(StatusLine::kGems), "0 / 2");
  for (int i = StatusLine::kGems; i <= StatusLine::kExits; ++i) EXPECT_TRUE(editor.Warns(i)) << i;
  editor.Draw(1, 1);
  EXPECT_TRUE(editor.Warns(StatusLine::kGems));
  editor.Draw(2, 1);
  EXPECT_FALSE(editor.Warns(StatusLine::kGems));
  editor.Pick(9);
  editor.Draw(2, 1);
  EXPECT_FALSE(editor.Warns(StatusLine::kExits));
  EXPECT_TRUE(editor.Warns(StatusLine::kGems)) << "the exit lies over a gem";
  editor.Pick(21);
  editor.Draw(3, 1);
  EXPECT_EQ(editor.Count(StatusLine::kGems), "1+ / 2") << "a butterfly can become gems";
  EXPECT_FALSE(editor.Warns(StatusLine::kGems));
  editor.Pick(kPaletteHero);
  editor.Draw(5, 5);
  EXPECT_FALSE(editor.Warns(StatusLine::kHeroes));
  editor.Drag(3, 1, 0);
  EXPECT_EQ(editor.form.status.lblPlace.caption(), "3, 1");
  EXPECT_EQ(Utf8(editor.form.status.lblTile.caption()), "Motýl");
  editor.Drag(4, 3, 0);
  EXPECT_EQ(editor.form.status.lblTile.caption(), "'?'");
}

TEST(CaveEditor, LongNamesAndLargeNumbersHaveTheirRoom) {
  CaveRecord cave = Filled(80, 50, 'A');
  cave.Need = 1909;
  Editor editor(cave);
  FrmMain& form = editor.form;
  for (const char* language : {"/cestina.zbl", "/english.zbl"}) {
    NactiJazyk(kData + language);
    for (const auto& tile : form.imgS) {
      form.status.ShowCell(79, 49, tile->picture(), tile->tool_tip());
      EXPECT_LE(form.status.lblTile.text_width(), form.status.lblTile.width()) << Utf8(tile->tool_tip());
    }
  }
  EXPECT_LE(form.status.lblPlace.text_width(), form.status.lblPlace.width());
  EXPECT_LE(form.Label1.text_width(), form.Label1.width()) << form.Label1.caption();
  for (const CaveCounts& counts : {CaveCounts{1899, 9, 4000, true}, CaveCounts{1899, 0, 0, false}}) {
    form.status.ShowCounts(counts, 1909);
    for (std::size_t i = 0; i < form.status.lblCount.size(); ++i) {
      const Label& number = form.status.lblCount[i];
      EXPECT_LE(number.text_width(), number.width()) << number.caption();
      const int next = i + 1 < form.status.imgCount.size() ? form.status.imgCount[i + 1].left() : form.status.width();
      EXPECT_LE(form.status.imgWarning[i].left() + form.status.imgWarning[i].width(), next) << number.caption();
    }
  }
}

TEST(CaveEditor, HandsThePropertiesToTheDialogAndTakesThemBack) {
  CaveRecord cave = Filled(30, 20, 'D');
  cave.Need = 7;
  cave.Tint = 3;
  Editor editor(cave);
  FrmMain& form = editor.form;
  FrmFormality& dialog = editor.program.frmFormality;
  form.VScroll1.set_value(4);
  user::WhenFront([&] {
    EXPECT_EQ(dialog.Text3.text(), "Doupe");
    EXPECT_EQ(dialog.Text5.text(), "150");
    EXPECT_EQ(dialog.HScroll1.value(), 3);
    dialog.Text6.set_text("998");
    dialog.HScroll1.set_value(5);
    dialog.Command1.Click();
  });
  user::TapKey(kF + 4);
  EXPECT_EQ(form.edit.EdKomnata.Need, 998);
  EXPECT_EQ(form.edit.EdKomnata.Tint, 5);
  EXPECT_EQ(form.VScroll1.value(), 4) << "the same size leaves the view alone";
  EXPECT_EQ(editor.Count(StatusLine::kGems), "600 / 998");

  form.SetProps();
  dialog.Text1.set_text("20");
  dialog.Text4.set_text(std::string(280, 'x'));
  form.VlOK_Click();
  EXPECT_EQ(form.edit.Sirka, 20);
  EXPECT_EQ(form.edit.Vyska, 20);
  EXPECT_EQ(form.VScroll1.value(), 0);
  EXPECT_EQ(form.EditKom.width(), 20 * kCell);
  EXPECT_EQ(editor.Shown(19, 19), editor.Tile(kPaletteGem)) << "the canvas is painted anew";
  EXPECT_EQ(form.SpoctiDrh(), 21 * 21 - 21) << "the column that was lost counts, the row below was never written";
  dialog.Text2.set_text("15");
  form.VlOK_Click();
  EXPECT_EQ(form.edit.Vyska, 15) << "the height alone";
  EXPECT_EQ(form.edit.EdKomnata.Description.size(), 190u) << "more does not fit into a cave text";
}

TEST(CaveEditor, TestPlayLeavesTheCaveAloneAndComesBack) {
  Editor editor(Winnable());
  Program& program = editor.program;
  program.frmSada.Text3.set_text("Moje sada");
  const std::string before = editor.form.edit.Text();
  const auto playing = [&] { return user::HasInput(program.hra); };
  const auto back = [&] { return user::HasInput(editor.form); };

  user::TapKey(kF + 5);
  ASSERT_TRUE(user::WaitUntil(playing));
  EXPECT_FALSE(editor.form.visible());
  EXPECT_TRUE(program.hra.game.TestPlay);
  EXPECT_FALSE(program.hra.game.PlayingReplay);
  EXPECT_TRUE(program.hra.tmrHra.enabled());
  EXPECT_EQ(program.hra.SetName, "Moje sada");
  EXPECT_EQ(Utf8(program.hra.PlayerName), "autor komnaty");
  EXPECT_EQ(program.hra.game.chkRec, 0);
  program.hra.game.ElapsedTime = 70;
  program.hra.Command3_Click();
  EXPECT_LT(program.hra.game.ElapsedTime, 70) << "restarted";
  EXPECT_TRUE(program.hra.game.TestPlay);
  EXPECT_TRUE(program.hra.tmrHra.enabled());
  EXPECT_FALSE(editor.form.visible());
  user::TapKey(kKeyEscape);
  ASSERT_TRUE(user::WaitUntil(back));
  EXPECT_FALSE(program.hra.tmrHra.enabled());
  EXPECT_TRUE(editor.form.EditKom.has_focus());
  EXPECT_EQ(editor.form.edit.Text(), before);

  // A win leads over the score back to the editor, though no set is being played.
  ASSERT_EQ(program.hra.SetFile, "/");
  user::Click(editor.form.Label8);
  ASSERT_TRUE(user::WaitUntil(playing));
  std::string countdown = "?";
  user::WhenFront([&] {
    countdown = program.frmAnalyze.Label4.caption();
    user::TapKey(kKeyEnter);
  });
  user::PressKey(kKeyRight);
  ASSERT_TRUE(user::WaitUntil(back));
  EXPECT_EQ(countdown, "") << "the author looks as long as he likes";
  user::ReleaseKey(kKeyRight);
  EXPECT_FALSE(program.frmStart2.visible());
  EXPECT_FALSE(program.hra.visible());
  EXPECT_EQ(editor.form.edit.Text(), before);
}

TEST(CaveEditor, StartsATestPlayWithoutHeroAndExit) {
  Editor editor(Filled(19, 11, ';'));
  user::TapKey(kF + 5);
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.program.hra); }));
  for (int i = 0; i < 3; ++i) editor.program.hra.tmrHra_Timer();
  EXPECT_EQ(editor.program.hra.game.HeroCount, 0);
  user::TapKey(kKeyEscape);
  EXPECT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.form); }));
}

TEST(CaveEditor, AFaultOfTheRulesEndsTheTestPlayAlone) {
  CaveRecord cave = Winnable();
  cave.Cell(2, 2) = ';';
  cave.Cell(0, 2) = '1';
  Editor editor(cave);
  Hra& game = editor.program.hra.game;
  user::TapKey(kF + 5);
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.program.hra); }));
  std::string told;
  SetBoxResponder([&told](const MessageBox& box) {
    told = box.text;
    return BoxAnswer::kOk;
  });
  game.Tiles(-1, 2) = RedGem;  // as a teleport of a larger cave leaves it
  user::PressKey(kKeyLeft);
  EXPECT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.form); }));
  user::ReleaseKey(kKeyLeft);
  SetBoxResponder({});
  EXPECT_EQ(told, "The hero takes a gem outside the cave.");
  EXPECT_FALSE(editor.program.hra.tmrHra.enabled());
  EXPECT_EQ(editor.At(0, 2), '1');
}

TEST(CaveEditor, ClosingHandsTheCaveBack) {
  Editor editor(Winnable());
  editor.Draw(7, 7);
  const std::string text = editor.form.edit.Text();
  EXPECT_NE(editor.program.frmSada.KomText[1], text);
  editor.form.Close();
  EXPECT_EQ(editor.program.frmSada.KomText[1], text);
  EXPECT_FALSE(editor.form.visible());
  EXPECT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.program.frmSada); }));
  editor.program.frmSada.mnuEdit_Click();
  user::WaitUntil([&] { return user::HasInput(editor.form); });
  EXPECT_EQ(editor.At(7, 7), 'D');
  editor.form.EditKom.on_lost_focus = [&] { editor.form.Close(); };  // as by a key that still waits
  user::TapKey(kF + 5);
  EXPECT_FALSE(editor.program.hra.visible()) << "no test play of a cave that is closed";
  editor.program.frmSada.mnuEdit_Click();
  user::WaitUntil([&] { return user::HasInput(editor.form); });
  editor.form.EditKom.on_lost_focus = {};
  user::TapKey('W', kCtrl);
  EXPECT_FALSE(editor.form.visible());
}

}  // namespace
