// Attacks in ten songs at shifted pitch: each onset that is there before must be there after.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>

#include "engine/pitch_deck.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace tandem::report {

namespace {

constexpr std::size_t kSeconds = 12;
constexpr std::size_t kFrame = 441;   // 10 ms
constexpr double kAttack = 2.5;       // an onset: the level rises by so much (amplitude) within 20 ms
constexpr std::ptrdiff_t kReach = 3;  // frames to either side in which it must come again
constexpr std::array<int, 4> kValues{-10, -3, 3, 10};

struct Song {
  Sound sound;
  std::vector<std::size_t> onsets;  // in frames of 10 ms
};

// A chord with drums on a grid: tempo, key and density differ from song to song.
Song song(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0.0, 1.0);
  const double beat = 60.0 / (90.0 + 9.0 * seed);
  const double root = 110.0 * std::exp2(seed / 12.0);
  Song made{mono(kSeconds * kSecond,
                 [&](std::size_t n) {
                   double value = 0.0;
                   for (const double partial : {1.0, 1.26, 1.5, 2.0})
                     value += 0.04 *
                              std::sin(2.0 * std::numbers::pi * root * partial * static_cast<double>(n) / kSampleRate);
                   return value;
                 }),
            {}};
  for (double time = 0.5; time < kSeconds - 1.0; time += beat / 2.0) {
    if (random() % 4 == 0) continue;
    const auto start = static_cast<std::size_t>(time * kSampleRate);
    made.onsets.push_back(start / kFrame);
    for (std::size_t n = 0; n < 4000; ++n) {
      const auto hit = static_cast<float>(0.5 * noise(random) * std::exp(-static_cast<double>(n) / 600.0));
      made.sound[start + n].left += hit;
      made.sound[start + n].right += hit;
    }
  }
  return made;
}

std::vector<double> levels(const Sound& sound) {
  std::vector<double> result;
  for (std::size_t n = 0; n + kFrame <= sound.size(); n += kFrame) {
    double sum = 0.0;
    for (std::size_t i = n + 1; i < n + kFrame; ++i)
      sum += std::pow(double{sound[i].left} - double{sound[i - 1].left}, 2);  // highs: where attacks stand out
    result.push_back(std::sqrt(sum / kFrame));
  }
  return result;
}

bool rises(const std::vector<double>& level, std::size_t frame) {
  const double before = level[frame < 2 ? 0 : frame - 2];
  return level[frame] > kAttack * before;
}

std::size_t lost(const Song& song, int value) {
  PitchDeck deck(song.sound);
  deck.clear(static_cast<float>(value));
  deck.run_to_end();
  const auto level = levels(deck.out);
  return static_cast<std::size_t>(std::count_if(song.onsets.begin(), song.onsets.end(), [&](std::size_t onset) {
    for (std::ptrdiff_t at = -kReach; at <= kReach; ++at)
      if (rises(level, onset + static_cast<std::size_t>(at + kReach) - static_cast<std::size_t>(kReach))) return false;
    return true;
  }));
}

}  // namespace

void report_onsets() {
  std::printf("Onsets lost in ten songs, by pitch value\n");
  std::array<std::size_t, kValues.size()> missing{};
  std::size_t count = 0;
  for (unsigned seed = 1; seed <= 10; ++seed) {
    const Song one = song(seed);
    count += one.onsets.size();
    for (std::size_t i = 0; i < kValues.size(); ++i) missing.at(i) += lost(one, kValues.at(i));
  }
  for (std::size_t i = 0; i < kValues.size(); ++i)
    std::printf("  %+d: %zu of %zu%s\n", kValues.at(i), missing.at(i), count,
                at_most(0.0, static_cast<double>(missing.at(i))).c_str());
}

}  // namespace tandem::report
