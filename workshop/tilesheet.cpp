// tilesheet: every picture of the running cave on one sheet, to judge them side by side.

#include <array>
#include <cstdlib>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "base/fault.h"
#include "platform/application.h"
#include "platform/controls.h"
#include "platform/form.h"
#include "platform/testing.h"
#include "tools/command_line.h"
#include "view/colours.h"
#include "view/tile_pictures.h"

namespace {

using platform::Picture;
using platform::Surface;

constexpr int kTile = 50;
constexpr int kSmall = 26;  // the smallest size at which tiles have to be told apart
constexpr int kInStrip = 25;
constexpr int kTints = 15;
constexpr int kMargin = 16;
constexpr int kPitch = 64;
constexpr int kPerRow = 16;
constexpr int kWidth = 2 * kMargin + kPerRow * kPitch;

/// What stands at one place of the sheet: pictures one over the other, the first at the bottom, with a name below.
struct Item {
  std::vector<Picture> layers;
  std::string name;
  int shownHeight = kTile;  // of the upper layers
};

std::string NameOf(int number) {
  const std::string_view file = picture::kFiles[static_cast<std::size_t>(number)].name;
  return std::string(file.substr(0, file.find('.')));
}

/// The sheet grows downwards row by row; its surface is painted when all is known.
class Sheet {
 public:
  void Heading(const std::string& text) {
    top_ += kMargin;
    AddText(text, kMargin, {18, true, false, false}, 600, platform::Alignment::kLeft);
    top_ += 30;
  }

  void Row(const std::vector<Item>& items, int size = kTile) {
    int column = 0;
    for (const Item& item : items) {
      if (column == kPerRow) {
        top_ += size + 22;
        column = 0;
      }
      const int left = kMargin + column++ * kPitch;
      for (std::size_t i = 0; i < item.layers.size(); ++i) {
        pieces_.push_back({item.layers[i], left, top_, i == 0 ? size : item.shownHeight});
      }
      top_ += size + 1;
      AddText(item.name, left - 7, {9, false, false, false}, kPitch, platform::Alignment::kCentre);
      top_ -= size + 1;
    }
    top_ += size + 22;
  }

  /// Pictures side by side without gaps, behind a caption.
  void Scene(const std::string& caption, const std::vector<Picture>& pictures) {
    AddText(caption, kMargin, {13, false, false, false}, 3 * kPitch, platform::Alignment::kLeft);
    texts_.back()->set_height(kTile);
    texts_.back()->set_middle(true);
    int left = kMargin + 3 * kPitch;
    for (const Picture& picture : pictures) {
      pieces_.push_back({picture, left, top_, kTile});
      left += kTile;
    }
    top_ += kTile;
  }

  void Save(const std::string& file) {
    form_.Resize(kWidth, top_ + kMargin);
    box_.Resize(kWidth, top_ + kMargin);
    Surface& surface = box_.surface();
    surface.Reset(kWidth, top_ + kMargin, platform::Application::PixelRatio(),
                  platform::Application::theme().background);
    for (const Piece& piece : pieces_) {
      surface.CopyPart(piece.picture, {0, 0, piece.picture.width(), piece.height}, piece.left, piece.top);
    }
    platform::user::Grab(form_).SavePng(file);
  }

 private:
  struct Piece {
    Picture picture;
    int left;
    int top;
    int height;
  };

  void AddText(const std::string& text, int left, const platform::Font& font, int width,
               platform::Alignment alignment) {
    texts_.push_back(std::make_unique<platform::Label>(&box_, text));
    texts_.back()->set_font(font);
    texts_.back()->set_alignment(alignment);
    texts_.back()->SetBounds(left, top_, width, font.size * 3 / 2);
  }

