#include "editor_checks.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

#include "base/fault.h"
#include "base/random.h"
#include "cave/cave_text.h"
#include "editor/cave_edit.h"
#include "editor/super_replace.h"

namespace {

void Require(bool holds, const char* what) {
  if (!holds) throw std::logic_error(what);
}

/// One action of four bytes; missing ones are 0.
struct Action {
  explicit Action(std::string_view bytes) {
    for (std::size_t i = 0; i < bytes.size() && i < byte.size(); ++i) byte[i] = static_cast<unsigned char>(bytes[i]);
  }
  std::array<int, 4> byte{};
};

/// A cave under edit with a canvas that keeps which tile of the palette each cell shows.
class Desk {
 public:
  explicit Desk(const std::string& caveText) {
    edit_.hooks.PREKR = [this](int x, int y, int palette) {
      Require(x >= 0 && x < kMaxWidth && y >= 0 && y < kMaxHeight, "painted outside of the grid");
      Require(palette >= 0 && palette < kPaletteSize, "painted no tile");
      shown_.at(CaveRecord::Index(x, y)) = palette;
    };
    edit_.random = [this] { return random_.Next(); };
    edit_.FrmLoad();
    Open(CaveTemplate(NewCave::kSmall));
    try {
      Open(caveText);
    } catch (const Fault&) {
      // The cave before stands.
    }
    Check();
  }

  void Do(const Action& action) {
    const auto [what, a, b, c] = action.byte;
    switch (what % 10) {
      case 0:
      case 1:
        Drag(a % 8, Place(edit_.Sirka, b) - a / 128, Place(edit_.Vyska, c) - a / 128);
        break;
      case 2:
        edit_.Dog_Click(a % 10);
        break;
      case 3:
        edit_.Choose(1 << a % 3, b % kPaletteSize);
        break;
      case 4:
        edit_.ReplaceO(1 + a % 3);
        break;
      case 5:
        edit_.mnuReplRan_Click(std::array{0, 1, 5, 10}.at(static_cast<std::size_t>(a % 4)));
        break;
      case 6:
        DrawBorder();
        break;
      case 7:
        SetSize(a, b);
        break;
      case 8:
        SetProperties(a, b, c);
        break;
      default:
        Open(edit_.Text());
    }
    Check();
  }

 private:
  void Open(const std::string& text) {
    edit_.Open(text);
    edit_.PaintAll();
    counted_ = true;
  }

  /// A place from one cell before the canvas to half a cell behind it, in halves of cells.
  static int Place(int cells, int byte) { return CaveEdit::kCell / 2 * (byte % (2 * cells + 4)) - CaveEdit::kCell; }

  void Drag(int mask, int x, int y) {
    const auto before = edit_.EdKomnata.Cells;
    edit_.EditKom_MouseMove(mask, x, y);
    const bool inside = x >= 0 && y >= 0 && x < CaveEdit::kCell * edit_.Sirka && y < CaveEdit::kCell * edit_.Vyska;
    if (!inside || mask < 1 || mask > 4) {
      Require(edit_.EdKomnata.Cells == before, "drawn by a mouse that does not draw");
      return;
    }
    const int palette = edit_.VybranyObjekt.at(static_cast<std::size_t>(mask));
    const char tag = edit_.Tag(palette);
    Require(edit_.EdKomnata.Cell(x / CaveEdit::kCell, y / CaveEdit::kCell) == tag, "not drawn");
    if (palette == kPaletteHero) Require(edit_.NuOfOb(tag) == 1, "a hero at two places");
  }

  void DrawBorder() {
    edit_.mnuOkraj_Click();
    for (int x = 0; x < edit_.Sirka; ++x) {
      for (int y = 0; y < edit_.Vyska; ++y) {
        const bool border = x == 0 || y == 0 || x == edit_.Sirka - 1 || y == edit_.Vyska - 1;
        Require(!border || edit_.EdKomnata.Cell(x, y) == edit_.L(), "a gap in the border");
      }
    }
    counted_ = false;
  }

