// The set editor on the offscreen platform, driven by keys and mouse as an author does.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "base/files.h"
#include "base/folders.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "cave/cave_text.h"
#include "cave/scramble.h"
#include "cave/set_file.h"
#include "desk.h"
#include "platform/file_dialog.h"
#include "platform/keys.h"

using namespace platform;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

constexpr int kF3 = kF1 + 2;
constexpr int kF4 = kF1 + 3;
constexpr int kF5 = kF1 + 4;
constexpr int kF6 = kF1 + 5;
constexpr int kF8 = kF1 + 7;

std::string CaveOf(const std::string& name) {
  CaveRecord cave = ParseCaveText(CaveTemplate(NewCave::kSmall));
  cave.Name = name;
  return BuildCaveText(cave);
}

EditedSet SetOf(const std::vector<std::string>& caves) {
  EditedSet set;
  set.Name = "Sada";
  set.Author = "Eva";
  set.Mail = "eva@jeskyne.cz";
  set.Description = "Popis\r\nsady";
  for (const std::string& cave : caves) set.KomText[++set.PocetK] = CaveOf(cave);
  set.Gratulace = "Vyhra\r\n$P";
  return set;
}

/// The set editor as it is opened from the start screen. Its file dialogs answer with `file`.
struct Editor : EditorDesk {
  explicit Editor(const std::string& language = "cestina.zbl") : EditorDesk(language) {
    SetFileDialogResponder([this](const FileDialog& dialog) {
      asked.push_back(dialog);
      return file;
    });
  }
  ~Editor() { SetFileDialogResponder({}); }

  FrmSada& form() { return program->frmSada; }
  /// Opens a set of these caves from a file.
  void Open(const std::vector<std::string>& caves) {
    file = Path("sada.zb");
    EditedSet set = SetOf(caves);
    SaveColl(file, set);
    form().Chg.set_value(0);
    OpenFile();
    file.clear();
  }
  void OpenFile() {
    user::TapKey('O', kCtrl);
    user::WaitUntil([this] { return user::HasInput(form()); });
  }
  /// The rows that are shown: number, name, mark.
  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (std::size_t i = 1; i <= 99; ++i) {
      if (form().lblCave[i]->visible())
        rows.push_back(form().lblNum[i]->caption() + form().lblCave[i]->caption() + form().lblPoc[i]->caption());
    }
    return rows;
  }
  int Changed() { return form().Chg.value(); }
  /// The number of the row with the ground of the selected one; 0 for none or several.
  int Marked() {
    int marked = 0;
    for (int i = 1; i <= 99; ++i) {
      if (form().lblCave[static_cast<std::size_t>(i)]->back_colour()) marked = marked == 0 ? i : -1;
    }
    return marked > 0 ? marked : 0;
  }

  std::string file;  // UTF-8; empty: the user cancels
  std::vector<FileDialog> asked;
};

// ------------------------------------------------------------------------------------------------------- The new set

TEST(SetEditor, BeginsANewSetOfOneSmallCave) {
  Editor editor;
  FrmSada& form = editor.form();
  EXPECT_FALSE(editor.program->frmStart2.visible());
  EXPECT_EQ(Utf8(form.caption()), "Zorbíkův editor sady komnat");
  EXPECT_EQ(form.Text3.text() + form.Text1.text() + form.Text2.text(), LangStr[52] + "@");
  EXPECT_EQ(form.Text4.text(), LangStr[53]);
  EXPECT_EQ(form.Gratulace, LangStr[54]);
  EXPECT_THAT(editor.Rows(), ElementsAre("01" + LangStr[26] + "P"));
  EXPECT_EQ(form.KomText[1], CaveTemplate(NewCave::kSmall));
  EXPECT_FALSE(form.lblPoc[1]->enabled()) << "the first cave is always a start point";
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_FALSE(form.VScroll1.enabled());

  user::TapKey('N', kCtrl);
  form.Text3.SetFocus();
  user::Type("A");
  EXPECT_EQ(editor.Changed(), 1);
  form.Soubor = "x";
  form.txtBody.SetFocus();
  user::TapKey('N', kCtrl);
  EXPECT_EQ(form.Text3.text() + form.Soubor, LangStr[52]) << "gone without a question";
  EXPECT_EQ(editor.Changed(), 0);
  for (TextBox* box : {&form.Text1, &form.Text2, &form.Text3, &form.Text4}) {
    form.Chg.set_value(0);
    box->SetFocus();
    user::Type("b");
    EXPECT_EQ(editor.Changed(), 1);
  }
}

