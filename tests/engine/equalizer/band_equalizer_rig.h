// What the tests of the equalizer share: bands, noise, and an equalizer whose filters are accounted for.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <span>
#include <vector>

#include "engine/equalizer/band_equalizer.h"
#include "engine/equalizer/filter_design.h"

namespace tandem::equalizer_test {

using Sound = std::vector<StereoFrame>;

inline constexpr std::size_t kDelay = BandEqualizer::kDelay;
inline constexpr std::size_t kFade = BandEqualizer::kFadeFrames;

// Bands with 900 Hz in the middle one.
inline std::vector<EqualizerBand> bands_of(double low, double middle, double high) {
  return {{0, 630, low}, {630, 1200, middle}, {1200, 20000, high}};
}

inline Sound seeded_noise(std::size_t frames, unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> level(-1.0F, 1.0F);
  Sound sound(frames);
  for (StereoFrame& frame : sound) frame = {level(random), level(random)};
  return sound;
}

// Owns the filters given to an equalizer and checks that each comes back once.
class Rig {
 public:
  void adopt(const std::vector<EqualizerBand>& bands) { adopt_own(design_filter(bands).release()); }
  void adopt_taps(std::span<const float> taps) { adopt_own(new EqualizerFilter(taps)); }

  void play(std::span<StereoFrame> sound) {
    equalizer.process(sound);
    collect();
  }

  // In the chain's steps; `each` is called before every step with its first frame.
  template <class Each>
  void play_steps(Sound& sound, Each each) {
    for (std::size_t n = 0; n < sound.size(); n += kStepFrames) {
      each(n);
      play(std::span(sound).subspan(n, std::min<std::size_t>(kStepFrames, sound.size() - n)));
    }
  }
  void play_steps(Sound& sound) {
    play_steps(sound, [](std::size_t) {});
  }

  void collect() {
    while (const EqualizerFilter* const filter = equalizer.take_retired()) {
      ASSERT_EQ(out_.erase(filter), 1U) << "a filter came back that was not out";
      delete filter;
    }
  }
  std::size_t filters_out() const { return out_.size(); }

  ~Rig() {
    for (const EqualizerFilter* filter : out_) delete filter;
  }

  BandEqualizer equalizer;

 private:
  void adopt_own(const EqualizerFilter* filter) {
    if (filter != nullptr) out_.insert(filter);
    equalizer.adopt(filter);
    collect();
  }

  std::set<const EqualizerFilter*> out_;
};

}  // namespace tandem::equalizer_test
