// What the game window paints of a cave, compared with the pictures and with a painter that sees all of it.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "caves.h"
#include "game_window.h"
#include "platform/keys.h"
#include "view/cave_painter.h"

using namespace platform;
using ::testing::ElementsAre;

namespace {

/// A second painter that is told the same as the window's, but sees the whole cave and so paints everything at once.
class Reference {
 public:
  explicit Reference(FormHra& form) : form_(form), own_(*form.game.hooks), hooks_(own_) {
    hooks_.loadTint = [this](int tint) {
      own_.loadTint(tint);
      pictures_ = std::make_unique<TilePictures>(kPictures, static_cast<int>(form_.TileTw), Application::PixelRatio());
      pictures_->LoadTint(tint);
    };
    hooks_.sizeCave = [this](int columns, int rows) {
      own_.sizeCave(columns, rows);
      painter_.Reset(*pictures_, columns, rows);
      painter_.SetWindow({0, 0, columns * pictures_->size(), rows * pictures_->size()});
    };
    hooks_.paintCell = [this](int x, int y, int picture) {
      own_.paintCell(x, y, picture);
      painter_.PaintCell(x, y, picture);
    };
    hooks_.paintCellTop = [this](int x, int y, int picture, int halves) {
      own_.paintCellTop(x, y, picture, halves);
      painter_.PaintCellTop(x, y, picture, halves);
    };
    hooks_.paintOverlay = [this](int x, int y, int picture) {
      own_.paintOverlay(x, y, picture);
      painter_.PaintOverlay(x, y, picture);
    };
    hooks_.paintTransfer = [this](int step, int picture) {
      own_.paintTransfer(step, picture);
      painter_.PaintShrunk(form_.game.TeleportSourceX, form_.game.TeleportSourceY, picture, 5 - step);
      painter_.PaintShrunk(form_.game.TeleportTargetX, form_.game.TeleportTargetY, picture, step - 1);
    };
    form_.game.hooks = &hooks_;
  }

  Picture Painted() const { return surface_.Snapshot(); }
  const TilePictures& pictures() const { return *pictures_; }

