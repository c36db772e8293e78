// The game window: what the rules ask for is tied to it here, and its entry points.

#include "view/form_hra.h"

#include <chrono>
#include <utility>

#include "base/fault.h"
#include "base/lang_str.h"
#include "base/language.h"
#include "cave/cave_text.h"
#include "engine/recording.h"
#include "platform/keys.h"
#include "platform/message_box.h"
#include "platform/sound.h"
#include "view/colours.h"
#include "view/sounds.h"

namespace {

constexpr int kJoystickSensitivity = 2;  // half of the way from the centre to the end
constexpr platform::Colour kLampOut = platform::Rgb(0x2A1010);

std::uint64_t ClockOfTheDay() {
  return static_cast<std::uint64_t>(std::chrono::system_clock::now().time_since_epoch().count());
}

}  // namespace

FormHra::FormHra(std::string programFolder, const Settings& settings)
    : Form(platform::Border::kSizable), folder_(std::move(programFolder)), settings_(settings) {
  MakeHooks();
  MakeControls();
  game.hooks = &hooks_;
  game.settings = &settings_;
  game.random = Random(ClockOfTheDay());
}

void FormHra::MakeHooks() {
  hooks_.layOut = [this] {
    FrmLoad();
    Picture8.set_visible(false);
  };
  hooks_.caveRead = [this](const CaveRecord& record) { ReadCave(record); };
  hooks_.loadTint = [this](int tint) {
    pictures_->LoadTint(tint);
    PaintPanels();
  };
  hooks_.sizeCave = [this](int columns, int rows) {
    painter_.Reset(*pictures_, columns, rows);
    KOMNATA.Resize(columns * pictures_->size(), rows * pictures_->size());
  };
  hooks_.showStrip = [this] { DrawStrip(); };
  hooks_.setInterval = [this](int milliseconds) { tmrHra.set_interval(milliseconds); };
  hooks_.paintCell = [this](int x, int y, int picture) { painter_.PaintCell(x, y, picture); };
  hooks_.paintCellTop = [this](int x, int y, int picture, int halves) { painter_.PaintCellTop(x, y, picture, halves); };
  hooks_.paintOverlay = [this](int x, int y, int picture) { painter_.PaintOverlay(x, y, picture); };
  hooks_.paintTransfer = [this](int step, int picture) { PaintTransfer(step, picture); };
  hooks_.paintStrip = [this](int hero, int picture) { PaintStrip(hero, picture); };
  hooks_.showCell = [this](int x, int y) { MoveSurface(idleft(x), idtop(y)); };
  hooks_.scrollFreely = [this] { ScrollFreely(); };
  hooks_.showMessage = [this](const std::string& text, std::uint32_t colour) { ShowMessage(text, colour); };
  hooks_.flash = [this] {
    ShowCounters();
    Flash();
  };
  hooks_.pulse = [this](std::uint32_t colour) { Picture7.set_back_colour(ScreenColour(colour)); };
  hooks_.tickDone = [this] { ShowCounters(); };
  hooks_.playSound = [this](int sound, bool yielding) {
    platform::PlayWave(folder_ + "/" + SoundFile(sound), yielding);
  };
  hooks_.playCountdown = [this](int seconds) { platform::PlayWave(folder_ + "/" + CountdownFile(seconds)); };
  hooks_.keyHeld = [](int virtualKey) { return platform::Held(virtualKey); };
  hooks_.dropKeys = [] {
    for (int code = 0; code < 256; ++code) platform::Held(code);
  };
  hooks_.joystickDirection = [this] { return joyStick_.JoyDirection(kJoystickSensitivity); };
  hooks_.joystickButtons = [this] { return joyStick_.JoyButtons(); };
  hooks_.clock = ClockOfTheDay;
  hooks_.startTimer = [this] { tmrHra.Start(); };
  hooks_.stopTimer = [this] { StopTick(); };
  hooks_.pause = [this] {
    ShowCounters();
    ShowPause(LangStr[text::kPauseText], HeroName);
  };
  hooks_.idlePause = [this] {
    ShowCounters();
    ShowPause(LangStr[text::kIdlePauseText], LangStr[text::kIdlePauseTitle]);
  };
  hooks_.readReplayLine = [this](std::string& line) { return ReadReplayLine(line); };
  hooks_.won = [this] { WinGame(); };
  hooks_.restart = [this] {
    if (!wonInThisTick_) Command3_Click();  // the keys may have been pressed while the sum was on show
  };
}

// --- Entry points --------------------

void FormHra::OpenCave(int n) {
  pctBlesk.set_visible(false);
  const std::string text = LoadCaveText(SetFile, n);
  game.PlayingReplay = false;
  game.TestPlay = false;
  try {
    PaintCave(text);
  } catch (const Fault& fault) {
    throw Fault("cave " + std::to_string(n) + ": " + fault.what(), SetFile);
  }
}