  void SetSize(int width, int height) {
    edit_.EdKomnata.Width = static_cast<std::uint8_t>(width);
    edit_.EdKomnata.Height = static_cast<std::uint8_t>(height);
    edit_.SetRozm();
    edit_.PaintAll();
    counted_ = false;
  }

  /// As the cave properties allow.
  void SetProperties(int a, int b, int c) {
    CaveRecord& cave = edit_.EdKomnata;
    cave.Time = static_cast<std::int16_t>(5 + a * 3 + b % 3);
    cave.Need = static_cast<std::int16_t>(b * 3 + c % 3);
    cave.PointsBefore = static_cast<std::uint8_t>(a % 100);
    cave.PointsAfter = static_cast<std::uint8_t>(b % 100);
    cave.MagicTime = static_cast<std::uint8_t>(1 + c % 150);
    cave.AmoebaTime = static_cast<std::uint8_t>(1 + a % 150);
    cave.SlimeThrough = static_cast<std::uint8_t>(b % 9);
    cave.Tint = static_cast<std::uint8_t>(c % 15);
    const std::string words = std::string(1, static_cast<char>(a)) + " diamant borzek " + static_cast<char>(b);
    cave.Name = SuperReplace(words);
    Require(SuperReplace(cave.Name) == cave.Name, "what has been corrected is corrected again");
  }

  void Check() const {
    Require(edit_.Sirka >= CaveEdit::kMinWidth && edit_.Sirka <= CaveEdit::kLargestWidth, "width out of its limits");
    Require(edit_.Vyska >= CaveEdit::kMinHeight && edit_.Vyska <= CaveEdit::kLargestHeight, "height out of its limits");
    Require(!counted_ || edit_.AmoebaCount == edit_.NuOfOb('A'), "the amoeba counter is wrong");
    Require(edit_.SpoctiDrh() >= edit_.NuOfOb('D'), "gems are missing");
    for (int x = 0; x < edit_.Sirka; ++x) {
      for (int y = 0; y < edit_.Vyska; ++y) {
        const int palette = PaletteIndexOf(edit_.EdKomnata.Cell(x, y));
        Require(palette < 0 || palette == shown_.at(CaveRecord::Index(x, y)), "the canvas shows another tile");
      }
    }
    CheckText();
  }

  void CheckText() const {
    const CaveRecord& cave = edit_.EdKomnata;
    const CaveRecord again = ParseCaveText(edit_.Text());
    Require(again.Name == cave.Name && again.Description == cave.Description, "other texts");
    Require(again.Width == edit_.Sirka && again.Height == edit_.Vyska, "another size");
    Require(again.Time == cave.Time && again.Need == cave.Need, "another time or number of gems");
    Require(again.PointsBefore == cave.PointsBefore && again.PointsAfter == cave.PointsAfter, "other points");
    Require(again.MagicTime == cave.MagicTime && again.AmoebaTime == cave.AmoebaTime, "other times");
    Require(again.SlimeThrough == cave.SlimeThrough && again.Tint == cave.Tint, "other slime or colour");
    for (int x = 0; x < edit_.Sirka; ++x) {
      for (int y = 0; y < edit_.Vyska; ++y) Require(again.Cell(x, y) == cave.Cell(x, y), "another cell");
    }
  }

  CaveEdit edit_;
  Random random_{1};
  std::array<int, static_cast<std::size_t>(kMaxWidth* kMaxHeight)> shown_{};
  bool counted_ = false;
};

}  // namespace

void CheckEdit(std::string_view bytes) {
  const std::string_view text = bytes.substr(0, bytes.find(kEditSeparator));
  Desk desk{std::string(text)};
  bytes.remove_prefix(std::min(text.size() + 1, bytes.size()));
  for (; !bytes.empty(); bytes.remove_prefix(std::min(kActionSize, bytes.size()))) {
    desk.Do(Action(bytes.substr(0, kActionSize)));
  }
}
