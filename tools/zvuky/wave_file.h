#pragma once

#include <string>
#include <string_view>

#include "synth.h"

/// The bytes of a wave file: 44.1 kHz, 16 bits, mono.
std::string WaveBytes(const synth::Sound& sound);

/// The sound in a wave file of this kind. Throws Fault for any other; name: of the file, for the message.
synth::Sound WaveSound(std::string_view bytes, const std::string& name);
