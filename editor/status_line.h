#pragma once

#include <array>
#include <string>

#include "editor/cave_edit.h"
#include "platform/controls.h"

/// The foot of the cave editor: a cell with its tile, and below what the cave has and lacks. It speaks in pictures and
/// numbers, and in the names that the tiles have.
class StatusLine : public platform::Frame {
 public:
  static constexpr int kHeight = 70;  // logical pixels

  /// pictures: folder of the files.
  StatusLine(platform::Container* parent, const std::string& pictures);

  void Place(int left, int top, int width);
  /// The gem, the hero and the exit before their numbers, with their names.
  void SetTiles(const std::array<platform::Picture, 3>& pictures, const std::array<std::string, 3>& names);
  /// Cell (x, y), what it shows and what that is called.
  void ShowCell(int x, int y, const platform::Picture& picture, const std::string& name);
  /// need: gems that open the exit. What keeps the cave from being won bears a sign; gems that can still grow are told
  /// by a "+".
  void ShowCounts(const CaveCounts& counts, int need);

  platform::Label lblPlace{this};
  platform::Image imgTile{this};
  platform::Label lblTile{this};

  /// Gems, heroes, exits.
  static constexpr int kGems = 0;
  static constexpr int kHeroes = 1;
  static constexpr int kExits = 2;
  std::array<platform::Image, 3> imgCount{platform::Image{this}, platform::Image{this}, platform::Image{this}};
  std::array<platform::Label, 3> lblCount{platform::Label{this}, platform::Label{this}, platform::Label{this}};
  std::array<platform::Image, 3> imgWarning{platform::Image{this}, platform::Image{this}, platform::Image{this}};

 private:
  void ShowCount(int index, const std::string& text, bool lacking);

  std::array<std::string, 3> names_;
  CaveCounts counts_;
  int need_ = 0;
};
