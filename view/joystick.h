#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <utility>

#include "platform/joystick.h"

/// Turns the first joystick of the system into a direction and buttons. Directions are told from where the stick was
/// when the game window was laid out, or when the joystick came, so that nothing has to be calibrated.
class JoyStick {
 public:
  /// Fills a record; returns the device's number, another one for every device that comes, or 0 without any.
  using Reader = std::function<int(platform::JoystickRecord&)>;

  explicit JoyStick(Reader joyGetPosEx) : joyGetPosEx_(std::move(joyGetPosEx)) {}

  /// Takes the centre: a stick that is held aside at this moment moves it.
  void JoyInit();
  /// Reads the joystick: 0 none, 1 left, 2 up, 3 right, 4 down. The direction that was taken last wins; two of the same
  /// age give none. A direction counts from 1/sensitivity of the centre's position on.
  int JoyDirection(int sensitivity);
  /// Reads the joystick: the first eight buttons, bit 0 is button 1.
  int JoyButtons();

  platform::JoystickRecord JoyInfo;
  std::uint32_t JoyCenterX = 0;
  std::uint32_t JoyCenterY = 0;
  /// Readings for which left, up, right and down have been held; kNotHeld for one that is not. The last is never used.
  std::array<std::int32_t, 5> JoyAge{};
  static constexpr std::int32_t kNotHeld = 1000;

 private:
  void Read();
  void TakeCentre();

  Reader joyGetPosEx_;
  int device_ = 0;  // whose centre it is
};
