// How clean tones stay when the pitch is shifted (the energy further than 12 Hz from the tone), what becomes of attacks
// and of the highest tones, and what it costs.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <numbers>

#include "engine/pitch/pitch_measures.h"
#include "engine/pitch/pitch_songs.h"
#include "sound_report/limits.h"
#include "sound_report/pitch_shifters.h"
#include "sound_report/processor_time.h"
#include "sound_report/sections.h"
#include "sound_report/svg_plot.h"

namespace tandem::report {

namespace {

constexpr std::array<double, 6> kTones{1050.0, 1480.0, 2210.0, 3320.0, 5310.0, 7900.0};
constexpr std::array<int, 10> kValues{-20, -15, -10, -5, -2, 2, 5, 10, 15, 20};
constexpr std::array<int, 6> kAttackValues{-20, -10, -5, 5, 10, 20};
constexpr std::size_t kLength = 3 * kSecond;  // of each tone; the middle second is looked at

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

double ratio_of(int value) { return std::exp2(value / 60.0); }

Sound tones_in_turn() {
  return mono(kTones.size() * kLength, [](std::size_t n) {
    const double hz = kTones.at(n / kLength);
    return 0.5 * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n % kLength) / kSampleRate);
  });
}

struct Purity {
  double mean = 0.0;
  double worst = -300.0;
};

Purity purity_of(const Sound& sound, int value) {
  Purity purity;
  for (std::size_t i = 0; i < kTones.size(); ++i) {
    const auto from = static_cast<std::ptrdiff_t>(i * kLength + kSecond);
    if (static_cast<std::size_t>(from) + 65536 > sound.size()) return {kNone, kNone};
    const Sound part(sound.begin() + from, sound.begin() + from + 65536);
    const double off = off_tone_db(part, kTones.at(i) * ratio_of(value), 12.0);
    purity.mean += off / static_cast<double>(kTones.size());
    purity.worst = greater(purity.worst, off);
  }
  return purity;
}

template <class Values>
void print_head(const char* title, const Values& values, int width) {
  std::printf("%s\n  %-16s", title, "pitch value");
  for (const int value : values) std::printf(" %*d", width, value);
  std::printf("\n");
}

Line print_purity(const Shifter& shifter, const Sound& sound) {
  std::printf("  %-16s", shifter.name.c_str());
  double worst = -300.0;
  Line line{shifter.name, {}};
  for (const int value : kValues) {
    const Purity purity = purity_of(shifter.shift(sound, value), value);
    std::printf(" %6.1f (%5.1f)", purity.mean, purity.worst);
    std::fflush(stdout);
    if (!std::isnan(purity.mean)) line.points.emplace_back(value, purity.mean);
    worst = greater(worst, purity.worst);
  }
  std::printf("%s\n", shifter.ours ? at_most(-55.0, worst).c_str() : "");
  return line;
}

// As long as the song: the measures look up to its end.
AttackReport attacks_of(const Shifter& shifter, const AttackSong& song, int value, const AttackBand& band) {
  Sound out = shifter.shift(song.sound, value);
  out.resize(song.sound.size());
  return compare_attacks(song, out, ratio_of(value), band);
}

void print_impulses(const std::vector<Shifter>& shifters) {
  const AttackSong song = impulses_in_chord(0.5F);
  print_head("30 impulses in a chord: lost + doubled, by how much the worst is late or early in ms", kAttackValues, 12);
  for (const Shifter& shifter : shifters) {
    std::printf("  %-16s", shifter.name.c_str());
    int wrong = 0;
    int wrong_at_20 = 0;
    double error = 0.0;  // ms
    for (const int value : kAttackValues) {
      const AttackReport report = attacks_of(shifter, song, value, kImpulseBand);
      std::printf("  %2d+%d, %5.1f", report.lost, report.doubled, report.worst_error_ms);
      (std::abs(value) <= 10 ? wrong : wrong_at_20) += report.lost + report.doubled;
      error = greater(error, report.worst_error_ms);
    }
    if (shifter.ours)
      std::printf("%s%s%s", at_most(0.0, wrong).c_str(), at_most(2.0, wrong_at_20).c_str(),
                  at_most(5.0, error).c_str());
    std::printf("\n");
  }
}

void print_hats(const std::vector<Shifter>& shifters) {
  const AttackSong song = hats_in_music();
  print_head("hi-hats in music: worst level in dB, worst time in ms", kAttackValues, 12);
  for (const Shifter& shifter : shifters) {
    std::printf("  %-16s", shifter.name.c_str());
    double loss = 0.0;   // dB
    double error = 0.0;  // ms
    for (const int value : kAttackValues) {
      const AttackReport report = attacks_of(shifter, song, value, kHatBand);
      std::printf("  %5.1f,%5.1f", report.worst_loss_db, report.worst_error_ms);
      loss = lesser(loss, report.worst_loss_db);
      error = greater(error, report.worst_error_ms);
    }
    if (shifter.ours) std::printf("%s%s", at_least(-3.0, loss).c_str(), at_most(5.0, error).c_str());
    std::printf("\n");
  }
}

void print_images(const std::vector<Shifter>& shifters) {
  std::printf("images of 20 to 21.9 kHz at pitch value -20, the highest against the tone in dB\n");
  for (const Shifter& shifter : shifters) {
    double highest = -300.0;
    for (const double hz : {20000.0, 20500.0, 21000.0, 21500.0, 21900.0}) {
      const Sound out = shifter.shift(one_tone(hz, 1.0), -20);
      const double image = out.size() > kSecond / 2 ? tone_db(out, (kSampleRate - hz) * ratio_of(-20)) : kNone;
      highest = greater(highest, image);
    }
    std::printf("  %-16s %6.1f%s\n", shifter.name.c_str(), highest,
                shifter.ours ? at_most(-60.0, highest).c_str() : "");
  }
}

void print_cost(const Shifter& ours) {
  const Sound sound = hats_in_music().sound;
  std::printf("processor time of ours, ms for a second of sound:");
  for (const int value : {-20, -10, 10, 20}) {
    const double before = processor_milliseconds();
    ours.shift(sound, value);
    std::printf("  %+d: %.2f", value,
                (processor_milliseconds() - before) * kSampleRate / static_cast<double>(sound.size()));
  }
  std::printf("\n");
}

}  // namespace

void report_pitch(const std::string& folder) {
  const std::vector<Shifter> shifters = pitch_shifters();
  print_head("Pitch: off-tone energy of six tones, 1.05 to 7.9 kHz: mean (worst) in dB", kValues, 14);
  const Sound sound = tones_in_turn();
  std::vector<Line> lines;
  lines.reserve(shifters.size());
  for (const Shifter& shifter : shifters) lines.push_back(print_purity(shifter, sound));
  print_impulses(shifters);
  print_hats(shifters);
  print_images(shifters);
  print_cost(shifters.front());
  Axis x{"pitch value (fifths of a semitone)", -20.0, 20.0, {}, false};
  for (int value = -20; value <= 20; value += 5) x.marks.emplace_back(value, std::to_string(value));
  Axis y{"off-tone energy, dB", -90.0, 0.0, {}, false};
  for (int db = -80; db <= 0; db += 20) y.marks.emplace_back(db, std::to_string(db));
  write_plot(folder + "/pitch_purity.svg", "Purity of shifted tones, mean of six (lower is cleaner)", x, y, lines);
}

}  // namespace tandem::report