 private:
  FormHra& form_;
  Hooks own_;
  Hooks hooks_;
  Surface surface_;
  CavePainter painter_{surface_};
  std::unique_ptr<TilePictures> pictures_;
};

/// Moves the view over the whole cave, so that everything comes to light once.
void LookAround(FormHra& form) {
  for (int y = 5; y < form.game.CaveHeight + 11; y += 11) {
    for (int x = 9; x < form.game.CaveWidth + 19; x += 19) form.game.hooks->showCell(x, y);
  }
}

TEST(GamePaintTest, WhatComesIntoViewIsPaintedAsIfItHadAlwaysBeenSeen) {
  CaveRecord cave = BusyCave();
  cave.Width = 45;
  cave.Height = 25;
  Game game(cave);
  Reference reference(game.form);
  game.Start();
  for (int round = 0; round < 4; ++round) {
    game.Tick(15);
    LookAround(game.form);
    ASSERT_EQ(game.form.KOMNATA.surface().Snapshot(), reference.Painted()) << "after " << game.form.game.ElapsedTime;
  }
  // Cells whose picture never changes, or is painted anew in every tick, show what stands in the grid.
  const Hra& state = game.form.game;
  const Picture whole = game.form.KOMNATA.surface().Snapshot();
  std::map<int, int> seen;
  for (int y = 0; y < state.CaveHeight; ++y) {
    for (int x = 0; x < state.CaveWidth; ++x) {
      const int tile = state.Tiles(x, y);
      const bool moves = tile == Firefly || tile == Butterfly || tile == Fly || tile == Explosion || tile == HeroTile;
      if (moves || (tile == MagicWall && state.Motion(x, y) == 0)) continue;
      ++seen[tile];
      const Picture& expected = reference.pictures()[state.pctK[static_cast<std::size_t>(tile)]];
      ASSERT_EQ(whole.Part(game.Cell(x, y)), expected) << "tile " << tile << " at " << x << ", " << y;
    }
  }
  EXPECT_GT(seen.size(), 10u) << "the cave still holds most kinds";
}

TEST(GamePaintTest, OnlyChangedCellsInViewArePainted) {
  CaveRecord cave = DirtCave(40, 22, 5, 5);
  // Out of view to the right and below, and animated in every tick.
  for (int i = 0; i < 9; ++i) cave.Cell(25 + i, 5) = cave.Cell(5, 12 + i) = 'A';
  Game game(cave);
  game.Start();
  std::vector<Rect> painted;
  const auto show = game.form.KOMNATA.surface().on_change;
  game.form.KOMNATA.surface().on_change = [&](const Rect& area) {
    painted.push_back(area);
    show(area);
  };
  game.Tick();
  EXPECT_THAT(painted, ElementsAre(game.Cell(5, 5))) << "the idle hero";
  painted.clear();
  user::TapKey(kKeyRight);
  game.Tick();
  EXPECT_THAT(painted, ElementsAre(game.Cell(5, 5), game.Cell(6, 5))) << "the cell left and the cell entered";
  painted.clear();
  user::Wait(20);
  user::PaintedPixels();
  game.Tick();
  Application::PaintAndSleep(0);
  const int pixels = Application::PixelRatio() * Application::PixelRatio();
  EXPECT_LT(user::PaintedPixels(), 12 * game.Tile() * game.Tile() * pixels) << "a few cells and the lamp";
}

TEST(GamePaintTest, AWorkingMagicWallMovesInItsUpperHalf) {
  Game game(Cave("R;;/.;;/M;;/.;1"));
  Reference reference(game.form);
  game.Start();
  const auto upper = [&](const Picture& picture) { return picture.Part({0, 0, game.Tile(), game.Tile() / 2}); };
  const auto lower = [&](const Picture& picture) {
    return picture.Part({0, game.Tile() / 2, game.Tile(), game.Tile() / 2});
  };
  const Picture wall = reference.pictures()[picture::kWall];
  EXPECT_EQ(game.Shown(0, 2), wall);
  while (game.form.game.MagicState == 0 && game.form.game.ElapsedTime < 5) game.Tick();
  ASSERT_EQ(game.form.game.MagicState, 1);
  for (int i = 0; i < 5; ++i) {
    game.Tick();
    const int frame = picture::kAnimMW + game.form.game.AnimPhase - 1;
    EXPECT_EQ(upper(game.Shown(0, 2)), upper(reference.pictures()[frame]));
    EXPECT_EQ(lower(game.Shown(0, 2)), lower(wall));
  }
  game.Tick(10);
  EXPECT_EQ(game.form.game.MagicState, 2);
  EXPECT_EQ(game.Shown(0, 2), wall);
}

TEST(GamePaintTest, AnObjectShrinksIntoTheTeleportAndGrowsOutOfIt) {
  Game game(Cave(";R;;;/;;;;;/;S;;W/;W;1S"));
  game.Start();
  const TilePictures pictures = PicturesOf(game, 2);
  // Half the width of what differs from the floor, around the middle of the cell.
  const auto size = [&](int x, int y) {
    const Picture cell = game.Shown(x, y);
    int widest = 0;
    for (int row = 0; row < game.Tile(); ++row) {
      for (int column = 0; column < game.Tile(); ++column) {
        if (cell.At(column, row) == pictures[picture::kEmpty].At(column, row)) continue;
        widest = std::max(widest, std::abs(2 * column + 1 - game.Tile()));
      }
    }
    return widest * 4.0 / game.Tile();  // in quarters of a cell
  };
  constexpr CellPlace from{1, 2};
  constexpr CellPlace to{4, 3};
  EXPECT_EQ(size(from.x, from.y), 0);
  game.form.game.Tiles(from.x, from.y) = Rock;
  for (int step = 1; step <= 3; ++step) {
    game.Tick();
    EXPECT_GT(size(from.x, from.y), 3 - step);
    EXPECT_LE(size(from.x, from.y), 4 - step);
    EXPECT_GT(size(to.x, to.y), step - 1);
    EXPECT_LE(size(to.x, to.y), step);
  }
  game.Tick();
  EXPECT_EQ(game.Shown(from.x, from.y), pictures[picture::kEmpty]);
  EXPECT_EQ(game.Shown(to.x, to.y), pictures[picture::kRock]);
}

TEST(GamePaintTest, ASplitterAndATeleportAreMarkedAndABlastTakesTheMarksOfTheSplitter) {
  Game game(Cave("1;;;;;/;;;;;S/;;;;;W/;;;;;W/;WEW;S/;;;;;;"));
  Reference reference(game.form);
  game.Start();
  const TilePictures& pictures = reference.pictures();
  const auto marked = [&](int tile, int mark) {
    Surface cell;
    cell.Reset(game.Tile(), game.Tile(), Application::PixelRatio());
    cell.Copy(pictures[tile], 0, 0);
    cell.Copy(pictures[mark], 0, 0);
    return cell.Snapshot();
  };
  EXPECT_EQ(game.Shown(1, 4), marked(picture::kAnim9, picture::kImgRzd));
  EXPECT_EQ(game.Shown(2, 4), marked(picture::kGrowWallH, picture::kImgRzd + 1));
  EXPECT_EQ(game.Shown(3, 4), marked(picture::kAnim9, picture::kImgRzd + 2));
  EXPECT_EQ(game.Shown(5, 2), marked(picture::kAnim9, picture::kImgTLP));
  EXPECT_EQ(game.Shown(5, 3), marked(picture::kAnim9, picture::kImgTLP + 1));
  game.Tick(3);
  EXPECT_EQ(game.Shown(1, 4), marked(picture::kAnim9, picture::kImgRzd)) << "the marks stay while it stands";
  game.form.game.Exploze(2, 4, 0, 0);
  EXPECT_EQ(game.Shown(1, 4), pictures[picture::kAnim9]);
  EXPECT_EQ(game.Shown(3, 4), pictures[picture::kAnim9]);
  EXPECT_EQ(game.Shown(2, 4), pictures[picture::kExpld]);
}

TEST(GamePaintTest, EachTintChangesTheTintedPicturesAndNoOther) {
  TilePictures before(kPictures, 50, Application::PixelRatio());
  TilePictures after(kPictures, 50, Application::PixelRatio());
  for (int tint = 0; tint < 15; ++tint) {
    before.LoadTint(tint);
    after.LoadTint((tint + 1) % 15);
    for (std::size_t i = 0; i < picture::kFiles.size(); ++i) {
      const int number = static_cast<int>(i);
      EXPECT_EQ(before[number] != after[number], picture::kFiles[i].tinted)
          << picture::kFiles[i].name << " in tint " << tint;
      EXPECT_EQ(before[number].opaque(), picture::kFiles[i].kind != picture::Kind::kOverlay) << picture::kFiles[i].name;
    }
  }
}

TEST(GamePaintTest, TilesReachTheScreenPixelByPixel) {
  Game game(DirtCave(40, 22, 20, 10));
  game.Start();
  user::Wait(20);
  const TilePictures pictures = PicturesOf(game, 2);
  const Picture view = user::Grab(game.form.Ram);
  ASSERT_EQ(view.ratio(), Application::PixelRatio());
  EXPECT_EQ(view.Part(game.Cell(9, 5)), pictures[picture::kImgZBP]) << "in the middle of the view";
  EXPECT_EQ(view.Part(game.Cell(18, 10)), pictures[picture::kDirt]);
}

}  // namespace
