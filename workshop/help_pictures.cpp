// help_pictures: the pictures of the help pages, from the game's own art and played by its own rules.

#include <array>
#include <charconv>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "cave/cave_text.h"
#include "cave/set_file.h"
#include "cave/set_text.h"
#include "engine/hra.h"
#include "platform/application.h"
#include "platform/testing.h"
#include "tools/command_line.h"
#include "view/cave_painter.h"
#include "view/tile_pictures.h"

namespace {

using platform::Picture;
using platform::Surface;

constexpr const char* kAbout =
    "Draws the tiles, and the scenes of a set in readable form, from the pictures in a folder.\n"
    "Each scene becomes a film strip: its frames side by side, the first before the start and one more after each "
    "tick. "
    "Its\n"
    "name is that of the file. Its description is a number, the seed of what the rules draw, a blank and a key for "
    "each "
    "tick:\n"
    "  L R U D  the arrows       l r u d  the arrows with Shift\n"
    "  1 ... 9  a hero's number  .        none\n";

constexpr int kTile = 50;       // logical pixels of a tile that stands alone,
constexpr int kTileRatio = 2;   // sharp on fine screens, too
constexpr int kSceneTile = 48;  // pixels of a tile in a scene
constexpr int kTint = 3;        // of the tiles

// --- Tiles --------------------

/// A picture of its own: numbered pictures, one over the other.
struct TileFile {
  std::string_view name;
  std::vector<int> layers;
};

/// The overlays of the editor that tell where a creature first faces.
constexpr std::array<std::pair<std::string_view, picture::Extra>, 4> kFacings = {{
    {"left", picture::kFacingLeft},
    {"up", picture::kFacingUp},
    {"right", picture::kFacingRight},
    {"down", picture::kFacingDown},
}};

std::vector<TileFile> TileFiles() {
  using namespace picture;
  return {
      {"empty", {kEmpty}},
      {"dirt", {kDirt}},
      {"rock", {kRock}},
      {"gem", {kGem}},
      {"hero", {kImgZBP}},
      {"hero_2", {kMultiPes + 1}},
      {"wall", {kWall}},
      {"steel", {kAnim9}},
      {"exit", {kAnim9 + 1}},
      {"crate", {kCrate}},
      {"growwall_h", {kGrowWallH}},
      {"growwall_v", {kGrowWallV}},
      {"gem_red", {kRedGem}},
      {"gem_green", {kRedGem + 1}},
      {"gem_blue", {kRedGem + 2}},
      {"lock_red", {kRedLock}},
      {"lock_green", {kRedLock + 1}},
      {"lock_blue", {kRedLock + 2}},
      {"amoeba", {kAnim10}},
      {"slime", {kAnim14}},
      {"fly", {kAnim15}},
      {"splitter", {kGrowWallH, kImgRzd + 1}},
      {"teleport", {kAnim9, kImgTLP}},
  };
}

Picture Stacked(const Picture& below, const Picture& above) { return above.Over(below); }

void SaveTiles(const std::string& folder, const std::string& out) {
  TilePictures pictures(folder, kTile, kTileRatio);
  pictures.LoadTint(kTint);
  const auto save = [&out](std::string_view name, const Picture& picture) {
    picture.SavePng(out + "/" + std::string(name) + ".png");
  };
  for (const TileFile& file : TileFiles()) {
    Picture picture = pictures[file.layers.front()];
    for (std::size_t i = 1; i < file.layers.size(); ++i) picture = Stacked(picture, pictures[file.layers[i]]);
    save(file.name, picture);
  }
  const auto extra = [&folder](const picture::Extra& file) {
    return LoadExtra(folder, file, kTile, kTile, kTileRatio);
  };
  save("magic", Stacked(pictures[picture::kWall], extra(picture::kMagicMark)));
  for (const auto& [facing, overlay] : kFacings) {
    save(std::string("firefly_").append(facing), Stacked(pictures[picture::kAnim6], extra(overlay)));
    save(std::string("butterfly_").append(facing), Stacked(pictures[picture::kAnim7], extra(overlay)));
  }
}

// --- Scenes --------------------

/// A small cave that plays by itself.
struct Scene {
  std::string name;
  std::string cave;  // its text
  std::uint64_t seed = 1;
  std::string keys;  // one a tick
};

Scene SceneOf(const std::string& caveText) {
  const CaveRecord record = ParseCaveText(caveText);
  Scene scene{record.Name, caveText, 1, {}};
  const std::string& play = record.Description;
  const auto [end, error] = std::from_chars(play.data(), play.data() + play.size(), scene.seed);
  if (error != std::errc() || end == play.data() + play.size() || *end != ' ') {
    throw Fault("The scene \"" + scene.name + "\" has no seed and keys in its description.");
  }
  scene.keys.assign(end + 1, play.data() + play.size());
  return scene;
}

/// The virtual key that a key of a scene stands for, 0 for none.
int VirtualKey(char key) {
  switch (key) {
    case 'L':
    case 'l':
      return key::kLeft;
    case 'U':
    case 'u':
      return key::kUp;
    case 'R':
    case 'r':
      return key::kRight;
    case 'D':
    case 'd':
      return key::kDown;
    default:
      return key >= '1' && key <= '9' ? key::kNumpad0 + key - '0' : 0;
  }
}

/// Plays a scene and paints it on a surface of its own.
class Stage {
 public:
  Stage(const Scene& scene, TilePictures& pictures) : pictures_(pictures), painter_(surface_) {
    hooks_.loadTint = [this](int tint) { pictures_.LoadTint(tint); };
    hooks_.sizeCave = [this](int columns, int rows) {
      painter_.Reset(pictures_, columns, rows);
      painter_.SetWindow({0, 0, surface_.width(), surface_.height()});
    };
    hooks_.paintCell = [this](int x, int y, int picture) { painter_.PaintCell(x, y, picture); };
    hooks_.paintCellTop = [this](int x, int y, int picture, int halves) {
      painter_.PaintCellTop(x, y, picture, halves);
    };
    hooks_.paintOverlay = [this](int x, int y, int picture) { painter_.PaintOverlay(x, y, picture); };
    hooks_.paintTransfer = [this](int step, int picture) { PaintTransfer(step, picture); };
    hooks_.keyHeld = [this](int code) { return Held(code); };
    game_.random = Random(scene.seed);
    game_.PaintCave(scene.cave);
    game_.Command1_Click();
  }
  Stage(const Stage&) = delete;  // the hooks point here
  Stage& operator=(const Stage&) = delete;

