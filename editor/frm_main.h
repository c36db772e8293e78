#pragma once

#include <array>
#include <chrono>
#include <memory>
#include <string>

#include "editor/cave_edit.h"
#include "editor/menu_bar.h"
#include "editor/palette_pictures.h"
#include "editor/status_line.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/menu.h"
#include "shell/forms.h"

/// The cave editor: it shows the cave under edit, and draws with three mouse buttons or the keyboard. One instance
/// lives to the end of the program; other forms call its procedures.
class FrmMain : public platform::Form {
 public:
  /// programFolder: where the pictures lie.
  FrmMain(const std::string& programFolder, const Forms& forms);

  // --- Entry points --------------------

  /// Prepares the palette.
  void FrmLoad();
  /// Opens a cave for editing; whoever calls shows the form. Throws Fault when the text is damaged.
  void OpenCave(const std::string& caveText);
  /// Hands the cave back to the set editor and shows that.
  void VratKomnatu();
  /// Starts the test play again.
  void HraRest();
  /// Fills the properties dialog from the cave.
  void SetProps();
  /// Takes the properties dialog's values over.
  void VlOK_Click();
  /// Applies the record's size and goes back to the upper left corner.
  void SetRozm();
  /// Gems, in one column and one row more than the cave has.
  int SpoctiDrh() const { return edit.SpoctiDrh(); }
  /// Heroes with a number, over the same range. Nobody asks.
  int SpoctiPsy() const { return edit.SpoctiPsy(); }
  /// Cells inside the cave that hold this character.
  int NuOfOb(char tag) const { return edit.NuOfOb(tag); }
  /// Paints a tile of the palette on a cell of the canvas. Changes no cell.
  void PREKR(int x, int y, int palette);
  /// Texts of the language in force, those of the properties dialog as well.
  void SetLWEd();

  // --- Handlers --------------------

  void imgS_MouseDown(int index, int button);
  void Dog_Click(int number);
  void EditKom_MouseMove(const platform::MouseEvent& event);
  void HScroll1_Change();
  void VScroll1_Change();
  void Label7_Click();    // operations
  void Label3_Click();    // properties
  void Label8_Click();    // test play
  void Command2_Click();  // hero number
  void mnuEd_Click();
  void mnuRestore_Click();
  void ReplaceO(int index);
  void mnuReplEvery_Click(int index) { ReplaceO(index); }
  void mnuReplRan_Click(int index);
  void mnuOkraj_Click();
  bool Form_QueryUnload();
  void Form_KeyDown(platform::KeyEvent& event);

  CaveEdit edit;

  // --- Controls --------------------

  platform::Frame Picture4{this};  // the bar
  platform::Label Label7{&Picture4};
  platform::Label Label3{&Picture4};
  platform::Label Label8{&Picture4};
  platform::Shape shpRam{this};
  platform::Frame Ram{this};  // the window on the cave, 19 x 11 cells
  platform::PictureBox EditKom{&Ram};
  platform::Shape shpCursorLine{&EditKom};  // the cell that keys draw on
  platform::Shape shpCursor{&EditKom};
  platform::ScrollBar HScroll1{this, platform::Orientation::kHorizontal};
  platform::ScrollBar VScroll1{this, platform::Orientation::kVertical};
  platform::Shape shpPalette{this, platform::ShapeKind::kRounded};
  std::array<std::unique_ptr<platform::Image>, kPaletteSize> imgS;
  std::array<std::unique_ptr<platform::Shape>, 4> Shape1;  // markers by mouse button mask less one; 2 is none
  platform::Label Label1{this};                            // amoeba cells, over the amoeba of the palette
  platform::Button Command2{this};
  /// Which tile the left, middle and right button have, and the keys that do the same.
  std::array<platform::Image, 3> imgMouse{platform::Image{this}, platform::Image{this}, platform::Image{this}};
  std::array<platform::Image, 3> imgChosen{platform::Image{this}, platform::Image{this}, platform::Image{this}};
  std::array<platform::Image, 3> imgKeys{platform::Image{this}, platform::Image{this}, platform::Image{this}};
  StatusLine status;

  platform::MenuItem PesMenu{nullptr, "Pes"};
  std::array<std::unique_ptr<platform::MenuItem>, 10> Dog;
  platform::MenuItem mnuEd{nullptr, "Editace"};
  platform::MenuItem mnuRestore{&mnuEd};
  platform::MenuItem mnuObjbyObj{&mnuEd};
  /// Indices 1 and 2.
  std::array<platform::MenuItem, 2> mnuReplEvery{platform::MenuItem{&mnuObjbyObj}, platform::MenuItem{&mnuObjbyObj}};
  /// Indices 0, 1, 5 and 10.
  std::array<platform::MenuItem, 4> mnuReplRan{platform::MenuItem{&mnuObjbyObj}, platform::MenuItem{&mnuObjbyObj},
                                               platform::MenuItem{&mnuObjbyObj}, platform::MenuItem{&mnuObjbyObj}};
  platform::MenuItem mnuOkraj{&mnuEd};
  platform::MenuItem Sep1{&mnuEd, "-"};
  platform::MenuItem mnuStats{&mnuEd, "Statistika"};

 private:
  void MakeControls();
  void MakePalette();
  void MakeMenus();
  void Place();
  void PlacePalette();
  void ShowHero(int number);
  void SizeCanvas();
  void ShowChosen();
  void ShowCounts();
  void ShowAmoeba();
  void NameCounts();
  void ShowCell(int x, int y);
  bool CellAt(int x, int y, int& column, int& row) const;
  void ViewMoved();
  void CaptionOperations();
  void Run(const std::function<void()>& operation);
  void ShowRun();
  void StartTestPlay();

  // Keys
  bool CanvasKey(const platform::KeyEvent& event);
  bool PaletteKey(const platform::KeyEvent& event);
  bool AnywhereKey(const platform::KeyEvent& event);
  void SetCursor(int x, int y);
  void MoveCursor(int x, int y);
  void ShowCursor(bool visible);
  void DrawAtCursor(int button);
  int FocusedTile() const;
  void StopAtTile(int palette);

  std::string folder_;
  const Forms& forms_;
  MenuBar bar_{{&Label7, &Label3, &Label8}};
  std::unique_ptr<PalettePictures> pictures_;
  int cursorX_ = 0;
  int cursorY_ = 0;
  int pointerX_ = -1;  // where the mouse was last seen over the window on the cave, logical pixels; -1: not yet
  int pointerY_ = -1;
  std::chrono::steady_clock::time_point runStart_;
  std::chrono::steady_clock::time_point runShown_;
};
