#include "platform/joystick.h"

#include <algorithm>
#include <optional>

#include "platform/key_state.h"
#include "platform/sdl.h"

namespace platform {

namespace {

constexpr std::uint32_t kMiddle = 32768;
constexpr std::uint32_t kEnd = 65535;

constexpr std::array kPadButtons = {
    SDL_CONTROLLER_BUTTON_A,
    SDL_CONTROLLER_BUTTON_B,
    SDL_CONTROLLER_BUTTON_X,
    SDL_CONTROLLER_BUTTON_Y,
    SDL_CONTROLLER_BUTTON_LEFTSHOULDER,
    SDL_CONTROLLER_BUTTON_RIGHTSHOULDER,
    SDL_CONTROLLER_BUTTON_BACK,
    SDL_CONTROLLER_BUTTON_START,
    SDL_CONTROLLER_BUTTON_LEFTSTICK,
    SDL_CONTROLLER_BUTTON_RIGHTSTICK,
    SDL_CONTROLLER_BUTTON_GUIDE,
};

/// An open device. A pad is one whose layout SDL knows.
class Device {
 public:
  explicit Device(int index)
      : pad_(SDL_IsGameController(index) ? SDL_GameControllerOpen(index) : nullptr),
        stick_(pad_ ? SDL_GameControllerGetJoystick(pad_) : SDL_JoystickOpen(index)) {}
  Device(const Device&) = delete;
  Device& operator=(const Device&) = delete;
  ~Device() {
    if (pad_) {
      SDL_GameControllerClose(pad_);
    } else if (stick_) {
      SDL_JoystickClose(stick_);
    }
  }

  bool attached() const { return stick_ && SDL_JoystickGetAttached(stick_); }

  void Read(JoystickRecord& record) {
    const int cross = Cross();
    record.x = Position(0, cross & SDL_HAT_LEFT, cross & SDL_HAT_RIGHT);
    record.y = Position(1, cross & SDL_HAT_UP, cross & SDL_HAT_DOWN);
    for (std::size_t i = 0; i < record.axes.size(); ++i) record.axes[i] = Axis(static_cast<int>(i) + 2);
    record.buttons = Buttons();
  }

 private:
  /// The two sticks and the triggers of a pad have the numbers that the axes of a stick have.
  std::uint32_t Axis(int number) const {
    const Sint16 value = pad_ ? SDL_GameControllerGetAxis(pad_, static_cast<SDL_GameControllerAxis>(number))
                              : SDL_JoystickGetAxis(stick_, number);
    return static_cast<std::uint32_t>(value + static_cast<int>(kMiddle));
  }

  /// The hat or the D-pad, as bits SDL_HAT_...
  int Cross() const {
    if (!pad_) return SDL_JoystickNumHats(stick_) > 0 ? SDL_JoystickGetHat(stick_, 0) : SDL_HAT_CENTERED;
    const auto bit = [this](SDL_GameControllerButton button, int hat) {
      return SDL_GameControllerGetButton(pad_, button) ? hat : 0;
    };
    return bit(SDL_CONTROLLER_BUTTON_DPAD_LEFT, SDL_HAT_LEFT) | bit(SDL_CONTROLLER_BUTTON_DPAD_RIGHT, SDL_HAT_RIGHT) |
           bit(SDL_CONTROLLER_BUTTON_DPAD_UP, SDL_HAT_UP) | bit(SDL_CONTROLLER_BUTTON_DPAD_DOWN, SDL_HAT_DOWN);
  }

  /// An axis that has not moved since it was plugged in is at its low end for the system, whatever the stick does: it
  /// counts as being in the middle until it moves.
  std::uint32_t Position(std::size_t axis, bool low, bool high) {
    const std::uint32_t position = Axis(static_cast<int>(axis));
    moved_[axis] = moved_[axis] || position > 1;
    if (low != high) return low ? 0 : kEnd;
    return moved_[axis] ? position : kMiddle;
  }

  std::uint32_t Buttons() const {
    std::uint32_t mask = 0;
    const int count = pad_ ? static_cast<int>(kPadButtons.size()) : std::min(SDL_JoystickNumButtons(stick_), 32);
    for (int i = 0; i < count; ++i) {
      const bool down = pad_ ? SDL_GameControllerGetButton(pad_, kPadButtons[static_cast<std::size_t>(i)])
                             : SDL_JoystickGetButton(stick_, i);
      if (down) mask |= std::uint32_t{1} << i;
    }
    return mask;
  }

  SDL_GameController* pad_;
  SDL_Joystick* stick_;
  std::array<bool, 2> moved_{};  // the first two axes
};

}  // namespace

struct Joystick::Work {
  bool started = false;
  int devices = 0;  // that have come so far
  std::optional<Device> device;

  bool Start();
  bool Find();
};

/// Nobody takes events here: all is asked for, so none may pile up.
bool Joystick::Work::Start() {
  if (started) return true;
  started = TryStartSdl(SDL_INIT_GAMECONTROLLER);
  if (!started) return false;
  SDL_JoystickEventState(SDL_IGNORE);
  SDL_GameControllerEventState(SDL_IGNORE);
  return true;
}

/// Brings the state of all devices up to date and keeps the open one until it is gone. False when there is none.
bool Joystick::Work::Find() {
  SDL_JoystickUpdate();
  if (device && !device->attached()) device.reset();
  if (device) return true;
  if (SDL_NumJoysticks() == 0) return false;
  device.emplace(0);
  if (!device->attached()) return false;
  ++devices;
  SDL_JoystickUpdate();  // where its axes are
  return true;
}

Joystick::Joystick() : work_(std::make_unique<Work>()) {}

Joystick::~Joystick() { Close(); }

int Joystick::Read(JoystickRecord& record) {
  if (record.size != JoystickRecord::kSize || record.flags != JoystickRecord::kAllFields) return 0;
  if (!ProgramActive() || !work_->Start() || !work_->Find()) return 0;
  work_->device->Read(record);
  return work_->devices;
}

void Joystick::Close() {
  work_->device.reset();
  if (work_->started && TryStopSdl(SDL_INIT_GAMECONTROLLER)) work_->started = false;
}

}  // namespace platform