TEST(SetEditor, WritesPointsWithFiveDigitsAndCountsAVisitAsAChange) {
  Editor editor;
  FrmSada& form = editor.form();
  const auto leave_with = [&](const std::string& text) {
    form.txtBody.SetFocus();
    EXPECT_EQ(form.txtBody.selected_text(), form.txtBody.text().substr(0, 5));
    form.txtBody.set_text(text);
    form.Chg.set_value(0);
    form.Text4.SetFocus();
    EXPECT_EQ(editor.Changed(), 1);
    return form.txtBody.text();
  };
  EXPECT_EQ(leave_with("-7"), "00000");
  EXPECT_EQ(leave_with("12.6"), "00013");
  EXPECT_EQ(form.PocBody, 12.6);
  EXPECT_EQ(leave_with("1234567"), "1234567");
  EXPECT_EQ(leave_with("inf"), "00000");
}

// ---------------------------------------------------------------------------------------------------------- The caves

TEST(SetEditor, AddsInFrontOfTheSelectedCaveWhichLeavesItsFlagOnBoth) {
  Editor editor;
  editor.Open({"A", "B", "C"});
  FrmSada& form = editor.form();
  EXPECT_EQ(editor.Changed(), 0);
  user::Click(*form.lblPoc[2]);
  EXPECT_EQ(editor.Changed(), 0) << "a flag alone is no change";
  user::Click(*form.lblCave[2]);
  user::TapKey(kF3);
  EXPECT_EQ(editor.Changed(), 1);
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02" + LangStr[26] + "P", "03BP", "04C"));
  EXPECT_EQ(form.AktK, 2);
  form.mnuAdd[1].Click();
  EXPECT_EQ(form.KomText[2], CaveTemplate(NewCave::kBig));
  user::Click(*form.lblPoc[2]);
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02" + LangStr[27], "03" + LangStr[26] + "P", "04BP", "05C"));
  user::Click(*form.lblPoc[1]);
  EXPECT_TRUE(form.Poc[1]);
}

TEST(SetEditor, MovesAndDeletes) {
  Editor editor;
  editor.Open({"A", "B", "C"});
  FrmSada& form = editor.form();
  user::TapKey(kF5);
  EXPECT_EQ(editor.Changed(), 0) << "the first one cannot move up";
  user::TapKey(kKeyDown);
  user::TapKey(kF5);
  EXPECT_THAT(editor.Rows(), ElementsAre("01BP", "02AP", "03C"))
      << "first is a start point; the old first one keeps its flag";
  EXPECT_EQ(form.AktK, 1);
  EXPECT_EQ(editor.Changed(), 1);
  user::TapKey(kF6);
  user::TapKey(kF6);
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02C", "03BP"));
  EXPECT_EQ(form.AktK, 3);
  EXPECT_EQ(editor.Marked(), 3);
  form.Chg.set_value(0);
  user::TapKey(kF6);
  EXPECT_EQ(editor.Changed(), 1) << "though it is the last one";

  form.Chg.set_value(0);
  Boxes boxes({BoxAnswer::kNo, BoxAnswer::kYes, BoxAnswer::kYes});
  user::TapKey(kF8);
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_EQ(form.PocetK, 3);
  user::TapKey(kF8);
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02C"));
  EXPECT_EQ(form.AktK, 2) << "the last one";
  user::TapKey(kKeyUp);
  user::TapKey(kKeyDelete);
  EXPECT_THAT(editor.Rows(), ElementsAre("01CP"));
  user::TapKey(kF8);
  EXPECT_EQ(form.PocetK, 1);
  EXPECT_THAT(boxes.texts, ElementsAre(Utf8(LangStr[49] + ": " + LangStr[50] + " 'B' " + LangStr[51]), HasSubstr("'B'"),
                                       HasSubstr("'A'")));
}

