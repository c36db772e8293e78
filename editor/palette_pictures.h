#pragma once

#include <array>
#include <string>

#include "editor/palette.h"
#include "platform/picture.h"

/// The pictures of the palette at the size of a cell, in a colour of their own that follows no cave.
class PalettePictures {
 public:
  /// folder: where the files are. size: logical pixels. ratio: device pixels of a logical one. Throws Fault when a file
  /// is missing or is no picture.
  PalettePictures(const std::string& folder, int size, int ratio);

  /// By palette index; the hero with the number 1.
  const platform::Picture& operator[](int palette) const { return tiles_.at(static_cast<std::size_t>(palette)); }
  /// The hero of a number, 0 to 9.
  const platform::Picture& Hero(int number) const { return heroes_.at(static_cast<std::size_t>(number)); }

 private:
  std::array<platform::Picture, kPaletteSize> tiles_;
  std::array<platform::Picture, 10> heroes_;
};
