#include "editor/palette_pictures.h"

#include "engine/pictures.h"
#include "view/picture_files.h"
#include "view/tile_pictures.h"

namespace {

constexpr int kTint = 4;

using namespace picture;

/// Picture numbers by palette index.
constexpr std::array<int, kPaletteSize> kNumbers = {
    kEmpty,  kDirt,  kRock,  kGem,        kSinglePes, kWall,      kRedGem,    kRedGem + 1,  kAnim9,       kAnim9 + 1,
    kAnim10, kWall,  kCrate, kRedGem + 2, kRedLock,   kAnim14,    kAnim15,    kAnim6,       kAnim6,       kAnim6,
    kAnim6,  kAnim7, kAnim7, kAnim7,      kAnim7,     kGrowWallH, kGrowWallV, kRedLock + 2, kRedLock + 1,
};

constexpr int kFirstFirefly = 17;
constexpr int kFirstButterfly = 21;
constexpr int kMagicWallTile = 11;
constexpr std::array<Extra, 4> kFacings = {kFacingLeft, kFacingUp, kFacingRight, kFacingDown};

}  // namespace

PalettePictures::PalettePictures(const std::string& folder, int size, int ratio) {
  TilePictures pictures(folder, size, ratio);
  pictures.LoadTint(kTint);
  for (std::size_t i = 0; i < tiles_.size(); ++i) tiles_[i] = pictures[kNumbers[i]];
  const auto mark = [&](int palette, const Extra& extra) {
    platform::Picture& tile = tiles_[static_cast<std::size_t>(palette)];
    tile = LoadExtra(folder, extra, size, size, ratio).Over(tile);
  };
  for (int facing = 0; facing < 4; ++facing) {
    mark(kFirstFirefly + facing, kFacings[static_cast<std::size_t>(facing)]);
    mark(kFirstButterfly + facing, kFacings[static_cast<std::size_t>(facing)]);
  }
  mark(kMagicWallTile, kMagicMark);
  for (int number = 0; number < 10; ++number) {
    heroes_[static_cast<std::size_t>(number)] = pictures[number < 2 ? kSinglePes : kMultiPes + number - 1];
  }
}
