#pragma once

// For the sources of this folder alone.

#include <SDL.h>

namespace platform {

/// Starts a part of SDL (SDL_INIT_AUDIO, ...), counted: as many calls of StopSdl end it. False when it cannot be had.
/// May be called from any thread; SDL itself would not bear that. Signals stay as they are: Ctrl+C still ends the
/// program.
bool StartSdl(Uint32 part);
void StopSdl(Uint32 part);

/// The same for a thread that must not wait: while another one is inside, nothing is done. False when nothing was done
/// or the part cannot be had.
bool TryStartSdl(Uint32 part);
bool TryStopSdl(Uint32 part);

}  // namespace platform
