// What the rules ask the game window to show.

#include <algorithm>
#include <cmath>
#include <optional>

#include "base/lang_str.h"
#include "base/language.h"
#include "base/text.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "view/caption.h"
#include "view/colours.h"
#include "view/form_hra.h"

namespace {

constexpr int kStripStep = 25;  // logical pixels of a hero in the strip

}  // namespace

void FormHra::ReadCave(const CaveRecord& record) {
  CaveName = record.Name;
  lblName.set_caption(record.Name);
  FitName();
  lblStart.set_caption(record.Name);
  lblDescr.set_caption(record.Description);
  const CaveMode mode = game.PlayingReplay ? CaveMode::kReplay : game.TestPlay ? CaveMode::kTestPlay : CaveMode::kPlay;
  set_caption(CaveCaption(PlayerName, record.Name, mode));
}

void FormHra::DrawStrip() {
  Psi.surface().Reset(9 * kStripStep, kStripStep, pictures_->ratio(), platform::Application::theme().background);
  for (int i = 1; i <= game.HeroCount; ++i) {
    const bool alive = game.Heroes[static_cast<std::size_t>(i)].alive != 0;
    PaintStrip(i, !alive                  ? picture::kMrtvejPes
                  : i == game.CurrentHero ? picture::kSinglePes
                                          : picture::kMultiPes + i - 1);
  }
  Psi.set_visible(game.HeroCount != 1);
}

void FormHra::PaintStrip(int hero, int picture) {
  const int left = kStripStep * (hero - 1);
  Psi.surface().Fill({left, 0, kStripStep, kStripStep}, platform::Application::theme().background);
  Psi.surface().Copy(small_[static_cast<std::size_t>(picture)], left, 0);
}

// The object shrinks on the entrance and grows on the exit, a quarter of a tile in each of the four ticks.
void FormHra::PaintTransfer(int step, int picture) {
  const int quarters = step - 1;
  painter_.PaintShrunk(game.TeleportSourceX, game.TeleportSourceY, picture, 4 - quarters);
  painter_.PaintShrunk(game.TeleportTargetX, game.TeleportTargetY, picture, quarters);
}

void FormHra::MoveSurface(double left, double top) {
  left_ = left;
  top_ = top;
  const int x = static_cast<int>(std::lround(left));
  const int y = static_cast<int>(std::lround(top));
  painter_.SetWindow({-x, -y, Ram.width(), Ram.height()});
  if (KOMNATA.left() != x || KOMNATA.top() != y) KOMNATA.MoveTo(x, y);
}

double FormHra::idleft(int x) const {
  const double left = std::min(-((x + 0.5) - 19 / 2.0) * TileTw, 0.0);
  return std::max(left, 19 * TileTw - game.CaveWidth * TileTw);
}

double FormHra::idtop(int y) const {
  const double top = std::min(-((y + 0.5) - 11 / 2.0) * TileTh, 0.0);
  return std::max(top, 11 * TileTh - game.CaveHeight * TileTh);
}

// The newest held arrow key moves the view. The ages are its own, so that looking around never changes how a hero
// steps.
void FormHra::ScrollFreely() {
  int best = 1000;
  int pick = 0;
  for (int i = 1; i <= 4; ++i) {
    int& age = scrollAge_[static_cast<std::size_t>(i)];
    age = platform::Held(key::kLeft + i - 1) ? age + 1 : 0;
    if (age > 0 && age < best) {
      best = age;
      pick = key::kLeft + i - 1;
    }
  }
  const double step = 1.5 * TileTw;
  const double left = left_ + (pick == key::kLeft ? step : pick == key::kRight ? -step : 0);
  const double top = top_ + (pick == key::kUp ? step : pick == key::kDown ? -step : 0);
  MoveSurface(std::min(std::max(left, -(game.CaveWidth - 19) * TileTw), 0.0),
              std::min(std::max(top, -(game.CaveHeight - 11) * TileTh), 0.0));
}

void FormHra::ShowMessage(const std::string& text, std::uint32_t colour) {
  Picture6.set_visible(false);
  Message1.set_caption(Shortened(text));
  Message1.set_fore_colour(ScreenColour(colour));
  FitMessage();
  Picture6.set_width(Message1.width() + 60);
  shpO7.set_width(Picture6.width() - 30);
  shpO7.set_left(15);
  Message1.set_left(30);
  Picture6.set_left((Frame1.width() - Picture6.width()) / 2);
  Picture6.set_visible(true);
  tmrMsg.Stop();  // the whole time for this message, whatever was left of the one before
  tmrMsg.Start();
}

void FormHra::tmrMsg_Timer() {
  Picture6.set_visible(false);
  tmrMsg.Stop();
}

void FormHra::Flash() {
  if (!visible()) return;
  pctBlesk.set_visible(true);
  pctBlesk.BringToFront();
  platform::Application::PaintAndSleep(5);
  pctBlesk.set_visible(false);
}

/// The key that pauses the game also goes on with it.
void FormHra::ShowPause(const std::string& text, const std::string& title) {
  platform::ShowMessageBox({text, title, platform::BoxButtons::kOk, platform::BoxIcon::kInformation, key::kP});
  platform::Held(key::kP);  // the stroke has done its work
}

void FormHra::ShowCounters() {
  lblCas.set_caption(Digits(game.lblCas, 3));
  lblSebr.set_caption(Digits(game.Collected, 3));
  lblTreba.set_caption(Digits(game.Need, 3));
  lblBz1.set_caption(Digits(game.PointsNow, 2));
  lblBody.set_caption(Digits(game.Score, 5));
  constexpr int kLastSeconds = 10;  // those that are heard, too
  constexpr platform::Colour kHurry = platform::Rgb(0xFFD23F);
  lblCas.set_fore_colour(game.lblCas > kLastSeconds ? std::optional<platform::Colour>() : kHurry);
  if (lblCas.text_width() > lblCas.width() || lblBz1.text_width() > lblBz1.width()) PlaceCounters();
}

/// When nobody is left to move, or the time is out, tells how to go on.
void FormHra::ShowHint() {
  const bool stuck =
      !game.Won && !game.PlayingReplay &&
      (!(game.TimeLimit > game.ElapsedTime) ||
       std::none_of(game.Heroes.begin(), game.Heroes.end(), [](const HeroRecord& hero) { return hero.alive != 0; }));
  if (Picture8.visible() != stuck) Picture8.set_visible(stuck);
}