TEST(SetEditor, PastesWhatWasCopiedAlsoIntoAnotherSet) {
  Editor editor;
  editor.Open({"A", "B"});
  FrmSada& form = editor.form();
  const auto paste_is_there = [&] {
    user::WhenMenuIsOpen([] { user::TapKey(kKeyEscape); });
    user::TapKey('K', kAlt);
    form.Show();  // without a desktop nobody has the input behind a menu
    user::WaitUntil([&] { return user::HasInput(form); });
    return form.mnuPaste.enabled();
  };
  EXPECT_FALSE(paste_is_there());
  user::TapKey(kKeyInsert, kShift);
  EXPECT_EQ(form.PocetK + editor.Changed(), 2) << "nothing to paste yet";
  user::TapKey(kKeyDown);
  user::TapKey(kKeyInsert, kCtrl);
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_TRUE(paste_is_there());
  user::TapKey('N', kCtrl);
  user::TapKey(kKeyInsert, kShift);
  EXPECT_THAT(editor.Rows(), ElementsAre("01BP", "02" + LangStr[26] + "P"));
  EXPECT_EQ(editor.Changed(), 1);
  user::SetClipboard("text");
  form.Text1.SetFocus();
  user::TapKey(kKeyInsert, kShift);
  EXPECT_EQ(form.Text1.text() + std::to_string(form.PocetK), "text3") << "a field pastes as well";
}

TEST(SetEditor, StopsAtNinetyOneCaves) {
  Editor editor;
  editor.Open(std::vector<std::string>(90, "A"));
  FrmSada& form = editor.form();
  EXPECT_TRUE(form.VScroll1.enabled());
  EXPECT_EQ(form.VScroll1.max(), 73);
  user::TapKey(kF3);
  EXPECT_EQ(form.PocetK, 91);
  form.mnuCopy_Click();
  const auto does_nothing = [&](MenuItem& item) {
    form.Chg.set_value(0);
    item.Click();
    return form.PocetK == 91 && editor.Changed() == 1;
  };
  EXPECT_TRUE(does_nothing(form.mnuAdd[0]) && does_nothing(form.mnuPaste));

  editor.Open(std::vector<std::string>(99, "B"));
  EXPECT_EQ(form.PocetK, 99) << "a file may hold more";
  Boxes boxes({BoxAnswer::kYes});
  user::TapKey(kKeyEnd);
  EXPECT_EQ(form.VScroll1.value(), 82);
  EXPECT_EQ(form.Picture2.top(), -form.lblCave[83]->top());
  user::TapKey(kF8);
  EXPECT_EQ(form.PocetK, 98);
  EXPECT_EQ(form.AktK, 98);
}

TEST(SetEditor, ListTakesKeysWheelAndDoubleClicks) {
  Editor editor;
  editor.Open(std::vector<std::string>(40, "A"));
  FrmSada& form = editor.form();
  const auto row_after = [&](int key) {
    user::TapKey(key);
    const int top = form.Picture2.top() + form.lblCave[form.AktK]->top();
    EXPECT_TRUE(top >= 0 && top + form.lblCave[1]->height() <= form.Picture1.height()) << "the row is seen";
    return int{form.AktK};
  };
  EXPECT_EQ(row_after(kKeyUp), 1);
  EXPECT_EQ(row_after(kKeyPageDown), 18);
  EXPECT_EQ(row_after(kKeyEnd), 40);
  EXPECT_EQ(row_after(kKeyDown), 40);
  EXPECT_EQ(row_after(kKeyPageUp), 23);
  user::TapKey(kKeySpace);
  EXPECT_EQ(form.lblPoc[23]->caption(), std::string(1, LanguageLetter));
  EXPECT_EQ(row_after(kKeyHome), 1);
  user::TapKey(kKeySpace);
  EXPECT_TRUE(form.Poc[1]) << "not the first one's";
  user::TurnWheel(*form.lblCave[3], -2);
  EXPECT_EQ(form.VScroll1.value(), 2);

  const std::string long_name(kLargestSmallNumber, 'm');
  form.SetKKKtoK(CaveOf(long_name));
  EXPECT_EQ(form.lblCave[1]->tool_tip() + form.lblCave[2]->tool_tip(), long_name) << "of the one that is cut short";
}

