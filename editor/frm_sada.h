#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "base/fault.h"
#include "editor/cave_preview.h"
#include "editor/menu_bar.h"
#include "editor/set_edit.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/menu.h"
#include "platform/text_box.h"
#include "shell/forms.h"

/// The set editor: title data of one set, the order of its caves, which of them are start points, the congratulation.
/// The set under edit is part of the form; its texts follow what is typed.
class FrmSada : public platform::Form, public SetEdit {
 public:
  /// programFolder: where the pictures lie.
  FrmSada(const std::string& programFolder, const Forms& forms);

  /// Goes back to the start screen; the question about unsaved changes has been answered.
  std::function<void()> leave;

  /// Makes the rows.
  void FrmLoad();
  /// Texts of the language in force.
  void SetLW();

  // --- The menu of sets --------------------

  /// A new set of one small cave. What was there before is gone without a question.
  void mnuNew_Click();
  void mnuOpen_Click();
  void mnuSave_Click();
  void mnuSaveAs_Click();
  void mnuGratulace_Click();
  void mnuClose_Click();
  bool Form_QueryUnload();

  /// Fills the form from a file. A set of a later format is told and a new set begun. Throws Fault, and leaves the set
  /// under edit as it is, when the file cannot be read or is damaged.
  void OpenColl(const std::string& path);
  /// Throws Fault, and leaves the old file, when the set cannot be written.
  void SaveColl(const std::string& path);

  // --- The menu of caves --------------------

  void mnuCaves_Click();
  void mnuCopy_Click();
  void mnuPaste_Click();
  void mnuAdd_Click(int Index);  // 0 a small cave, 1 a big one
  /// Opens the selected cave in the cave editor. That counts as a change.
  void mnuEdit_Click();
  void mnuUp_Click();
  void mnuDown_Click();
  void mnuDelete_Click();
  /// Puts a cave in front of the selected one; nothing happens from kMostCavesAdded caves on.
  void AddCave(const std::string& caveText);

  // --- The list --------------------

  /// Shows all caves and selects the one of the index, from 0 on, or the last one.
  void GetNames(int index);
  /// Takes the selected cave back from the cave editor.
  void SetKKKtoK(const std::string& caveText);
  /// Selects cave i; any other number than that of a cave does nothing.
  void lblCave_Click(int i);
  /// Makes cave i a start point, or no longer. That does not count as a change.
  void lblPoc_Click(int i);
  void List1_DblClick() { mnuEdit_Click(); }
  void VScroll1_Change();

  // --- Texts and keys --------------------

  void Text1_Change();
  void Text2_Change();
  void Text3_Change();
  void Text4_Change();
  void txtBody_GotFocus();
  void txtBody_LostFocus();
  void Form_KeyDown(platform::KeyEvent& event);

  /// There are unsaved changes, or none any more.
  void SetChanged(bool changed);

  std::string Soubor;  // path of the file, UTF-8; empty for a new set
  double PocBody = 0;  // value of txtBody; nobody asks for it

  // --- Controls --------------------

  platform::Frame fraBar{this};
  platform::Label Label7{this};  // menu of sets
  platform::Label Label3{this};  // menu of caves
  platform::Label Label8{this};  // help menu
  platform::Label Label2{this};
  platform::Frame List1{this};       // takes the keys of the list
  platform::Frame Picture1{&List1};  // shows seventeen rows of Picture2
  platform::Frame Picture2{&Picture1};
  platform::Shape shpAktK{&Picture2};  // ground of the selected row's number
  platform::ScrollBar VScroll1{&List1, platform::Orientation::kVertical};
  platform::Label Label4{this};
  platform::TextBox Text3{this};  // name of the set
  platform::Label Label1{this};
  platform::TextBox Text1{this};  // its author
  platform::Label Label9{this};
  platform::TextBox Text2{this};  // the author's e-mail address
  platform::Label lblBody{this};
  platform::TextBox txtBody{this};  // points at the start
  platform::Label Label6{this};
  platform::TextBox Text4{this, platform::TextLines::kMany};  // description of the set
  platform::CheckBox Chg{this};                               // never shown; checked: there are unsaved changes
  CavePreview preview{this};                                  // the selected cave

  // Rows 1 to 99; there is no row 0.
  using Column = std::array<std::unique_ptr<platform::Label>, 100>;
  std::array<std::unique_ptr<platform::Shape>, 100> shpPoc;  // where the mark of a start point goes
  Column lblNum;
  Column lblCave;
  Column lblPoc;

  platform::MenuItem mnuSada;
  platform::MenuItem mnuNew{&mnuSada};
  platform::MenuItem mnuOpen{&mnuSada};
  platform::MenuItem mnuSave{&mnuSada};
  platform::MenuItem mnuSaveAs{&mnuSada};
  platform::MenuItem mnuLine1{&mnuSada, "-"};
  platform::MenuItem mnuGratulace{&mnuSada};
  platform::MenuItem mnuLine2{&mnuSada, "-"};
  platform::MenuItem mnuClose{&mnuSada};
  platform::MenuItem mnuCaves;
  platform::MenuItem mnuCopy{&mnuCaves};
  platform::MenuItem mnuPaste{&mnuCaves};
  platform::MenuItem mnuLine3{&mnuCaves, "-"};
  platform::MenuItem mnuAddmnu{&mnuCaves};
  std::array<platform::MenuItem, 2> mnuAdd{{platform::MenuItem(&mnuAddmnu), platform::MenuItem(&mnuAddmnu)}};
  platform::MenuItem mnuEdit{&mnuCaves};
  platform::MenuItem mnuMove{&mnuCaves};
  platform::MenuItem mnuUp{&mnuMove};
  platform::MenuItem mnuDown{&mnuMove};
  platform::MenuItem mnuLine4{&mnuCaves, "-"};
  platform::MenuItem mnuDelete{&mnuCaves};

 private:
  void MakeMenus();
  void TieControls();
  void Place();
  void MakeRow(int i);
  void ShowTexts();
  void ShowRow(int i);
  void MarkRow(int i, bool selected);
  bool ListKeyDown(const platform::KeyEvent& event);
  bool MenuKeyDown(const platform::KeyEvent& event);
  bool MayGoOn();
  bool TryToSave(const std::string& path);
  static void Tell(const Fault& fault);

  const Forms& forms_;
  MenuBar bar_{{&Label7, &Label3, &Label8}};
};
