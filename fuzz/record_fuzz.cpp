// Record files: the bytes as they come, and the bytes as the cave text and the ticks of a well-formed file. Whatever is
// in them, reading and replaying ends with a result or a Fault.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/fault.h"
#include "cave/scramble.h"
#include "engine/recording.h"
#include "engine/replay.h"

namespace {

constexpr int kTicks = 200;  // a cave can run for ever on short lines; more of the same finds nothing new

void Play(const Recording& recording, bool strict) {
  try {
    Replay replay(recording, strict);
    for (int i = 0; i < kTicks && replay.Tick(); ++i) {
    }
    if (CellsCrc(replay.game()) == 0 && replay.game().Picture().empty()) return;
  } catch (const Fault&) {
  }
}

Recording WellFormed(std::string_view bytes) {
  const std::size_t end = bytes.find('\n');
  const std::string_view cave = bytes.substr(0, end);
  const std::string_view ticks = end == std::string_view::npos ? std::string_view() : bytes.substr(end + 1);
  return ReadRecording(RecordText("Set", 1, "player", Scramble(cave) + "\r\n" + std::string(ticks)));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  try {
    Play(ReadRecording(bytes), true);
  } catch (const Fault&) {
  }
  const Recording recording = WellFormed(bytes);
  Play(recording, false);
  Play(recording, true);
  return 0;
}
