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

}  // namespace

bool StartSdl(Uint32 part) {
  const std::lock_guard lock(Gate());
  SDL_SetHint(SDL_HINT_NO_SIGNAL_HANDLERS, "1");
  SDL_SetHint(SDL_HINT_APP_NAME, QCoreApplication::applicationName().toUtf8().constData());  // in the mixer
  SDL_SetHint(SDL_HINT_AUDIO_DEVICE_STREAM_ROLE, "game");
  return SDL_InitSubSystem(part) == 0;
}

void StopSdl(Uint32 part) {
  const std::lock_guard lock(Gate());
  SDL_QuitSubSystem(part);
}

}  // namespace platform
