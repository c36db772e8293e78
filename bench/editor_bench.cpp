// What the cave editor costs on the largest cave that it takes, 80 by 50 cells, on the offscreen platform: a cell drawn
// by the mouse, opening the cave, replacing every cell. All include what is painted on the window. An operation over
// the whole cave lets its run be seen, so its time is one that was chosen; ReplaceEveryCellWork is the same without a
// window.

#include <benchmark/benchmark.h>

#include <string>

#include "base/language.h"
#include "cave/cave_text.h"
#include "caves.h"
#include "desktop_bench.h"
#include "editor/frm_formality.h"
#include "editor/frm_main.h"
#include "platform/application.h"
#include "platform/testing.h"

namespace {

/// The cave editor on a cave.
struct Desk {
  explicit Desk(const CaveRecord& cave) {
    NactiJazyk(std::string(ZORBIK_PROGRAM_DATA) + "/cestina.zbl");
    forms.frmMain = &main;
    forms.frmFormality = &formality;
    main.FrmLoad();
    main.SetLWEd();
    main.OpenCave(BuildCaveText(cave));
    main.Show();
    platform::user::Wait(50);
    platform::user::PaintedPixels();
  }

  /// Draws with the left button held, from here on. The last cell on the screen is left out of all drags: a mouse that
  /// does not move tells nothing.
  void Press() {
    platform::user::PressMouse(main.EditKom, CaveEdit::kCell * 18 + kMiddle, CaveEdit::kCell * 10 + kMiddle);
  }
  /// Moves the mouse to a cell of those on the screen. False when that has drawn nothing.
  bool Drag(int x, int y) {
    platform::user::MoveMouse(main.EditKom, CaveEdit::kCell * x + kMiddle, CaveEdit::kCell * y + kMiddle,
                              platform::kLeftButton);
    platform::Application::PaintAndSleep(0);
    return main.edit.EdKomnata.Cell(x, y) == main.edit.L();
  }
  ~Desk() { platform::user::ReleaseMouse(main.EditKom, kMiddle, kMiddle); }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  static constexpr int kMiddle = CaveEdit::kCell / 2;
  Forms forms;
  FrmFormality formality{ZORBIK_PROGRAM_DATA, forms};
  FrmMain main{ZORBIK_PROGRAM_DATA, forms};
};

/// Nothing but dirt.
CaveRecord LargestDirtCave() {
  CaveRecord cave = BusyCave();
  cave.Width = CaveEdit::kLargestWidth;
  cave.Height = CaveEdit::kLargestHeight;
  cave.Cells.fill(';');
  return cave;
}

void ReportPixels(benchmark::State& state) {
  state.counters["pixels"] =
      benchmark::Counter(static_cast<double>(platform::user::PaintedPixels()), benchmark::Counter::kAvgIterations);
}

/// The mouse goes over the cells on the screen again and again, each time with the other of two tiles.
void Draw(benchmark::State& state, int palette, int otherPalette) {
  constexpr int kColumns = 18;
  constexpr int kCells = kColumns * 10;
  Desk desk(LargestDirtCave());
  desk.Press();
  int turn = 0;
  for ([[maybe_unused]] auto _ : state) {
    if (turn % kCells == 0) desk.main.imgS_MouseDown(turn / kCells % 2 == 0 ? palette : otherPalette, 1);
    if (!desk.Drag(turn % kColumns, turn / kColumns % 10)) state.SkipWithError("nothing was drawn");
    ++turn;
  }
  ReportPixels(state);
}

void DrawACell(benchmark::State& state) { Draw(state, kPaletteAmoeba, kPaletteDirt); }

/// He is looked for in the whole cave and leaves his old place.
void DrawAHero(benchmark::State& state) { Draw(state, kPaletteHero, kPaletteHero); }

void OpenLargestCave(benchmark::State& state) {
  Desk desk(LargestDirtCave());
  const std::string text = BuildCaveText(BusyCave());
  for ([[maybe_unused]] auto _ : state) {
    desk.main.OpenCave(text);
    platform::Application::PaintAndSleep(0);
  }
}

/// Dirt becomes gems and gems become dirt.
void ChooseOther(CaveEdit& edit) {
  const bool dirt = edit.EdKomnata.Cell(0, 0) == ';';
  edit.VybranyObjekt[1] = dirt ? kPaletteGem : kPaletteDirt;
  edit.VybranyObjekt[2] = dirt ? kPaletteDirt : kPaletteGem;
}

void ReplaceEveryCell(benchmark::State& state) {
  Desk desk(LargestDirtCave());
  for ([[maybe_unused]] auto _ : state) {
    ChooseOther(desk.main.edit);
    desk.main.ReplaceO(1);
    platform::Application::PaintAndSleep(0);
  }
  ReportPixels(state);
}

void ReplaceEveryCellWork(benchmark::State& state) {
  CaveEdit edit;
  edit.Open(BuildCaveText(LargestDirtCave()));
  for ([[maybe_unused]] auto _ : state) {
    ChooseOther(edit);
    edit.ReplaceO(1);
  }
}

BENCHMARK(DrawACell)->Unit(benchmark::kMicrosecond);
BENCHMARK(DrawAHero)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenLargestCave)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReplaceEveryCell)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ReplaceEveryCellWork)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) { RunDesktopBenchmarks(argc, argv); }
