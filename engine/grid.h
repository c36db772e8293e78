#pragma once

#include <array>
#include <cstddef>
#include <string>

#include "base/fault.h"

/// A grid of cells with bounds of its own: columns X0..X1, rows Y0..Y1, both ends included. A plain value.
template <class T, int X0, int X1, int Y0, int Y1>
class Grid {
 public:
  /// The cell (x, y). Throws Fault outside the bounds.
  T& operator()(int x, int y) { return cells_[Index(x, y)]; }
  const T& operator()(int x, int y) const { return cells_[Index(x, y)]; }

  /// The cell (0, y) as the start of a row, for the scans of a tick: [x] is good for X0..X1, unchecked.
  T* Row(int y) { return &cells_[Index(0, y)]; }
  const T* Row(int y) const { return &cells_[Index(0, y)]; }

  bool operator==(const Grid&) const = default;

 private:
  static constexpr unsigned kColumns = X1 - X0 + 1;
  static constexpr unsigned kRows = Y1 - Y0 + 1;

  static std::size_t Index(int x, int y) {
    const auto column = static_cast<unsigned>(x - X0);  // negative numbers become large ones: one comparison a side
    const auto row = static_cast<unsigned>(y - Y0);
    if (column >= kColumns || row >= kRows) [[unlikely]] {
      Outside(x, y);
    }
    return row * kColumns + column;
  }

  [[noreturn]] static void Outside(int x, int y) {
    throw Fault("The cell " + std::to_string(x) + ", " + std::to_string(y) + " lies outside the cave.");
  }

  std::array<T, std::size_t{kColumns} * kRows> cells_{};
};
