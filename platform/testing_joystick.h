#pragma once

namespace platform::user {

/// A joystick that is plugged in while this exists, and what its user does with it.
class VirtualJoystick {
 public:
  enum class Kind {
    kStick,      // two axes, eight buttons, a hat
    kPad,        // two sticks, a D-pad that the system has as buttons
    kPadWithHat  // one that it has as a hat
  };

  explicit VirtualJoystick(Kind kind);
  VirtualJoystick(const VirtualJoystick&) = delete;
  VirtualJoystick& operator=(const VirtualJoystick&) = delete;
  ~VirtualJoystick();

  /// Holds the stick at a place from -1 (left, up) to 1.
  void Push(double x, double y);
  /// Holds the hat or D-pad to a side: -1, 0 or 1.
  void PushCross(int x, int y);
  /// Holds these buttons and no others. mask: bit 0 is button 1, on a pad A; bit 1 is button 2, B.
  void HoldButtons(unsigned mask);

 private:
  Kind kind_;
  int id_ = 0;  // SDL's
};

/// Joysticks of the machine itself, which would be in the way of virtual ones.
int RealJoysticks();
/// Somebody has started what joysticks need.
bool JoysticksStarted();

}  // namespace platform::user
