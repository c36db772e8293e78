#include "engine/replay.h"

#include <array>

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

constexpr std::array<std::uint32_t, 256> MakeCrcTable() {
  std::array<std::uint32_t, 256> table{};
  for (std::uint32_t i = 0; i < 256; ++i) {
    std::uint32_t value = i;
    for (int bit = 0; bit < 8; ++bit) value = value >> 1 ^ ((value & 1) != 0 ? 0xEDB88320u : 0);
    table[i] = value;
  }
  return table;
}

constexpr auto kCrcTable = MakeCrcTable();

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
  std::uint32_t crc = ~0u;
  const auto add = [&crc](std::uint32_t byte) { crc = kCrcTable[(crc ^ byte) & 0xFF] ^ crc >> 8; };
  for (int y = 0; y < game.CaveHeight; ++y) {
    for (int x = 0; x < game.CaveWidth; ++x) {
      add(game.Tiles(x, y) & 0xFF);
      add(game.Tiles(x, y) >> 8);
      add(game.Motion(x, y));
      add(game.Aux(x, y));
    }
  }
  return ~crc;
}
