#include "bench/piece_of_music.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace tandem {

namespace {

constexpr std::size_t kHeader = 44;

// PCM, stereo, 44.1 kHz, 16 bits, in a header without anything else before the samples.
bool is_as_expected(const std::array<unsigned char, kHeader>& header) {
  const auto number = [&](std::size_t at) { return header[at] | header[at + 1] << 8; };
  return number(20) == 1 && number(22) == 2 && number(24) == 44100 && number(34) == 16 && header[36] == 'd';
}

}  // namespace

std::vector<SoundFrame> piece_of_music(const char* path, double second, double seconds) {
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) return {};
  std::array<unsigned char, kHeader> header{};
  if (std::fread(header.data(), 1, kHeader, file) != kHeader || !is_as_expected(header)) {
    std::fclose(file);
    return {};
  }
  std::fseek(file, static_cast<long>(kHeader) + static_cast<long>(second * kHeardRate) * 4, SEEK_SET);
  std::vector<std::array<std::int16_t, 2>> samples(static_cast<std::size_t>(seconds * kHeardRate));
  samples.resize(std::fread(samples.data(), sizeof samples[0], samples.size(), file));
  std::fclose(file);
  std::vector<SoundFrame> sound;
  sound.reserve(samples.size());
  for (const auto& [left, right] : samples)
    sound.push_back({static_cast<float>(left) / 32768.0F, static_cast<float>(right) / 32768.0F});
  return sound;
}

}  // namespace tandem
