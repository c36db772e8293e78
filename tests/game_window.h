#pragma once

#include <string>
#include <string_view>

#include "campaign/frm_settings.h"
#include "kit/caves.h"
#include "platform/application.h"
#include "platform/testing.h"
#include "view/form_hra.h"

inline const std::string kData = ZORBIK_PROGRAM_DATA;
inline const std::string kPictures = kData + "/pictures";

/// A cave of nothing but dirt, with a hero at (x, y).
inline CaveRecord DirtCave(int width, int height, int x, int y) {
  CaveRecord record = Filled(width, height, ';');
  record.Need = 9;
  record.Cell(x, y) = '1';
  return record;
}

/// The game window with its settings; the tests make the ticks themselves unless they let the timer run.
struct Game {
  explicit Game(const CaveRecord& cave) : text(BuildCaveText(cave)) {
    form.restartCave = [this] {
      ++restarts;
      Open();
    };
    form.leave = [this] { ++left; };
    form.showSettings = [this] {
      settings.SetSett();
      settings.ShowModal();
    };
    settings.settingsTaken = [this] { form.SetSpeed(); };
  }

  void Open() {
    form.PaintCave(text);
    form.Show();
    platform::user::WaitUntil([this] { return platform::user::HasInput(form); });
  }
  /// On show, started, with its timer stopped.
  void Start() {
    Open();
    form.Command1_Click();
    form.tmrHra.Stop();
  }
  void Tick(int times = 1) {
    for (int i = 0; i < times; ++i) form.tmrHra_Timer();
  }
  const HeroRecord& Hero() const { return form.game.Heroes[static_cast<std::size_t>(form.game.CurrentHero)]; }
  int Tile() const { return static_cast<int>(form.TileTw); }
  platform::Rect Cell(int x, int y) const { return {x * Tile(), y * Tile(), Tile(), Tile()}; }
  platform::Picture Shown(int x, int y) { return form.KOMNATA.surface().Snapshot().Part(Cell(x, y)); }

  std::string text;
  int restarts = 0;
  int left = 0;
  FrmSettings settings{kData};
  FormHra form{kData, settings};
};

inline TilePictures PicturesOf(const Game& game, int tint) {
  TilePictures pictures(kPictures, game.Tile(), platform::Application::PixelRatio());
  pictures.LoadTint(tint);
  return pictures;
}
