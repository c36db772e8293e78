#include "view/joystick.h"

void JoyStick::JoyInit() {
  JoyInfo.size = platform::JoystickRecord::kSize;
  JoyInfo.flags = platform::JoystickRecord::kAllFields;
  device_ = joyGetPosEx_(JoyInfo);
  TakeCentre();
}

void JoyStick::TakeCentre() {
  JoyCenterX = JoyInfo.x;
  JoyCenterY = JoyInfo.y;
}

/// One that has just come is at rest where it is. Without any the record would stay as it was and the hero run on for
/// ever when the joystick is unplugged in full flight: it is at rest, then.
void JoyStick::Read() {
  const int device = joyGetPosEx_(JoyInfo);
  if (device == 0) {
    JoyInfo.x = JoyCenterX;
    JoyInfo.y = JoyCenterY;
    JoyInfo.buttons = 0;
  } else if (device != device_) {
    device_ = device;
    TakeCentre();
  }
}

int JoyStick::JoyDirection(int sensitivity) {
  Read();
  const double k = 1.0 / sensitivity;
  // One that has been held for so long that its age says "not held" begins anew, as the newest.
  const auto count = [this](std::size_t direction, bool held) {
    std::int32_t& age = JoyAge[direction];
    if (age == kNotHeld) age = 0;
    age = held ? age + 1 : kNotHeld;
  };
  count(0, JoyInfo.x < JoyCenterX * (1 - k));
  count(2, JoyInfo.x > JoyCenterX * (1 + k));
  count(1, JoyInfo.y < JoyCenterY * (1 - k));
  count(3, JoyInfo.y > JoyCenterY * (1 + k));
  int result = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    const std::int32_t age = JoyAge[i];
    if (age < JoyAge[(i + 1) % 4] && age < JoyAge[(i + 2) % 4] && age < JoyAge[(i + 3) % 4]) {
      result = static_cast<int>(i) + 1;
    }
  }
  return result;
}

int JoyStick::JoyButtons() {
  Read();
  return static_cast<int>(JoyInfo.buttons & 0xFF);
}