// ---------------------------------------------------------------------------------------------------- Cave editor,
// texts

TEST(SetEditor, HandsACaveToTheCaveEditorAndTakesItBack) {
  Editor editor;
  editor.Open({"A", "B", "C"});
  FrmSada& form = editor.form();
  user::DoubleClick(*form.lblCave[2], 40, 10);
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.program->frmMain); }));
  EXPECT_FALSE(form.visible() || editor.program->frmLoading.visible());
  EXPECT_EQ(form.AktK, 2);
  EXPECT_EQ(editor.Changed(), 1) << "also when the cave comes back untouched";
  editor.program->frmMain.Close();
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(form); }));
  EXPECT_EQ(form.KomText[2], CaveOf("B"));
  EXPECT_EQ(form.AktK, 2);
  form.SetKKKtoK(CaveOf("D"));
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02D", "03C"));
  EXPECT_EQ(editor.Marked(), 2);
  user::TapKey(kF4);
  EXPECT_TRUE(editor.program->frmMain.visible());
}

TEST(SetEditor, WritesTheCongratulationUnlessItIsGivenUpOrEmptied) {
  Editor editor;
  FrmSada& form = editor.form();
  FrmDialog2& dialog = editor.program->frmDialog2;
  dialog.Vysledek = "from another set";
  const auto write = [&](const std::function<void()>& action) {
    InTurn({[&] {
      EXPECT_FALSE(dialog.Text1.locked());
      EXPECT_EQ(dialog.Text1.text(), form.Gratulace);
      dialog.Text1.set_text("Sláva");
      action();
    }});
    user::TapKey('G', kCtrl);
    return form.Gratulace;
  };
  EXPECT_EQ(write([] { user::TapKey(kKeyEscape); }), LangStr[54]);
  EXPECT_EQ(write([&] { dialog.Close(); }), LangStr[54]);
  EXPECT_EQ(write([&] {
              dialog.Text1.set_text("");
              user::Click(dialog.OKButton);
            }),
            LangStr[54]);
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_EQ(write([&] { user::Click(dialog.OKButton); }), "Sláva");
  EXPECT_EQ(editor.Changed(), 1);
}

// ---------------------------------------------------------------------------------------------------------- The files