  int top_ = 0;
  platform::Form form_{platform::Border::kNone};
  platform::PictureBox box_{&form_};
  std::vector<std::unique_ptr<platform::Label>> texts_;
  std::vector<Piece> pieces_;
};

/// Some numbered pictures, count of them from each first on.
std::vector<Item> Runs(const TilePictures& pictures, const std::vector<std::pair<int, int>>& runs) {
  std::vector<Item> items;
  for (const auto& [first, count] : runs) {
    for (int number = first; number < first + count; ++number) items.push_back({{pictures[number]}, NameOf(number)});
  }
  return items;
}

std::vector<Item> MagicWall(const TilePictures& pictures) {
  std::vector<Item> items = {{{pictures[picture::kWall]}, "at rest"}};
  for (int frame = 0; frame < 4; ++frame) {
    const int number = picture::kAnimMW + frame;
    items.push_back({{pictures[picture::kWall], pictures[number]}, NameOf(number), kTile / 2});
  }
  return items;
}

std::vector<Item> Overlays(const TilePictures& pictures) {
  std::vector<Item> items;
  const auto add = [&](int below, int overlay) {
    items.push_back({{pictures[below], pictures[overlay]}, NameOf(overlay)});
  };
  add(picture::kAnim9, picture::kImgRzd);
  add(picture::kGrowWallH, picture::kImgRzd + 1);
  add(picture::kAnim9, picture::kImgRzd + 2);
  add(picture::kAnim9, picture::kImgTLP);
  add(picture::kAnim9, picture::kImgTLP + 1);
  return items;
}

std::vector<Item> Strip(const std::string& folder) {
  std::vector<Item> items;
  for (int number = picture::kMultiPes; number <= picture::kMrtvejPes; ++number) {
    items.push_back({{LoadNumbered(folder, number, kInStrip, platform::Application::PixelRatio())}, NameOf(number)});
  }
  return items;
}

std::vector<Picture> TintedScene(const TilePictures& pictures) {
  using namespace picture;
  std::vector<Picture> scene;
  for (const int number : {kAnim9, kAnim9, kWall, kWall, kDirt, kDirt, kRock, kDirt, kImgZBP, kEmpty, kGem, kRock,
                           kCrate, kAnim6, kAnim9 + 1, kAnim9}) {
    scene.push_back(pictures[number]);
  }
  return scene;
}

void Draw(const std::string& folder, const std::string& file) {
  using namespace picture;
  const int ratio = platform::Application::PixelRatio();
  TilePictures pictures(folder, kTile, ratio);
  TilePictures small(folder, kSmall, ratio);
  pictures.LoadTint(2);
  small.LoadTint(2);
  Sheet sheet;
  sheet.Heading("Ground, walls and objects");
  sheet.Row(Runs(pictures, {{kEmpty, 5}, {kAnim9, 2}, {kCrate, 1}, {kGrowWallH, 2}, {kRedGem, 3}, {kRedLock, 3}}));
  sheet.Heading("Creatures");
  sheet.Row(Runs(pictures, {{kAnim6, 4}, {kAnim7, 4}, {kAnim15, 2}}));
  sheet.Heading("Amoeba and slime");
  sheet.Row(Runs(pictures, {{kAnim10, 4}, {kAnim14, 4}}));
  sheet.Heading("Magic wall, splitter and teleport");
  std::vector<Item> marks = MagicWall(pictures);
  for (const Item& item : Overlays(pictures)) marks.push_back(item);
  sheet.Row(marks);
  sheet.Heading("Explosions: of a firefly, a hero, a fly, a butterfly");
  sheet.Row(Runs(pictures, {{kExpld, 16}}));
  sheet.Heading("Heroes");
  sheet.Row(Runs(pictures, {{kImgZBP, 7}, {kMultiPes, 9}}));
  sheet.Row(Strip(folder), kInStrip);
  sheet.Heading("At 26 pixels");
  sheet.Row(Runs(small, {{kEmpty, 5}, {kAnim9, 2}, {kCrate, 1}, {kGrowWallH, 2}, {kRedGem, 3}, {kRedLock, 3}}), kSmall);
  sheet.Row(
      Runs(small, {{kAnim6, 1}, {kAnim7, 1}, {kAnim15, 1}, {kAnim10, 1}, {kAnim14, 1}, {kImgZBP, 1}, {kMultiPes, 9}}),
      kSmall);
  sheet.Heading("Tints");
  for (int tint = 0; tint < kTints; ++tint) {
    const platform::Colour colour = TintColour(tint);
    pictures.LoadTint(tint);
    sheet.Scene(std::to_string(tint) + ": " + std::to_string(colour.red) + ", " + std::to_string(colour.green) + ", " +
                    std::to_string(colour.blue),
                TintedScene(pictures));
  }
  sheet.Save(file);
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Draws every tile in every colour on one sheet.", "tilesheet");
  int ratio = 1;
  std::string folder = ZORBIK_PICTURES;
  std::string file;
  app.add_option("OUT.png", file)->required();
  app.add_option("--ratio", ratio, "device pixels a logical one")->check(CLI::Range(1, 4));
  app.add_option("--pictures", folder, "where the pictures lie");
  return RunCommand(app, argc, argv, [&] {
    setenv("QT_SCALE_FACTOR", std::to_string(ratio).c_str(), 1);
    platform::user::UseOffscreen();
    platform::Application application(argc, argv, "tilesheet");
    Draw(folder, file);
    return 0;
  });
}
