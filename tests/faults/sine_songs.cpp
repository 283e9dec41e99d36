#include "faults/sine_songs.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <numbers>

#include "support/signal.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {

// No number of frames that a buffer may have is a whole number of their periods.
constexpr std::array kHertz = {997.3, 1502.7};
constexpr double kPeak = 0.4;   // two at once stay below full scale
constexpr double kFade = 0.02;  // seconds
// Rounding to 16 bits leaves at most 8; a sine that jumps by a tenth of a radian leaves thousands.
constexpr double kBreak = 100;
constexpr std::size_t kSamePlace = kSampleRate / 20;
constexpr std::size_t kSilence = kSampleRate / 100;

double turn_of(double hertz) { return 2 * std::numbers::pi * hertz / kSampleRate; }

bool is_silent(const Sample16& frame) { return frame.left == 0 && frame.right == 0; }

// What is left of the left channel when both sines are taken out of it: each is the only sound that a filter with the
// taps 1, -2 cos(turn), 1 takes out whole.
class Rest {
 public:
  double next(double sample) {
    for (std::size_t i = 0; i < kHertz.size(); ++i) {
      auto& [before, earlier] = past_[i];
      const double out = sample - 2 * std::cos(turn_of(kHertz[i])) * before + earlier;
      earlier = before;
      before = sample;
      sample = out;
    }
    return sample;
  }

 private:
  std::array<std::array<double, 2>, kHertz.size()> past_{};
};

}  // namespace

Bytes sine_song(std::size_t number, double seconds) {
  const double hertz = kHertz[number % kHertz.size()];
  const auto frames = static_cast<std::size_t>(seconds * kSampleRate);
  Signal song{kSampleRate, 2, Samples(2 * frames)};
  for (std::size_t i = 0; i < frames; ++i) {
    const double to_end = static_cast<double>(std::min(i, frames - 1 - i)) / kSampleRate;
    const double fade = to_end >= kFade ? 1 : 0.5 - 0.5 * std::cos(std::numbers::pi * to_end / kFade);
    song.samples[2 * i] = kPeak * fade * std::sin(turn_of(hertz) * static_cast<double>(i));
    song.samples[2 * i + 1] = song.samples[2 * i];
  }
  return wav_file(song, Encoding::kInt16);
}

Heard listen(std::span<const Sample16> recording) {
  Heard heard;
  const auto first = std::find_if_not(recording.begin(), recording.end(), is_silent);
  const auto last = std::find_if_not(recording.rbegin(), recording.rend(), is_silent).base();
  if (first == recording.end()) return heard;
  heard.begin = static_cast<std::size_t>(first - recording.begin());
  heard.end = static_cast<std::size_t>(last - recording.begin());
  Rest rest;
  std::size_t silent = 0;
  std::size_t quiet_until = 0;  // of the place that was counted last
  for (std::size_t i = heard.begin; i < heard.end; ++i) {
    silent = is_silent(recording[i]) ? silent + 1 : 0;
    heard.longest_silence = std::max(heard.longest_silence, silent);
    if (std::abs(rest.next(recording[i].left)) < kBreak) continue;
    if (i >= quiet_until) heard.breaks.push_back(i);
    quiet_until = i + kSamePlace;
  }
  return heard;
}

std::vector<Sample16> without_silences(std::span<const Sample16> recording) {
  std::vector<Sample16> kept;
  std::size_t silent = 0;
  for (const Sample16& frame : recording) {
    silent = is_silent(frame) ? silent + 1 : 0;
    kept.push_back(frame);
    if (silent == kSilence) kept.resize(kept.size() - kSilence);
    if (silent > kSilence) kept.pop_back();
  }
  return kept;
}

}  // namespace tandem::test