TEST(SetEditor, SavesWhatItReadsByteByByte) {
  Editor editor;
  EditedSet set = SetOf({"A", "B", "C"});
  set.Poc[3] = true;
  const std::string source = editor.Path("zdroj.zb");
  SaveColl(source, set);
  FrmSada& form = editor.form();
  editor.file = source;
  editor.OpenFile();
  EXPECT_EQ(form.Soubor, source);
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_EQ(form.Text4.text(), "Popis\r\nsady");
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "02B", "03CP"));
  editor.file = CestaKomnaty + "kopie.zb";
  form.mnuSaveAs.Click();
  user::WaitUntil([&] { return user::HasInput(form); });
  EXPECT_EQ(form.Soubor, editor.file);
  EXPECT_EQ(ReadSetLines(editor.file).lines, ReadSetLines(source).lines);
  EXPECT_NE(ReadFile(editor.file), ReadFile(source)) << "coded anew";
  ASSERT_EQ(editor.asked.size(), 2u);
  EXPECT_EQ(editor.asked[0].title + std::to_string(editor.asked[0].flags), LangStr[55] + "4100");
  EXPECT_EQ(editor.asked[1].title + std::to_string(editor.asked[1].flags), LangStr[57] + "524294");
  EXPECT_EQ(editor.asked[1].default_extension + editor.asked[1].folder, "*.zb" + CestaKomnaty);
  EXPECT_EQ(editor.asked[1].filter, FileFilter(LangStr[56] + " (*.zb)", "*.zb"));

  form.Text1.set_text("Karel");
  user::TapKey('S', kCtrl);
  user::WaitUntil([&] { return user::HasInput(form); });
  EXPECT_EQ(editor.asked.size(), 2u) << "the file is known";
  EXPECT_EQ(editor.Changed(), 0);
  EXPECT_EQ(ReadSetLines(editor.file).lines[1], WithLength("Karel", "") + set.Description);
  form.mnuClose.Click();
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(editor.program->frmStart2); }));
  EXPECT_FALSE(form.visible());
  EXPECT_EQ(editor.program->frmStart2.List1.item(0), "Sada (kopie.zb)");
  editor.program->frmStart2.Command3_Click();
  EXPECT_EQ(editor.program->frmPoSt.PocetK, 3);
}

TEST(SetEditor, AsksBeforeChangesAreLost) {
  Editor editor;
  editor.Open({"A", "B"});
  FrmSada& form = editor.form();
  const std::string own = editor.Path("sada.zb");
  const std::string question =
      Utf8(LangStr[46] + ": ") + "Sada '" + "X" + "' má neuložené změny.\r\nChceš ji teď uložit?";
  const auto change = [&] {
    form.Text3.set_text("X");
    form.Chg.set_value(1);
  };
  const auto name_in_file = [&] { return ReadSetName(own); };

  // Closing.
  change();
  {
    Boxes boxes({BoxAnswer::kCancel});
    form.Close();
    EXPECT_THAT(boxes.texts, ElementsAre(question));
  }
  EXPECT_TRUE(form.visible() && editor.Changed() == 1);
  {
    Boxes boxes({BoxAnswer::kYes});
    form.Soubor.clear();
    form.Close();  // the dialog for the name of the file is cancelled
    EXPECT_TRUE(form.visible() && editor.Changed() == 1);
    form.Soubor = own;
  }
  {
    Boxes boxes({BoxAnswer::kNo});
    form.Close();
    EXPECT_TRUE(!form.visible() && editor.program->frmStart2.visible());
    EXPECT_EQ(name_in_file(), "Sada");
  }
  editor.OpenEditor();
  editor.Open({"A", "B"});
  change();
  {
    Boxes boxes({BoxAnswer::kYes});
    form.Close();
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(name_in_file(), "X");
  }
  editor.OpenEditor();
  {
    Boxes boxes;
    form.Close();
    EXPECT_THAT(boxes.texts, IsEmpty()) << "nothing has changed";
  }

  // Opening.
  editor.OpenEditor();
  editor.Open({"A", "B"});
  EditedSet other = SetOf({"C"});
  editor.file = editor.Path("jina.zb");
  SaveColl(editor.file, other);
  change();
  {
    Boxes boxes({BoxAnswer::kCancel});
    editor.OpenFile();
    EXPECT_EQ(form.Soubor, own);
    EXPECT_THAT(boxes.texts, ElementsAre(question));
  }
  {
    Boxes boxes({BoxAnswer::kYes});
    editor.OpenFile();
    EXPECT_EQ(form.Soubor + name_in_file(), editor.file + "X");
  }
  change();
  {
    Boxes boxes({BoxAnswer::kNo});
    editor.OpenFile();
    EXPECT_EQ(form.Text3.text() + ReadSetName(editor.file), "SadaSada");
    EXPECT_EQ(editor.Changed(), 0);
  }
}

