#pragma once

#include <cstdint>
#include <functional>
#include <string>

struct CaveRecord;

/// Message colours, blue in the high byte as the screen's colour numbers have it (0xBBGGRR).
namespace colour {
inline constexpr std::uint32_t kWhite = 0xFFFFFF;
inline constexpr std::uint32_t kGreen = 0x00FF00;
inline constexpr std::uint32_t kLightYellow = 0xBFFFFF;
inline constexpr std::uint32_t kCyan = 0xFFFF00;
}  // namespace colour

/// What a running cave asks of its surroundings. Every member may be empty; then nothing is shown, heard or asked, and
/// no key is held. The same rules so run on the screen, in a test, in a tool and in a benchmark.
struct Hooks {
  // Set-up of a cave, in the order in which they are called.
  std::function<void()> layOut;                         // tile size and controls
  std::function<void(const CaveRecord&)> caveRead;      // name, caption
  std::function<void(int tint)> loadTint;               // pictures of a colour set, 0..14
  std::function<void(int columns, int rows)> sizeCave;  // size of the drawing surface in cells
  std::function<void()> showStrip;                      // the strip of heroes: draw it, or hide it for a single hero
  std::function<void(int milliseconds)> setInterval;    // of the tick timer

  // Drawing.
  std::function<void(int x, int y, int picture)> paintCell;
  std::function<void(int x, int y, int picture, int halves)> paintCellTop;  // the upper half (1) or all (2) of a cell
  std::function<void(int x, int y, int picture)> paintOverlay;              // over what the cell shows already
  std::function<void(int step, int picture)> paintTransfer;                 // teleport step 2..5 of the lifted picture
  std::function<void(int hero, int picture)> paintStrip;                    // hero 1..9
  std::function<void(int x, int y)> showCell;  // centre the view on a cell, as far as it goes
  std::function<void()> scrollFreely;          // the arrow keys move the view
  std::function<void(const std::string& text, std::uint32_t colour)> showMessage;
  std::function<void()> flash;                      // the lightning when the exit opens
  std::function<void(std::uint32_t colour)> pulse;  // back colour of the recording light
  std::function<void()> tickDone;                   // counters may have changed

  // Sound: number 0..9 as in the list of waves; yielding sounds start only in silence.
  std::function<void(int sound, bool yielding)> playSound;
  std::function<void(int seconds)> playCountdown;

  // Input.
  std::function<bool(int virtualKey)> keyHeld;            // held now, or pressed since last asked
  std::function<void()> dropKeys;                         // forget what was pressed so far
  std::function<int()> joystickDirection;                 // 0 none, 1 left, 2 up, 3 right, 4 down
  std::function<int()> joystickButtons;                   // bit 0 button 1, bit 1 button 2
  std::function<bool(std::string& line)> readReplayLine;  // false at the end of the replay
  std::function<std::uint64_t()> clock;  // seed of fresh random numbers; absent: they go on by themselves

  // Events.
  std::function<void()> startTimer;
  std::function<void()> stopTimer;
  std::function<void()> pause;      // the box of the key "P"; returns when it is closed
  std::function<void()> idlePause;  // the box after thirty seconds without movement
  std::function<void()> won;
  std::function<void()> restart;
};
