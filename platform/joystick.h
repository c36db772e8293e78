#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace platform {

/// What is read of a joystick. The first two fields are the reader's: only a record that says its size and asks for all
/// fields is filled.
struct JoystickRecord {
  static constexpr std::uint32_t kSize = 64;
  static constexpr std::uint32_t kAllFields = 255;

  std::uint32_t size = 0;
  std::uint32_t flags = 0;
  std::uint32_t x = 0;                  // 0 (left) to 65535 (right)
  std::uint32_t y = 0;                  // 0 (up) to 65535 (down)
  std::array<std::uint32_t, 4> axes{};  // the next four, 0 to 65535
  std::uint32_t buttons = 0;            // bit 0: button 1, and so on
};

/// The first joystick of the system. A stick gives its first two axes and its hat, a pad its left stick and its D-pad,
/// as one position: hat and D-pad beat the stick. A pad's A is button 1, B is button 2.
class Joystick {
 public:
  Joystick();
  Joystick(const Joystick&) = delete;
  Joystick& operator=(const Joystick&) = delete;
  ~Joystick();

  /// Fills the record with what the joystick does now. Returns the device's number in the order in which they came,
  /// from 1: another one than before is another device, or the same one plugged in again. 0 when there is none or the
  /// program is not in front; the record stays as it is then. Starts what it needs when first called, and never waits.
  int Read(JoystickRecord& record);
  /// Lets go of the joystick and of what was started for it. The next reading begins anew, with a new number.
  void Close();

 private:
  struct Work;
  std::unique_ptr<Work> work_;
};

}  // namespace platform
