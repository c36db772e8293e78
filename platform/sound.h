#pragma once

#include <string>

namespace platform {

/// Plays a wave file, one at a time: a new sound cuts the one that sounds, but a yielding one does nothing while
/// another still sounds. Returns at once and never fails: without a device, or for a file that is missing, no wave file
/// or too large, nothing is heard, and what sounds goes on. Names are found regardless of case. A file is read once, a
/// device is looked for at the first sound.
void PlayWave(const std::string& path, bool yielding = false);

/// Ends what sounds and lets go of the device and of all files. The next sound starts anew. The end of the program does
/// this by itself, also when the program quits at once.
void StopSound();

}  // namespace platform
