// Keys, joystick and the choice of the hero.

#include "cave/cave_text.h"
#include "engine/hra.h"

namespace {
constexpr int kArrowBase = 36;  // direction 1..4 (left, up, right, down) + 36 is the virtual key
}  // namespace

bool Hra::Held(int virtualKey) const { return hooks && hooks->keyHeld && hooks->keyHeld(virtualKey); }

/// Asks for both keys in any case: a key counts as held when it was pressed since it was last asked for, so one that is
/// passed over would be found pressed in a later tick.
bool Hra::BothHeld(int one, int other) const {
  const bool first = Held(one);
  return Held(other) && first;
}

void Hra::ProjedKlv() { Tell(&Hooks::dropKeys); }

void Hra::Klavesy() {
  KeyMove = 0;
  KeyAction = 0;
  const bool joystick = Wishes().Joystick != 0 && hooks && hooks->joystickDirection && hooks->joystickButtons;
  const int stick = joystick ? hooks->joystickDirection() : 0;
  const auto buttons = [this, joystick](int one, int other) {
    return joystick && (hooks->joystickButtons() == one || hooks->joystickButtons() == other);
  };
  if (buttons(1, 3)) KeyAction = 1;
  const int arrow = NewestArrow();
  if (arrow != 0) KeyMove = kArrowBase + arrow;
  if (KeyQueued != 0) {
    KeyMove = KeyQueued;
    KeyQueued = 0;
  }
  if (stick != 0) KeyMove = kArrowBase + stick;
  RecordBuffer += static_cast<char>(KeyMove + kSmallNumberBase);
  for (const int action : {key::kShift, key::kControl, key::kSpace}) {  // each is asked for in every tick
    if (Held(action)) KeyAction = 1;
  }
  RecordBuffer += static_cast<char>(KeyAction + kSmallNumberBase);
  if (Held(key::kTab) || buttons(2, 3)) ZmenitPsa(2 * KeyAction - 1);
  int number = 0;
  for (int n = 9; n >= 1; --n) {
    if (Held(key::kNumpad0 + n)) number = n;
  }
  if (number != 0) ZmenitPsa(number * 10);
  RecordBuffer += static_cast<char>(CurrentHero + kSmallNumberBase);
  if (Held(key::kP)) {
    ProjedKlv();
    if (hooks->pause) hooks->pause();
    ProjedKlv();
  }
}

/// Counts how long each arrow key has been held; the result is the newest one, 1..4, or 0. On a tie the lowest wins.
int Hra::NewestArrow() {
  int best = 1000;
  int pick = 0;
  for (int i = 1; i <= 4; ++i) {
    int& age = KeyAge[static_cast<std::size_t>(i)];
    if (!Held(kArrowBase + i)) {
      age = 0;
    } else if (++age < best) {
      pick = i;
      best = age;
    }
  }
  return pick;
}

void Hra::ZmenitPsa(int code) {
  if (!MultiHero) return;
  const int old = CurrentHero;
  if (Hero(CurrentHero).alive != 0) {
    SetPicture(HeroTile, picture::kMultiPes + CurrentHero - 1);
    PREKR(Hero(CurrentHero).x, Hero(CurrentHero).y);
    Tell(&Hooks::paintStrip, CurrentHero, picture::kMultiPes + CurrentHero - 1);
  }
  if (code <= 1) {
    int attempts = 0;
    do {
      CurrentHero += code;
      if (CurrentHero > HeroCount) CurrentHero = 1;
      if (CurrentHero < 1) CurrentHero = HeroCount;
      if (++attempts > HeroCount) {
        MultiHero = false;
        return;
      }
    } while (Hero(CurrentHero).alive == 0);
  } else if (Hero(code / 10).alive != 0) {
    CurrentHero = code / 10;
  }
  SetPicture(HeroTile, picture::kImgZBP);
  PREKR(Hero(CurrentHero).x, Hero(CurrentHero).y);
  Tell(&Hooks::paintStrip, CurrentHero, picture::kSinglePes);
  IdleTicks = 0;
  ZornéPole();
  if (CurrentHero != old) PZvuk(7);
}