TEST(SetEditor, LosesNothingWhenAFileIsDamagedOrCannotBeWritten) {
  Editor editor;
  editor.Open({"A", "B"});
  FrmSada& form = editor.form();
  const std::string own = form.Soubor;
  const std::vector<std::string> lines = LinesOf(form);
  const auto refused = [&](const std::string& fault) {
    form.Chg.set_value(1);
    Boxes boxes({BoxAnswer::kNo});
    editor.OpenFile();
    EXPECT_EQ(boxes.texts.size(), 2u);
    EXPECT_THAT(boxes.texts.back(), testing::AllOf(HasSubstr(editor.file), HasSubstr(fault)));
    EXPECT_EQ(LinesOf(form), lines);
    EXPECT_EQ(form.Soubor + std::to_string(editor.Changed()), own + "1");
    EXPECT_FALSE(editor.program->frmLoading.visible());
  };
  editor.file = editor.Path("neni.zb");
  refused("cannot be opened");
  editor.file = editor.Make("kratka.zb", Scramble("BX") + "\r\n");
  refused("ends before its line 2");
  editor.file = editor.Path("prazdna.zb");
  WriteSetLines(editor.file, {"BX", "BX", "0", "Vyhra"});
  refused("no caves");
  WriteSetLines(editor.file, {"BX", "BX", "0", form.KomText[1] + "---01", "!---02", "Vyhra"});
  refused("Cave 2: ");

  Boxes boxes;
  form.Soubor = editor.Path("neni/sada.zb");
  editor.asked.clear();
  user::TapKey('S', kCtrl);
  EXPECT_THAT(boxes.texts.front(), HasSubstr("neni/sada.zb"));
  ASSERT_EQ(editor.asked.size(), 1u) << "it may go elsewhere";
  EXPECT_EQ(editor.asked[0].title + editor.asked[0].name, LangStr[57] + "Sada");
  EXPECT_EQ(editor.Changed(), 0) << "where it can be written";
  form.Chg.set_value(1);
  form.Soubor = own;
  editor.file = editor.Path("neni/sada.zb");
  form.mnuSaveAs.Click();
  EXPECT_EQ(form.Soubor, own) << "still the file that there is";
  EXPECT_EQ(editor.Changed(), 1);
}

TEST(SetEditor, TellsALaterFormatAndBeginsANewSet) {
  Editor editor;
  editor.Open({"A", "B"});
  FrmSada& form = editor.form();
  editor.file = editor.Path("nova.zb");
  WriteSetLines(editor.file, {"BXAB", "BX", "eQ", form.KomText[1] + "---01", "Vyhra"});
  std::string shown;
  SetBoxResponder([&](const MessageBox& box) {
    shown = box.title + box.text + form.Text1.text() + form.Text2.text() + form.Text3.text() + form.Text4.text();
    EXPECT_FALSE(editor.program->frmLoading.visible());
    return BoxAnswer::kOk;
  });
  editor.OpenFile();
  SetBoxResponder({});
  EXPECT_EQ(shown, LangStr[44] + LangStr[43] + LangStr[45] + LangStr[45] + LangStr[45] + LangStr[45]);
  EXPECT_EQ(form.Text3.text(), LangStr[52]);
  EXPECT_THAT(editor.Rows(), ElementsAre("01" + LangStr[26] + "P"));
  EXPECT_EQ(form.Soubor, editor.file) << "the path stays with the new set";
  EXPECT_EQ(editor.Changed(), 0);
}

TEST(SetEditor, LeavesCavesWhoseNumbersAFileLeavesOut) {
  Editor editor;
  editor.Open({"A", "B", "C"});
  FrmSada& form = editor.form();
  editor.file = editor.Path("mezery.zb");
  WriteSetLines(editor.file, {"BXAD", "BX", "0", CaveOf("Z") + "---04", CaveOf("X") + "---01", "Vyhra"});
  editor.OpenFile();
  EXPECT_THAT(editor.Rows(), ElementsAre("01XP", "02B", "03C", "04ZP"));
  EXPECT_EQ(form.Gratulace, "Vyhra");
}

}  // namespace