void FormHra::PaintCave(const std::string& caveText) {
  if (caveText.empty()) {
    Hide();
    if (hideOverview) hideOverview();
  }
  game.PaintCave(caveText);
  chkRec.set_value(game.chkRec);
  chkRec.set_enabled(!game.TestPlay);
  chkRec.set_visible(!game.PlayingReplay);
  Image2.set_visible(game.PlayingReplay);
  Label5.set_visible(game.PlayingReplay);
  Picture7.set_back_colour(kLampOut);
  ShowCounters();
  game.ZornéPole();
  PlaceStartPanel();
  Picture5.set_visible(true);
}

void FormHra::Command1_Click() {
  Picture5.set_visible(false);
  Picture8.set_visible(false);
  Command3.set_visible(true);
  game.Command1_Click();
}

void FormHra::Command3_Click() { RestartGame_Click(); }

void FormHra::RestartGame_Click() {
  restartAsked_ = false;
  game.RecordBuffer.clear();
  if (!game.PlayingReplay) {
    if (restartCave) restartCave();
    return;
  }
  game.Score = 0;
  Replay();
}

void FormHra::Command4_Click() {
  const bool running = tmrHra.enabled();
  tmrHra.Stop();
  if (showSettings) showSettings();
  game.ProjedKlv();  // what was pressed in the dialog moves nobody
  tmrHra.set_enabled(running);
}

void FormHra::SetSpeed() {
  const int speed = game.PlayingReplay ? settings_.RychlostZ : settings_.Rychlost;
  tmrHra.set_interval((speed - 1) * 20 + 1);
}

void FormHra::EndGame_Click() {
  StopTick();
  tmrSeconds.Stop();
  Hide();
  if (leave) leave();
}

/// Stops the tick for good: a window that comes back from its icon does not start it again.
void FormHra::StopTick() {
  tmrHra.Stop();
  stoppedByMinimise_ = false;
  restartAsked_ = false;
}

bool FormHra::Form_QueryUnload() {
  EndGame_Click();
  return false;  // the form lives on, hidden
}

void FormHra::Form_Resize() {
  Frame1.MoveTo((width() - Frame1.width()) / 2, (height() - Frame1.height()) / 2);
  if (window_state() == platform::WindowState::kMinimised) {
    stoppedByMinimise_ = stoppedByMinimise_ || tmrHra.enabled();
    tmrHra.Stop();
  } else if (stoppedByMinimise_) {
    stoppedByMinimise_ = false;
    tmrHra.Start();
  }
}

// A win may set up the next cave, so it is told only when the tick has run to its end.
void FormHra::tmrHra_Timer() {
  try {
    game.tmrHra_Timer();
  } catch (const Fault& fault) {
    wonInThisTick_ = false;
    if (game.PlayingReplay) {
      TellReplayFault("line " + std::to_string(replayNext_ + kFirstTickLine - 1) + ": " + fault.what());
    } else if (game.TestPlay) {
      LeaveTestPlay(fault);
    } else {
      throw;
    }
    return;
  }
  ShowHint();
  if (restartAsked_ && !wonInThisTick_) Command3_Click();
  if (!std::exchange(wonInThisTick_, false)) return;
  if (!game.PlayingReplay && !game.TestPlay && caveWon) caveWon();
}

/// The author goes on with the cave: the set that it belongs to may not be saved yet.
void FormHra::LeaveTestPlay(const Fault& fault) {
  StopTick();
  TellFault(fault);
  EndGame_Click();
}

/// A joystick that is not wanted is left alone: nothing of it is started, and it may sleep.
int FormHra::ReadJoystick(platform::JoystickRecord& record) {
  if (settings_.Joystick != 0) return joystick_.Read(record);
  joystick_.Close();
  return 0;
}

void FormHra::KeyDown(platform::KeyEvent& event) {
  if (event.repeated) return;  // a key still held from the cave before starts nothing
  switch (event.code) {
    case platform::kKeyEnter:
    case platform::kKeySpace:
      if (Picture5.visible()) {
        Command1_Click();
      } else if (Picture8.visible() && event.code == platform::kKeyEnter) {
        Command3_Click();  // nothing is left to do but that; Space may still be struck to act
      }
      break;
    case platform::kKeyEscape:
      EndGame_Click();
      break;
    case platform::kF1 + 9:
      Command4_Click();
      break;
    case key::kR:
      // The tick sees the two keys only while they are held. A chord struck and let go between two ticks counts, too.
      restartAsked_ = restartAsked_ || (tmrHra.enabled() && (event.shift & platform::kCtrl) != 0);
      break;
    default:
      break;
  }
}
