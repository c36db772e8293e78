#pragma once

#include <array>
#include <cstdint>

#include "cave/tiles.h"
#include "platform/picture.h"
#include "view/tile_pictures.h"

/// Paints the cells of a cave on its surface. A cell outside the window of the view is only noted down and painted when
/// the window reaches it, so that a large lively cave costs no more than what is seen of it.
class CavePainter {
 public:
  explicit CavePainter(platform::Surface& surface) : surface_(surface) {}

  /// A new cave of so many cells; nothing is painted yet. pictures has to outlive the cave.
  void Reset(const TilePictures& pictures, int columns, int rows);

  /// The window of the view: its upper left corner and size on the surface, in logical pixels. Paints what has been
  /// noted down inside.
  void SetWindow(const platform::Rect& window);

  // Cells by column and row; one outside the cave, such as the ring around it, is left out. picture: its number.

  void PaintCell(int x, int y, int picture);
  // Marks on a cell. They are painted at once, also outside the window, and go with the cell's next picture.

  /// The upper half (halves = 1) or all (2) of a cell.
  void PaintCellTop(int x, int y, int picture, int halves);
  /// Over what the cell shows.
  void PaintOverlay(int x, int y, int picture);
  /// On the floor of the cave, shrunk to so many quarters of the cell, 0..4.
  void PaintShrunk(int x, int y, int picture, int quarters);

 private:
  static constexpr std::int16_t kPainted = -1;

  bool Inside(int x, int y) const { return x >= 0 && y >= 0 && x < columns_ && y < rows_; }
  std::int16_t& Noted(int x, int y) {
    return noted_[static_cast<std::size_t>(y) * kMaxWidth + static_cast<std::size_t>(x)];
  }
  /// Paints the cell if its picture has only been noted down.
  void Settle(int x, int y);

  platform::Surface& surface_;
  const TilePictures* pictures_ = nullptr;
  int tile_ = 1;
  int columns_ = 0;
  int rows_ = 0;
  int firstX_ = 0;  // the cells of the window, both ends included
  int firstY_ = 0;
  int lastX_ = -1;
  int lastY_ = -1;
  std::array<std::int16_t, static_cast<std::size_t>(kMaxWidth* kMaxHeight)> noted_{};  // picture number, or kPainted
};
