#include "editor/cave_preview.h"

#include <algorithm>
#include <cmath>

#include "base/fault.h"
#include "engine/hra.h"
#include "platform/application.h"
#include "view/cave_painter.h"

namespace {

constexpr int kTile = 20;  // logical pixels of a tile before the picture is shrunk to the frame
constexpr int kMargin = 6;

/// A shut exit looks like steel to a player; the author sees where it is.
void ShowExits(const Hra& game, CavePainter& painter) {
  for (int y = 0; y < game.CaveHeight; ++y) {
    for (int x = 0; x < game.CaveWidth; ++x) {
      if (game.Tiles(x, y) == Exit) painter.PaintCell(x, y, picture::kAnim9 + 1);
    }
  }
}

}  // namespace

void CavePreview::ShowCave(const std::string& caveText) {
  platform::Picture picture;
  try {
    picture = Draw(caveText);
  } catch (const Fault&) {
    // The editor lists such a cave all the same, and its place here stays empty.
  }
  Image1.set_visible(!picture.empty());
  if (picture.empty()) return;
  const double room = std::min(static_cast<double>(width() - 2 * kMargin) / picture.width(),
                               static_cast<double>(height() - 2 * kMargin) / picture.height());
  const double scale = std::min(room, 1.0);
  Image1.set_picture(picture.Scaled(std::max(1, static_cast<int>(std::lround(picture.width() * scale))),
                                    std::max(1, static_cast<int>(std::lround(picture.height() * scale)))));
  Image1.MoveTo((width() - Image1.width()) / 2, (height() - Image1.height()) / 2);
}

/// The rules themselves set the cave up, so that it looks here as it will in the game.
platform::Picture CavePreview::Draw(const std::string& caveText) {
  if (!pictures_) {
    pictures_ = std::make_unique<TilePictures>(folder_, kTile, platform::Application::PixelRatio());
  }
  platform::Surface surface;
  CavePainter painter(surface);
  Hooks hooks;
  hooks.loadTint = [this](int tint) { pictures_->LoadTint(tint); };
  hooks.sizeCave = [&](int columns, int rows) {
    if (columns == 0 || rows == 0) throw Fault("The cave is empty.");
    painter.Reset(*pictures_, columns, rows);
    painter.SetWindow({0, 0, surface.width(), surface.height()});
  };
  hooks.paintCell = [&](int x, int y, int picture) { painter.PaintCell(x, y, picture); };
  hooks.paintOverlay = [&](int x, int y, int picture) { painter.PaintOverlay(x, y, picture); };
  const auto game = std::make_unique<Hra>(&hooks);
  game->PaintCave(caveText);
  ShowExits(*game, painter);
  return surface.Snapshot();
}
