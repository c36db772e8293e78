#include "platform/sound_device.h"

#include <dlfcn.h>

#include "platform/sdl.h"

namespace platform {

namespace {

constexpr Uint16 kBuffer = 512;  // frames, 12 ms

/// Holds the device's thread off what it shares with us.
class DeviceLock {
 public:
  explicit DeviceLock(SDL_AudioDeviceID id) : id_(id) { SDL_LockAudioDevice(id_); }
  DeviceLock(const DeviceLock&) = delete;
  DeviceLock& operator=(const DeviceLock&) = delete;
  ~DeviceLock() { SDL_UnlockAudioDevice(id_); }

 private:
  SDL_AudioDeviceID id_;
};

extern "C" void SayNothing(const char*, int, const char*, int, const char*, ...) {}

/// ALSA's library tells on standard error what it misses. It is there if SDL uses it, and we do not need it otherwise.
void HushAlsa() {
  using Handler = void (*)(const char*, int, const char*, int, const char*, ...);
  using SetHandler = int (*)(Handler);
  void* symbol = dlsym(RTLD_DEFAULT, "snd_lib_error_set_handler");
  if (symbol != nullptr) reinterpret_cast<SetHandler>(symbol)(SayNothing);
}

}  // namespace

bool SoundDevice::Open() {
  if (open() && SDL_GetAudioDeviceStatus(id_) != SDL_AUDIO_STOPPED) return true;
  Close();
  HushAlsa();
  if (!StartSdl(SDL_INIT_AUDIO)) return false;
  SDL_AudioSpec wanted{};
  wanted.freq = kSampleRate;
  wanted.format = AUDIO_F32SYS;
  wanted.channels = kChannels;
  wanted.samples = kBuffer;
  wanted.callback = Fill;
  wanted.userdata = this;
  id_ = SDL_OpenAudioDevice(nullptr, 0, &wanted, nullptr, 0);
  if (!open()) {
    StopSdl(SDL_INIT_AUDIO);
    return false;
  }
  SDL_PauseAudioDevice(id_, 0);
  return true;
}

void SoundDevice::Close() {
  if (!open()) return;
  {
    const DeviceLock lock(id_);
    voice_.Cut();
  }
  constexpr int kPatience = 250;  // milliseconds; a busy machine needs some, a device that hangs fades nothing
  for (int i = 0; i < kPatience && Fading(); ++i) SDL_Delay(1);
  SDL_CloseAudioDevice(id_);
  StopSdl(SDL_INIT_AUDIO);
  id_ = 0;
  voice_ = {};
}

bool SoundDevice::sounding() {
  if (!open()) return false;
  const DeviceLock lock(id_);
  return voice_.sounding();
}

void SoundDevice::Play(const Samples& wave) {
  if (!open()) return;
  const DeviceLock lock(id_);
  voice_.Start(wave);
}

bool SoundDevice::Fading() {
  const DeviceLock lock(id_);
  return !voice_.silent();
}

void SoundDevice::Fill(void* device, std::uint8_t* bytes, int count) {
  auto* samples = reinterpret_cast<float*>(bytes);
  static_cast<SoundDevice*>(device)->voice_.Render({samples, static_cast<std::size_t>(count) / sizeof(float)});
}

}  // namespace platform
