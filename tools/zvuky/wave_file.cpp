#include "wave_file.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

#include "base/fault.h"

namespace {

constexpr int kBytes = 2;  // of a sample
constexpr double kFull = 32767;

void Put(std::string& bytes, std::uint32_t value, int count) {
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
}

/// The header that every file of this kind has; little endian.
std::string Header(std::size_t samples) {
  const auto size = static_cast<std::uint32_t>(samples * kBytes);
  std::string bytes = "RIFF";
  Put(bytes, 36 + size, 4);
  bytes += "WAVEfmt ";
  Put(bytes, 16, 4);                     // size of the format
  Put(bytes, 1, 2);                      // plain samples
  Put(bytes, 1, 2);                      // channels
  Put(bytes, synth::kRate, 4);           // samples a second
  Put(bytes, synth::kRate * kBytes, 4);  // bytes a second
  Put(bytes, kBytes, 2);                 // bytes a sample of all channels
  Put(bytes, 8 * kBytes, 2);             // bits a sample
  bytes += "data";
  Put(bytes, size, 4);
  return bytes;
}

}  // namespace

std::string WaveBytes(const synth::Sound& sound) {
  std::string bytes = Header(sound.size());
  for (const double sample : sound) {
    const auto value = static_cast<std::int16_t>(std::lround(std::clamp(sample, -1.0, 1.0) * kFull));
    Put(bytes, static_cast<std::uint16_t>(value), kBytes);
  }
  return bytes;
}

synth::Sound WaveSound(std::string_view bytes, const std::string& name) {
  const std::size_t header = Header(0).size();
  const std::size_t samples = bytes.size() < header ? 0 : (bytes.size() - header) / kBytes;
  if (!bytes.starts_with(Header(samples))) throw Fault("This is no wave file of 44.1 kHz, 16 bits, mono.", name);
  synth::Sound sound;
  for (std::size_t i = 0; i < samples; ++i) {
    const auto low = static_cast<unsigned char>(bytes[header + kBytes * i]);
    const auto high = static_cast<unsigned char>(bytes[header + kBytes * i + 1]);
    sound.push_back(static_cast<std::int16_t>(low | high << 8) / kFull);
  }
  return sound;
}
