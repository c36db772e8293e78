#pragma once

// For the sources of this folder alone.

#include <cstdint>

#include "platform/voice.h"

namespace platform {

/// The sound device and what sounds on it. For one thread; the device calls back from one of its own.
class SoundDevice {
 public:
  SoundDevice() = default;
  SoundDevice(const SoundDevice&) = delete;
  SoundDevice& operator=(const SoundDevice&) = delete;
  ~SoundDevice() { Close(); }

  /// Makes sure that the device is open; one that has been unplugged is opened anew. Takes as long as the system takes,
  /// seconds at worst. False when there is none.
  bool Open();
  /// Lets what sounds fade, then lets go of the device.
  void Close();
  bool open() const { return id_ != 0; }

  // Of an open device; a closed one stays silent.
  bool sounding();
  /// Cuts what sounds. The wave has to stay where it is.
  void Play(const Samples& wave);

 private:
  static void Fill(void* device, std::uint8_t* bytes, int count);
  bool Fading();

  std::uint32_t id_ = 0;  // 0: closed
  Voice voice_;           // shared with the device's thread, under the device's lock
};

}  // namespace platform
