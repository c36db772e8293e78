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
#include "kit/desk.h"
#include "kit/key_names.h"
#include "kit/scenario.h"
#include "platform/file_dialog.h"
#include "platform/keys.h"

using namespace platform;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace {

std::string CaveOf(const std::string& name) { return BuildCaveText(WonByOneStep(name)); }

/// The set editor as it is opened from the start screen. Its file dialogs answer with `file`.
struct Editor : Desk {
  Editor() {
    AddPlayer("Karel");
    Start();
    OpenEditor();
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
    form().SetChanged(false);
    OpenFile();
    file.clear();
  }
  void OpenFile() {
    user::TapKey('O', kCtrl);
    user::WaitUntil([this] { return user::HasInput(form()); });
  }
  /// The rows that are shown: "*" for the selected one, number, name, mark.
  std::vector<std::string> Rows() {
    std::vector<std::string> rows;
    for (std::size_t i = 1; i <= 99; ++i) {
      if (!form().lblCave[i]->visible()) continue;
      rows.push_back(Utf8((i == form().AktK ? "*" : "") + form().lblNum[i]->caption() + form().lblCave[i]->caption() +
                          form().lblPoc[i]->caption()));
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

// ---------------------------------------------------------------------------------------------------------- The rows

/// Steps: set CAVE..., many N (caves of one name), unchanged; name, author, mail, about TEXT; row, flag, double N; keys
/// KEY...; add 1 or 2 (the menu's item); back (from the cave editor); box ANSWER..., real (the box is answered by the
/// next keys); count (the state tells numbers alone).
class SetWorld : public scenario::World {
 public:
  void Do(const std::vector<std::string>& words) override {
    FrmSada& form = editor_.form();
    const std::string& verb = words[0];
    const auto row = [&] { return std::stoul(words.at(1)); };
    count_ = verb == "count";
    if (verb == "set") {
      editor_.Open({words.begin() + 1, words.end()});
    } else if (verb == "many") {
      editor_.Open(std::vector<std::string>(row(), "A"));
    } else if (verb == "unchanged") {
      form.SetChanged(false);
    } else if (verb == "name" || verb == "author" || verb == "mail" || verb == "about") {
      TextBox& field = verb == "name"     ? form.Text3
                       : verb == "author" ? form.Text1
                       : verb == "mail"   ? form.Text2
                                          : form.Text4;
      field.SetFocus();
      user::Type(words.at(1));
    } else if (verb == "row") {
      user::Click(*form.lblCave.at(row()));
      form.List1.SetFocus();
    } else if (verb == "flag") {
      user::Click(*form.lblPoc.at(row()));
    } else if (verb == "double") {
      user::DoubleClick(*form.lblCave.at(row()), 40, 10);
    } else if (verb == "add") {
      form.mnuAdd.at(row() - 1).Click();
    } else if (verb == "back") {
      editor_.program->frmMain.Close();
      user::WaitUntil([&] { return user::HasInput(form); });
    } else if (verb == "box") {
      boxes_.reset();
      boxes_ = std::make_unique<Boxes>(std::vector<BoxAnswer>{words.at(1) == "Yes" ? BoxAnswer::kYes : BoxAnswer::kNo});
    } else if (verb == "real") {
      boxes_.reset();
    } else if (verb == "keys") {
      for (std::size_t i = 1; i < words.size(); ++i) Keys(words, i);
    } else if (!count_ && verb != "state") {
      throw std::runtime_error("there is no step " + verb);
    }
  }

  std::string State() override {
    const FrmSada& form = editor_.form();
    std::string state = editor_.Changed() == 0 ? "same" : "changed";
    if (count_) {
      state += " " + std::to_string(form.PocetK) + " caves, " + std::to_string(form.AktK) + " selected";
    } else {
      for (const std::string& row : editor_.Rows()) state += " " + row;
      if (boxes_) {
        for (const std::string& text : boxes_->texts) state += " [" + text + "]";
      }
    }
    if (boxes_) boxes_->texts.clear();
    return state;
  }

 private:
  /// A key, and when it opens a real box the next one inside.
  void Keys(const std::vector<std::string>& words, std::size_t& i) {
    if (!boxes_ && i + 1 < words.size()) {
      const std::string answer = words[i + 1];
      user::WhenFront([answer] { Strike(answer); });
      Strike(words[i++]);
    } else {
      Strike(words[i]);
    }
  }

  Editor editor_;
  std::unique_ptr<Boxes> boxes_ = std::make_unique<Boxes>();
  bool count_ = false;
};

TEST(SetEditor, Scenarios) {
  scenario::Run("set_editor", [] { return std::make_unique<SetWorld>(); });
}

// ------------------------------------------------------------------------------------------------------- The new set

TEST(SetEditor, BeginsANewSetOfOneSmallCave) {
  Editor editor;
  FrmSada& form = editor.form();
  EXPECT_FALSE(editor.program->frmStart2.visible());
  EXPECT_EQ(Utf8(form.caption()), "Zorbíkův editor sady komnat");
  EXPECT_EQ(form.Text3.text() + form.Text1.text() + form.Text2.text(), LangStr[text::kNewSetName] + "@");
  EXPECT_EQ(form.Text4.text() + form.Gratulace, LangStr[text::kNewDescription] + LangStr[text::kNewCongratulation]);
  EXPECT_EQ(form.KomText[1], CaveTemplate(NewCave::kSmall));
  EXPECT_FALSE(form.VScroll1.enabled());
  form.Soubor = "x";
  form.txtBody.SetFocus();
  Strike("Ctrl+N");
  EXPECT_EQ(form.Soubor, "");
  EXPECT_EQ(editor.Changed(), 0) << "though the points were left";
}

TEST(SetEditor, WritesPointsWithFiveDigitsAndCountsAVisitAsAChange) {
  Editor editor;
  FrmSada& form = editor.form();
  const auto leave_with = [&](const std::string& text) {
    form.txtBody.SetFocus();
    EXPECT_EQ(form.txtBody.selected_text(), form.txtBody.text().substr(0, 5));
    form.txtBody.set_text(text);
    form.SetChanged(false);
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

TEST(SetEditor, TheMenuOffersToPasteWhatWasCopiedAndAFieldPastesText) {
  Editor editor;
  editor.Open({"A", "B"});
  FrmSada& form = editor.form();
  const auto paste_is_there = [&] {
    user::WhenMenuIsOpen([] { user::TapKey(kKeyEscape); });
    Strike("Alt+K");
    form.Show();  // without a desktop nobody has the input behind a menu
    user::WaitUntil([&] { return user::HasInput(form); });
    return form.mnuPaste.enabled();
  };
  EXPECT_FALSE(paste_is_there());
  Strike("Ctrl+Insert");
  EXPECT_TRUE(paste_is_there());
  user::SetClipboard("text");
  form.Text1.SetFocus();
  Strike("Shift+Insert");
  EXPECT_EQ(form.Text1.text() + std::to_string(form.PocetK), "textEva3") << "the cave is pasted as well";
}

TEST(SetEditor, ShowsTheSelectedRowAndWhatIsCutShort) {
  Editor editor;
  editor.Open(std::vector<std::string>(99, "A"));
  FrmSada& form = editor.form();
  for (const char* key : {"PageDown", "End", "Up", "PageUp", "Home"}) {
    Strike(key);
    const int top = form.Picture2.top() + form.lblCave[form.AktK]->top();
    EXPECT_TRUE(top >= 0 && top + form.lblCave[1]->height() <= form.Picture1.height()) << key;
    EXPECT_EQ(editor.Marked(), form.AktK);
  }
  EXPECT_TRUE(form.VScroll1.enabled() && form.VScroll1.max() == 82);
  user::TurnWheel(*form.lblCave[3], -2);
  EXPECT_EQ(form.VScroll1.value(), 2);
  EXPECT_EQ(form.Picture2.top(), -form.lblCave[3]->top());

  const std::string long_name(kLargestSmallNumber, 'm');
  CaveRecord cave = WonByOneStep(long_name);
  cave.Description.clear();
  form.SetKKKtoK(BuildCaveText(cave));
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
  editor.program->frmMain.Close();
  ASSERT_TRUE(user::WaitUntil([&] { return user::HasInput(form); }));
  EXPECT_EQ(form.KomText[2], CaveOf("B"));
  form.SetKKKtoK(CaveOf("D"));
  EXPECT_THAT(editor.Rows(), ElementsAre("01AP", "*02D", "03C"));
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
  EXPECT_EQ(write([] { user::TapKey(kKeyEscape); }), LangStr[text::kNewCongratulation]);
  EXPECT_EQ(write([&] { dialog.Close(); }), LangStr[text::kNewCongratulation]);
  EXPECT_EQ(write([&] {
              dialog.Text1.set_text("");
              user::Click(dialog.OKButton);
            }),
            LangStr[text::kNewCongratulation]);
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
  EXPECT_THAT(editor.Rows(), ElementsAre("*01AP", "02B", "03CP"));
  editor.file = CestaKomnaty + "kopie.zb";
  form.mnuSaveAs.Click();
  user::WaitUntil([&] { return user::HasInput(form); });
  EXPECT_EQ(form.Soubor, editor.file);
  EXPECT_EQ(ReadSetLines(editor.file).lines, ReadSetLines(source).lines);
  EXPECT_NE(ReadFile(editor.file), ReadFile(source)) << "coded anew";
  ASSERT_EQ(editor.asked.size(), 2u);
  EXPECT_EQ(editor.asked[0].title + std::to_string(editor.asked[0].flags), LangStr[text::kOpenSetTitle] + "4100");
  EXPECT_EQ(editor.asked[1].title + std::to_string(editor.asked[1].flags), LangStr[text::kSaveSetTitle] + "524294");
  EXPECT_EQ(editor.asked[1].default_extension + editor.asked[1].folder, "*.zb" + CestaKomnaty);
  EXPECT_EQ(editor.asked[1].filter, FileFilter(LangStr[text::kSetFiles] + " (*.zb)", "*.zb"));

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
      Utf8(LangStr[text::kUnsavedTitle] + ": ") + "Sada '" + "X" + "' má neuložené změny.\r\nChceš ji teď uložit?";
  const auto change = [&] {
    form.Text3.set_text("X");
    form.SetChanged(true);
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
    form.SetChanged(true);
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
  EXPECT_EQ(editor.asked[0].title + editor.asked[0].name, LangStr[text::kSaveSetTitle] + "Sada.zb");
  EXPECT_EQ(editor.Changed(), 0) << "where it can be written";
  form.SetChanged(true);
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
  EXPECT_EQ(shown, LangStr[text::kLaterFormatTitle] + LangStr[text::kLaterFormat] + LangStr[text::kLaterFormatText] +
                       LangStr[text::kLaterFormatText] + LangStr[text::kLaterFormatText] +
                       LangStr[text::kLaterFormatText]);
  EXPECT_EQ(form.Text3.text(), LangStr[text::kNewSetName]);
  EXPECT_THAT(editor.Rows(), ElementsAre("*01MalouP"));
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
  EXPECT_THAT(editor.Rows(), ElementsAre("*01XP", "02B", "03C", "04ZP"));
  EXPECT_EQ(form.Gratulace, "Vyhra");
}

}  // namespace
