#include "platform/testing_joystick.h"

#include <cmath>
#include <string>

#include "platform/sdl.h"

namespace platform::user {

namespace {

constexpr int kStickButtons = 8;

/// Tells SDL what a user of this pad would have told it.
void MapHatPad(int index) {
  char guid[33];
  SDL_JoystickGetGUIDString(SDL_JoystickGetDeviceGUID(index), guid, sizeof guid);
  const std::string mapping =
      std::string(guid) + ",Pad with a hat,a:b0,b:b1,leftx:a0,lefty:a1,dpup:h0.1,dpright:h0.2,dpdown:h0.4,dpleft:h0.8,";
  SDL_GameControllerAddMapping(mapping.c_str());
}

}  // namespace

VirtualJoystick::VirtualJoystick(Kind kind) : kind_(kind) {
  StartSdl(SDL_INIT_GAMECONTROLLER);
  SDL_VirtualJoystickDesc device{};
  device.version = SDL_VIRTUAL_JOYSTICK_DESC_VERSION;
  device.type = kind == Kind::kStick ? SDL_JOYSTICK_TYPE_FLIGHT_STICK : SDL_JOYSTICK_TYPE_GAMECONTROLLER;
  device.naxes = kind == Kind::kPad ? SDL_CONTROLLER_AXIS_MAX : 2;
  device.nbuttons = kind == Kind::kPad ? SDL_CONTROLLER_BUTTON_MAX : kStickButtons;
  device.nhats = kind == Kind::kPad ? 0 : 1;
  device.vendor_id = 0x1209;  // of nobody
  device.product_id = static_cast<Uint16>(1 + static_cast<int>(kind));
  const int index = SDL_JoystickAttachVirtualEx(&device);
  if (kind == Kind::kPadWithHat) MapHatPad(index);
  id_ = SDL_JoystickInstanceID(SDL_JoystickOpen(index));
}

VirtualJoystick::~VirtualJoystick() {
  SDL_Joystick* stick = SDL_JoystickFromInstanceID(id_);
  for (int i = SDL_NumJoysticks() - 1; i >= 0; --i) {
    if (SDL_JoystickGetDeviceInstanceID(i) == id_) SDL_JoystickDetachVirtual(i);
  }
  SDL_JoystickClose(stick);
  StopSdl(SDL_INIT_GAMECONTROLLER);
}

void VirtualJoystick::Push(double x, double y) {
  const auto value = [](double place) { return static_cast<Sint16>(std::floor(place * 32767.5)); };
  SDL_Joystick* stick = SDL_JoystickFromInstanceID(id_);
  SDL_JoystickSetVirtualAxis(stick, 0, value(x));
  SDL_JoystickSetVirtualAxis(stick, 1, value(y));
}

void VirtualJoystick::PushCross(int x, int y) {
  SDL_Joystick* stick = SDL_JoystickFromInstanceID(id_);
  if (kind_ != Kind::kPad) {
    const int hat = (x < 0) * SDL_HAT_LEFT | (x > 0) * SDL_HAT_RIGHT | (y < 0) * SDL_HAT_UP | (y > 0) * SDL_HAT_DOWN;
    SDL_JoystickSetVirtualHat(stick, 0, static_cast<Uint8>(hat));
    return;
  }
  const auto set = [stick](int button, bool down) { SDL_JoystickSetVirtualButton(stick, button, down ? 1 : 0); };
  set(SDL_CONTROLLER_BUTTON_DPAD_UP, y < 0);
  set(SDL_CONTROLLER_BUTTON_DPAD_DOWN, y > 0);
  set(SDL_CONTROLLER_BUTTON_DPAD_LEFT, x < 0);
  set(SDL_CONTROLLER_BUTTON_DPAD_RIGHT, x > 0);
}

void VirtualJoystick::HoldButtons(unsigned mask) {
  SDL_Joystick* stick = SDL_JoystickFromInstanceID(id_);
  for (int i = 0; i < kStickButtons; ++i) {
    SDL_JoystickSetVirtualButton(stick, i, static_cast<Uint8>(mask >> i & 1));
  }
}

int RealJoysticks() {
  StartSdl(SDL_INIT_JOYSTICK);
  const int count = SDL_NumJoysticks();
  StopSdl(SDL_INIT_JOYSTICK);
  return count;
}

bool JoysticksStarted() { return SDL_WasInit(SDL_INIT_JOYSTICK) != 0; }

}  // namespace platform::user
