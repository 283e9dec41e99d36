// Attacks in ten songs at shifted pitch: each must be heard once, at its level and in its time.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <random>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_measures.h"
#include "engine/pitch/pitch_songs.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace tandem::report {

namespace {

constexpr std::size_t kSeconds = 12;
constexpr std::array<int, 4> kValues{-10, -3, 3, 10};

Sound chord_on(double root) {
  return mono(kSeconds * kSecond, [root](std::size_t n) {
    double value = 0.0;
    for (const double partial : {1.0, 1.26, 1.5, 2.0})
      value += 0.04 * std::sin(2.0 * std::numbers::pi * root * partial * static_cast<double>(n) / kSampleRate);
    return value;
  });
}

// A chord with hits on a grid, from 1 ms (a click) to 14 ms long (a snare): tempo, key and density differ from song to
// song.
AttackSong hits_on_chord(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0.0, 1.0);
  const double beat = 60.0 / (90.0 + 9.0 * seed);
  AttackSong song{chord_on(110.0 * std::exp2(seed / 12.0)), {}};
  for (double time = 0.5; time < kSeconds - 1.0; time += beat / 2.0) {
    if (random() % 4 == 0) continue;
    const double length = std::array{40.0, 150.0, 600.0}.at(random() % 3);  // frames in which it falls by 8.7 dB
    const auto start = static_cast<std::size_t>(time * kSampleRate);
    song.times.push_back(time);
    for (std::size_t n = 0; n < 4000; ++n) {
      const auto hit = static_cast<float>(0.3 * noise(random) * std::exp(-static_cast<double>(n) / length));
      song.sound[start + n].left += hit;
      song.sound[start + n].right += hit;
    }
  }
  return song;
}

AttackReport attacks_at(const AttackSong& song, int value) {
  Sound out = tandem::shifted(song.sound, static_cast<float>(value));
  out.resize(song.sound.size());
  return compare_attacks(song, out, std::exp2(value / 60.0), kDrumBand);
}

}  // namespace

void report_onsets() {
  std::array<AttackReport, kValues.size()> all{};
  std::size_t count = 0;
  for (unsigned seed = 1; seed <= 10; ++seed) {
    const AttackSong song = hits_on_chord(seed);
    count += song.times.size();
    for (std::size_t i = 0; i < kValues.size(); ++i) {
      const AttackReport report = attacks_at(song, kValues.at(i));
      all.at(i).lost += report.lost;
      all.at(i).doubled += report.doubled;
      all.at(i).worst_error_ms = std::max(all.at(i).worst_error_ms, report.worst_error_ms);
    }
  }
  std::printf("%zu onsets in ten songs, by pitch value: lost + doubled, by how much the worst is late or early in ms\n",
              count);
  for (std::size_t i = 0; i < kValues.size(); ++i) {
    const AttackReport& report = all.at(i);
    std::printf("  %+3d: %d+%d%s, %.1f%s\n", kValues.at(i), report.lost, report.doubled,
                at_most(0.0, report.lost + report.doubled).c_str(), report.worst_error_ms,
                at_most(5.0, report.worst_error_ms).c_str());
  }
}

}  // namespace tandem::report
