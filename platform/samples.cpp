#include "platform/samples.h"

#include <SDL.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <memory>

#include "base/files.h"

namespace platform {

namespace {

// Wave files come from strangers: these bounds keep every size below far from its limits.
constexpr std::uintmax_t kLargestFile = 16 << 20;
constexpr int kLongest = 60;  // seconds
constexpr int kLowestRate = 1000;
constexpr int kHighestRate = 192000;
constexpr std::size_t kLargestBuffer = 128 << 20;  // bytes, for the conversion

/// What SDL made of a wave file.
struct Wave {
  SDL_AudioSpec spec{};
  std::unique_ptr<Uint8, decltype(&SDL_FreeWAV)> data{nullptr, SDL_FreeWAV};
  Uint32 size = 0;

  bool Fits() const {
    if (!data || spec.freq < kLowestRate || spec.freq > kHighestRate || spec.channels == 0) return false;
    const Uint32 second = static_cast<Uint32>(spec.freq) * spec.channels * (SDL_AUDIO_BITSIZE(spec.format) / 8u);
    return size / second < kLongest;
  }
};

Wave Parse(const std::string& bytes) {
  Wave wave;
  SDL_RWops* reader = SDL_RWFromConstMem(bytes.data(), static_cast<int>(bytes.size()));
  if (reader == nullptr) return wave;  // nothing to read
  Uint8* data = nullptr;
  if (SDL_LoadWAV_RW(reader, 1, &wave.spec, &data, &wave.size) != nullptr) wave.data.reset(data);
  return wave;
}

Samples Converted(const Wave& wave) {
  SDL_AudioCVT steps;
  const SDL_AudioSpec& from = wave.spec;
  if (SDL_BuildAudioCVT(&steps, from.format, from.channels, from.freq, AUDIO_F32SYS, kChannels, kSampleRate) < 0) {
    return {};
  }
  steps.len = static_cast<int>(wave.size);
  const std::size_t room = std::size_t{wave.size} * static_cast<std::size_t>(steps.len_mult);
  if (room > kLargestBuffer) return {};
  std::vector<Uint8> buffer(room);
  std::memcpy(buffer.data(), wave.data.get(), wave.size);
  steps.buf = buffer.data();
  steps.len_cvt = steps.len;  // stays when there is nothing to convert
  if (steps.needed != 0 && SDL_ConvertAudio(&steps) < 0) return {};
  Samples samples(static_cast<std::size_t>(steps.len_cvt) / (sizeof(float) * kChannels) * kChannels);
  if (!samples.empty()) std::memcpy(samples.data(), buffer.data(), samples.size() * sizeof(float));
  return samples;
}

}  // namespace

Samples LoadWave(const std::string& path) {
  const std::string file = FindPath(path);
  std::error_code unreadable;
  if (file.empty() || !std::filesystem::is_regular_file(file, unreadable)) return {};
  const std::uintmax_t size = std::filesystem::file_size(file, unreadable);
  if (unreadable || size > kLargestFile) return {};
  const Wave wave = Parse(ReadFile(file));
  return wave.Fits() && wave.size > 0 ? Converted(wave) : Samples{};
}

}  // namespace platform
