#include "engine/replay.h"

#include <zlib.h>

#include <vector>

#include "base/fault.h"
#include "cave/cave_text.h"
#include "cave/names.h"

namespace {

/// Whether a text is what the line coding makes of some characters.
bool IsCoded(std::string_view text) {
  if (text.size() % 3 != 0) return false;
  for (std::size_t i = 0; i < text.size(); i += 3) {
    const int q = text[i] - 'A';
    const int r = text[i + 1] - 'A';
    const int t = text[i + 2] - 'A';
    if (q < 0 || r < 0 || t < 0 || t > 18) return false;
    const int k = 10 + t / 4;
    if (t % 4 > 2 || r >= k || q * k + r > 255) return false;
  }
  return true;
}

}  // namespace

Replay::Replay(const Recording& recording, bool strict) : recording_(recording), strict_(strict), game_(&hooks_) {
  hooks_.readReplayLine = [this](std::string& line) {
    if (next_ >= recording_.ticks.size()) return false;
    line = recording_.ticks[next_];
    return true;
  };
  game_.PlayingReplay = true;
  game_.Check = strict ? ReplayCheck::kStrict : ReplayCheck::kInput;
  try {
    game_.PaintCave(recording.caveText);
  } catch (const Fault& fault) {
    throw Fault("line 3: " + std::string(fault.what()));
  }
  game_.Command1_Click();
  bonus_ = JeBonus(ParseCaveText(recording.caveText).Name);
}

bool Replay::Tick() {
  if (game_.Won || next_ >= recording_.ticks.size() || recording_.ticks[next_].empty()) return false;
  try {
    game_.tmrHra_Timer();
    if (strict_) CheckRest();
  } catch (const Fault& fault) {
    throw Fault("line " + std::to_string(next_ + kFirstTickLine) + ": " + fault.what());
  }
  ++next_;
  return true;
}

void Replay::CheckRest() const {
  if (!IsCoded(game_.ReplayLine)) throw Fault("The line goes on behind its tick, and the rest is no note.");
}

int Replay::Score() const { return game_.Sum.Score() + (bonus_ ? kBonusPoints : 0); }

std::uint32_t CellsCrc(const Hra& game) {
  std::vector<std::uint8_t> bytes;
  bytes.reserve(4 * static_cast<std::size_t>(game.CaveWidth) * static_cast<std::size_t>(game.CaveHeight));
  for (int y = 0; y < game.CaveHeight; ++y) {
    for (int x = 0; x < game.CaveWidth; ++x) {
      const std::uint16_t tile = game.Tiles(x, y);
      bytes.insert(bytes.end(), {static_cast<std::uint8_t>(tile & 0xFF), static_cast<std::uint8_t>(tile >> 8),
                                 game.Motion(x, y), game.Aux(x, y)});
    }
  }
  return static_cast<std::uint32_t>(crc32_z(0, bytes.data(), bytes.size()));
}
