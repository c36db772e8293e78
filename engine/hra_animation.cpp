// Pictures that change by themselves, and the opening of the exit.

#include "base/lang_str.h"
#include "engine/hra.h"

void Hra::Animace() {
  if (AnimPhase > 3) AnimPhase = 0;
  SetPicture(Firefly, picture::kAnim6 + AnimPhase);
  SetPicture(Amoeba, picture::kAnim10 + AnimPhase);
  SetPicture(SlimeTile, picture::kAnim14 + AnimPhase);
  ++AnimPhase;
  SetPicture(Fly, picture::kAnim15 + FlyPhase % 2);
  if (FlyPhase > 7) FlyPhase = 0;
  SetPicture(Butterfly, picture::kAnim7 + (FlyPhase < 4 ? FlyPhase : 7 - FlyPhase));
  if (MagicState == 1) AnimateMagicWall();
  ++FlyPhase;
  if (!ExitOpen && Collected == Need) OpenExit();
  if (Collected >= Need) BlinkExit();
}

// A running magic wall moves in the upper half of its cells; the end of its time paints them whole again.
void Hra::AnimateMagicWall() {
  int frame = picture::kAnimMW + AnimPhase - 1;
  int halves = 1;
  if (ElapsedTime - MagicStart > MagicTime) {
    frame = pctK[Wall];
    MagicState = 2;
    halves = 2;
    ShowMessage(LangStr[text::kMagicEnds], colour::kLightYellow);
  }
  if (!hooks || !hooks->paintCellTop) return;
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      if (Tiles(x, y) == MagicWall && Motion(x, y) == 0) hooks->paintCellTop(x, y, frame, halves);
    }
  }
}

void Hra::OpenExit() {
  Tell(&Hooks::flash);
  ExitOpen = true;
  PointsNow = PointsAfter;
  ShowMessage(LangStr[text::kExitOpens], colour::kWhite);
}

void Hra::BlinkExit() {
  SetPicture(Exit, picture::kAnim9 + (ExitPhase == 1 ? 1 : 0));
  ExitPhase = (ExitPhase + 1) % 2;
  if (!hooks || !hooks->paintCell) return;
  for (int y = 0; y < CaveHeight; ++y) {
    for (int x = 0; x < CaveWidth; ++x) {
      if (Tiles(x, y) == Exit) PREKR(x, y);
    }
  }
}
