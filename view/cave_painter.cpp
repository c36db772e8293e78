#include "view/cave_painter.h"

#include <algorithm>

void CavePainter::Reset(const TilePictures& pictures, int columns, int rows) {
  pictures_ = &pictures;
  tile_ = pictures.size();
  columns_ = columns;
  rows_ = rows;
  lastX_ = -1;
  lastY_ = -1;
  noted_.fill(kPainted);
  surface_.Reset(columns * tile_, rows * tile_, pictures.ratio());
}

void CavePainter::SetWindow(const platform::Rect& window) {
  const int firstX = std::max(window.left / tile_, 0);
  const int firstY = std::max(window.top / tile_, 0);
  const int lastX = std::min((window.left + window.width - 1) / tile_, columns_ - 1);
  const int lastY = std::min((window.top + window.height - 1) / tile_, rows_ - 1);
  if (firstX == firstX_ && firstY == firstY_ && lastX == lastX_ && lastY == lastY_) return;
  firstX_ = firstX;
  firstY_ = firstY;
  lastX_ = lastX;
  lastY_ = lastY;
  for (int y = firstY; y <= lastY; ++y) {
    for (int x = firstX; x <= lastX; ++x) Settle(x, y);
  }
}

void CavePainter::Settle(int x, int y) {
  const std::int16_t picture = Noted(x, y);
  if (picture == kPainted) return;
  Noted(x, y) = kPainted;
  surface_.Copy((*pictures_)[picture], x * tile_, y * tile_);
}

void CavePainter::PaintCell(int x, int y, int picture) {
  if (!Inside(x, y)) return;  // the ring around the cave has no place on the surface
  Noted(x, y) = static_cast<std::int16_t>(picture);
  if (x >= firstX_ && x <= lastX_ && y >= firstY_ && y <= lastY_) Settle(x, y);
}

void CavePainter::PaintCellTop(int x, int y, int picture, int halves) {
  if (!Inside(x, y)) return;
  Settle(x, y);
  surface_.CopyPart((*pictures_)[picture], {0, 0, tile_, halves * tile_ / 2}, x * tile_, y * tile_);
}

void CavePainter::PaintOverlay(int x, int y, int picture) {
  if (!Inside(x, y)) return;
  Settle(x, y);
  surface_.Copy((*pictures_)[picture], x * tile_, y * tile_);
}

void CavePainter::PaintShrunk(int x, int y, int picture, int quarters) {
  if (!Inside(x, y)) return;
  Noted(x, y) = kPainted;
  surface_.Copy((*pictures_)[picture::kEmpty], x * tile_, y * tile_);
  const int size = tile_ * quarters / 4;
  const int margin = (tile_ - size) / 2;
  if (size > 0) surface_.CopyScaled((*pictures_)[picture], {x * tile_ + margin, y * tile_ + margin, size, size});
}