  Picture Frame() const { return surface_.Snapshot(); }

  void Tick(char key) {
    key_ = key;
    game_.tmrHra_Timer();
  }

 private:
  bool Held(int code) const { return code == VirtualKey(key_) || (code == key::kShift && key_ >= 'a' && key_ <= 'z'); }

  void PaintTransfer(int step, int picture) {
    const int quarters = step - 1;
    painter_.PaintShrunk(game_.TeleportSourceX, game_.TeleportSourceY, picture, 4 - quarters);
    painter_.PaintShrunk(game_.TeleportTargetX, game_.TeleportTargetY, picture, quarters);
  }

  TilePictures& pictures_;
  Surface surface_;
  CavePainter painter_;
  Hooks hooks_;
  Hra game_{&hooks_};
  char key_ = '.';
};

void SaveScene(const Scene& scene, TilePictures& pictures, const std::string& out) {
  Stage stage(scene, pictures);
  std::vector<Picture> frames = {stage.Frame()};
  for (const char key : scene.keys) {
    stage.Tick(key);
    frames.push_back(stage.Frame());
  }
  Surface strip;
  const int width = frames.front().width();
  strip.Reset(width * static_cast<int>(frames.size()), frames.front().height(), 1);
  for (std::size_t i = 0; i < frames.size(); ++i) strip.Copy(frames[i], width * static_cast<int>(i), 0);
  strip.Snapshot().SavePng(out + "/" + scene.name + ".png");
}

void SaveScenes(const std::string& folder, const std::string& file, const std::string& out) {
  TilePictures pictures(folder, kSceneTile, 1);
  for (const std::string& line : SetFromText(ReadFile(file), file)) {
    int number = 0;
    if (CaveNumberOf(line, number)) SaveScene(SceneOf(line.substr(0, line.size() - kCaveTailLength)), pictures, out);
  }
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app(kAbout, "help_pictures");
  std::string pictures;
  std::string scenes;
  std::string folder;
  app.add_option("PICTURES", pictures)->required();
  app.add_option("SCENES.txt", scenes)->required();
  app.add_option("OUT", folder)->required();
  return RunCommand(app, argc, argv, [&] {
    platform::user::UseOffscreen();
    platform::Application application(argc, argv, "help_pictures");
    std::filesystem::create_directories(folder);
    SaveTiles(pictures, folder);
    SaveScenes(pictures, scenes, folder);
    return 0;
  });
}
