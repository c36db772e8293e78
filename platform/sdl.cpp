#include "platform/sdl.h"

#include <QCoreApplication>
#include <mutex>

namespace platform {

namespace {

// Never destroyed: a thread may still be inside when the program ends.
std::mutex& Gate() {
  static std::mutex& gate = *new std::mutex;
  return gate;
}

/// Behind the gate.
bool Start(Uint32 part) {
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_APP_NAME, QCoreApplication::applicationName().toUtf8().constData());  // in the mixer
  SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
  // Pads are left to the system's drivers: those of SDL talk to some for a second when they come.
  SDL_SetHint(SDL_HINT_JOYSTICK_HIDAPI, "0");
  SDL_SetHint(SDL_HINT_JOYSTICK_ALLOW_BACKGROUND_EVENTS, "1");  // SDL has no window of its own here
  return SDL_InitSubSystem(part) == 0;
}

}  // namespace

bool StartSdl(Uint32 part) {
  const std::lock_guard lock(Gate());
  return Start(part);
}

bool TryStartSdl(Uint32 part) {
  const std::unique_lock lock(Gate(), std::try_to_lock);
  return lock && Start(part);
}

bool TryStopSdl(Uint32 part) {
  const std::unique_lock lock(Gate(), std::try_to_lock);
  if (lock) SDL_QuitSubSystem(part);
  return lock.owns_lock();
}

void StopSdl(Uint32 part) {
  const std::lock_guard lock(Gate());
  SDL_QuitSubSystem(part);
}

}  // namespace platform
