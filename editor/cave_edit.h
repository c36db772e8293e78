#pragma once

#include <array>
#include <functional>
#include <string>

#include "base/random.h"
#include "cave/cave_record.h"
#include "editor/palette.h"

/// What the edit of a cave asks of the window around it. Absent hooks are not called.
struct EditHooks {
  std::function<void(int x, int y, int palette)>
      PREKR;                                   // paint this tile of the palette on the cell; it may lie outside
  std::function<void(int number)> heroChosen;  // the palette's hero is another one now
  std::function<void()> refresh;               // an operation has changed a cell: let it be seen
};

/// What an author wants to know about a cave at a glance.
struct CaveCounts {
  int gems = 0;
  int heroes = 0;  // that can be chosen: of equal digits only one counts
  int exits = 0;
  bool gemsGrow = false;  // there are butterflies, amoeba or a magic wall, which can make more gems

  bool operator==(const CaveCounts&) const = default;
};

/// A cave under edit: the record and all that changes it. It knows no window; the cave editor's form shows it.
class CaveEdit {
 public:
  /// Logical pixels of a cell.
  static constexpr int kCell = 26;
  /// Sizes that a cave under edit can have, in cells.
  static constexpr int kMinWidth = 19;
  static constexpr int kLargestWidth = 80;
  static constexpr int kMinHeight = 11;
  static constexpr int kLargestHeight = 50;

  // --- Opening --------------------

  /// Empties the grid as it is before the first cave.
  void FrmLoad();
  /// Takes a cave over, brings its size and time within their limits and counts its amoeba. Throws Fault when the text
  /// is damaged; the cave before stands then.
  void Open(const std::string& caveText);
  /// The cave as text. Throws Fault when its name or description is too long for it.
  std::string Text() const;
  /// Applies the record's width and height within their limits. Cells that were never written become empty; those
  /// outside the size keep what they hold.
  void SetRozm();
  /// Paints the whole cave, column by column. A hero is chosen while it is painted. A character that no tile shows is
  /// painted like the cell painted before.
  void PaintAll();

  // --- Drawing --------------------

  /// Another hero number, 0 to 9, for the palette's hero.
  void Dog_Click(int number);
  /// The tile for a mouse button (1 left, 2 right, 4 middle). False when it has that tile already, and for any other
  /// button.
  bool Choose(int button, int palette);
  /// Paints the cell at a place of the canvas, in logical pixels, with the tile of a mask of buttons.
  void EditKom_MouseMove(int button, int x, int y);
  /// Paints a cell of the cave with a tile.
  void Draw(int x, int y, int palette);
  /// The character that a tile writes.
  char Tag(int palette) const;
  /// Tag of the left button's tile (L) and of the right one's (P).
  char L() const { return Tag(VybranyObjekt[1]); }
  char P() const { return Tag(VybranyObjekt[2]); }

  // --- Operations --------------------

  /// Every index-th cell with P, in reading order, becomes L. index: from 1.
  void ReplaceO(int index);
  /// So many cells with P, drawn at random, become L; 0 stands for half of them.
  void mnuReplRan_Click(int index);
  /// The border becomes L. The amoeba counter does not notice.
  void mnuOkraj_Click();

  // --- Counting --------------------

  /// Cells inside the cave that hold this character.
  int NuOfOb(char tag) const;
  /// Gems, in one column and one row more than the cave has.
  int SpoctiDrh() const;
  /// Heroes with a number, over the same range. Nobody asks.
  int SpoctiPsy() const;
  CaveCounts Counts() const;

  // --- State --------------------

  CaveRecord EdKomnata;
  int Sirka = 0;  // columns
  int Vyska = 0;  // rows
  /// Palette index by mask of mouse buttons. Entries 0 and 3 are never written.
  std::array<int, 5> VybranyObjekt{};
  int AktualniPes = 0;  // hero number, 0 to 9
  int AmoebaCount = 0;  // caption of Label1
  EditHooks hooks;
  /// Numbers from 0 up to but not including 1.
  std::function<double()> random = Rnd;

 private:
  void Put(int x, int y, int palette);
  void ReplaceCell(int x, int y);
  void RemoveHero(int keepX, int keepY);
  void Paint(int x, int y, int palette) const;
  template <class Predicate>
  int CountBeyond(Predicate holds) const;
};
