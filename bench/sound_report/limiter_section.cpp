// The limiter on hot MP3s and on two songs at once.
#include "engine/render/limiter.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <numeric>
#include <random>
#include <span>

#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "support/residue.h"

namespace tandem::report {

namespace {

constexpr std::size_t kSongSeconds = 10;
constexpr double kCeiling = 0.9705;  // -0.26 dBFS

// A dense song: kick, snare, hats, bass and a chord of saws.
Sound song(unsigned seed) {
  std::mt19937 random(seed);
  std::normal_distribution<double> noise(0.0, 1.0);
  const double beat = 60.0 / (118.0 + 7.0 * seed);
  const auto saw = [](double hz, double time) { return 2.0 * (hz * time - std::floor(hz * time)) - 1.0; };
  return mono(kSongSeconds * kSecond, [&, last = 0.0](std::size_t n) mutable {
    const double time = static_cast<double>(n) / kSampleRate;
    const double in_beat = std::fmod(time, beat);
    const double in_half = std::fmod(time, beat / 2.0);
    const double root = std::array{55.0, 65.4, 49.0, 73.4}.at(static_cast<std::size_t>(time / (4.0 * beat)) % 4);
    const double hiss = noise(random);
    double value = 0.9 * std::sin(2.0 * std::numbers::pi * (50.0 * in_beat - 1.2 * std::exp(-30.0 * in_beat))) *
                   std::exp(-9.0 * in_beat);
    if (static_cast<int>(time / beat) % 2 == 1) value += 0.5 * hiss * std::exp(-22.0 * in_beat);
    value += 0.2 * (hiss - last) * std::exp(-70.0 * in_half);
    last = hiss;
    value += 0.3 * saw(root, time);
    for (const double partial : {4.0, 5.0, 6.0, 8.0}) value += 0.08 * saw(root * partial * 1.003, time);
    return value;
  });
}

double power_of(const Sound& sound) {
  double sum = 0.0;
  for (const StereoFrame& f : sound) sum += double{f.left} * double{f.left} + double{f.right} * double{f.right};
  return sum / (2.0 * static_cast<double>(sound.size()));
}

// A look-ahead limiter of 3 ms, as in a mastering chain: nothing exceeds the ceiling.
void hold_below_ceiling(Sound& sound) {
  constexpr std::size_t kReach = 66;
  std::vector<double> needed(sound.size() + 2 * kReach, 1.0);
  for (std::size_t n = 0; n < sound.size(); ++n)
    needed[n + kReach] = std::min(1.0, kCeiling / std::max(std::abs(double{sound[n].left}), 1e-9));
  std::vector<double> least(needed);
  for (std::size_t n = kReach; n + kReach < needed.size(); ++n)
    least[n] = *std::min_element(needed.begin() + static_cast<std::ptrdiff_t>(n - kReach),
                                 needed.begin() + static_cast<std::ptrdiff_t>(n + kReach + 1));
  std::array<double, 2 * kReach> window{};
  for (std::size_t k = 0; k < window.size(); ++k)
    window.at(k) = (1.0 - std::cos(std::numbers::pi * static_cast<double>(k) / kReach)) / (2.0 * kReach);
  for (std::size_t n = 0; n < sound.size(); ++n) {
    const double gain =
        std::inner_product(window.begin(), window.end(), least.begin() + static_cast<std::ptrdiff_t>(n), 0.0);
    const double value = std::clamp(double{sound[n].left} * gain, -kCeiling, kCeiling);
    sound[n] = {static_cast<float>(value), static_cast<float>(value)};
  }
}

// Driven until its rms is -9 dBFS.
Sound master(unsigned seed, double saturation) {
  const Sound raw = song(seed);
  double drive = 1.0;
  Sound result;
  for (int round = 0; round < 6; ++round) {
    result = mono(raw.size(),
                  [&](std::size_t n) { return saturation * std::tanh(drive * double{raw[n].left} / saturation); });
    hold_below_ceiling(result);
    drive *= std::pow(10.0, (-9.0 - decibels(power_of(result))) / 20.0);
  }
  return result;
}

Sound limited(Sound sound) {
  Limiter limiter;
  sound.resize(sound.size() + Limiter::kDelay);
  limiter.process(sound);
  sound.erase(sound.begin(), sound.begin() + Limiter::kDelay);
  return sound;
}

struct Work {
  double at_work = 0.0;  // share of the samples lowered by more than 0.1 dB
  double error_db = 0.0;
  double fastest_db = 0.0;  // the greatest change of the gain within 1 ms
};

// The gain is seen where the sound is loud enough to divide by.
double fastest_change_db(const Sound& before, const Sound& after) {
  constexpr std::size_t kMillisecond = 44;
  std::vector<double> gain(before.size(), 1.0);
  for (std::size_t n = 0; n < before.size(); ++n) {
    const double in = double{before[n].left};
    gain[n] = std::abs(in) > 1e-3 ? double{after[n].left} / in : n == 0 ? 1.0 : gain[n - 1];
  }
  double greatest = 1.0;
  for (std::size_t n = kMillisecond; n < gain.size(); ++n) {
    const double ratio = gain[n] / gain[n - kMillisecond];
    greatest = std::max({greatest, ratio, 1.0 / ratio});
  }
  return 2.0 * decibels(greatest);
}

Work compared(const Sound& before, const Sound& after) {
  double error = 0.0;
  std::size_t lowered = 0;
  for (std::size_t n = 0; n < before.size(); ++n) {
    error += std::pow(double{after[n].left} - double{before[n].left}, 2);
    lowered += std::abs(after[n].left) < 0.9886F * std::abs(before[n].left) ? 1U : 0U;
  }
  return {static_cast<double>(lowered) / static_cast<double>(before.size()),
          decibels(error / static_cast<double>(before.size()) / power_of(before)), fastest_change_db(before, after)};
}

void print_mp3(const char* name, const Sound& source, int kilobits) {
  const Sound sound = through(source, "sox -D IN -b 16 IN.16.wav && lame --quiet -b " + std::to_string(kilobits) +
                                          " IN.16.wav IN.mp3 && mpg123 -q -e f32 -w OUT IN.mp3");
  if (sound.empty()) return;
  float peak = 0.0F;
  std::size_t beyond = 0;
  Sound clipped(sound);
  for (StereoFrame& f : clipped) {
    peak = std::max(peak, std::abs(f.left));
    beyond += std::abs(f.left) > 1.0F ? 1U : 0U;
    f = {std::clamp(f.left, -1.0F, 1.0F), std::clamp(f.right, -1.0F, 1.0F)};
  }
  const Work ours = compared(sound, limited(sound));
  const double least_error = compared(sound, clipped).error_db;
  std::printf(
      "  %s, MP3 %3d: peak %+.1f dBFS, %.3f %% beyond: at work %5.2f %%%s, error %.1f dB%s (plain clipping %.1f), "
      "gain moves %.1f dB in 1 ms%s\n",
      name, kilobits, 2.0 * decibels(double{peak}),
      100.0 * static_cast<double>(beyond) / static_cast<double>(sound.size()), 100.0 * ours.at_work,
      at_most(3.0, 100.0 * ours.at_work).c_str(), ours.error_db, at_most(least_error + 3.0, ours.error_db, 1).c_str(),
      least_error, ours.fastest_db, at_most(10.0, ours.fastest_db).c_str());
}

void print_tones(const std::vector<double>& tones, double gain, double residue_asked) {
  Sound sound(2 * kSecond + kSecond / 10);
  for (const double hz : tones) {
    const Sound one = tone(hz, 0.0, 2.2);
    for (std::size_t n = 0; n < sound.size(); ++n) {
      sound[n].left += static_cast<float>(gain) * one[n].left;
      sound[n].right = sound[n].left;
    }
  }
  const Sound out = limited(sound);
  float peak = 0.0F;
  for (const StereoFrame& f : out) peak = std::max(peak, std::abs(f.left));
  std::string name;
  for (const double hz : tones) name += (name.empty() ? "" : " + ") + std::to_string(static_cast<int>(hz));
  const double residue = test::residue_db(out, tones);
  const double fastest = fastest_change_db(sound, out);
  std::printf("  %-12s Hz at %+.0f dBFS each: peak %.6f%s, THD+N %.1f dB%s, gain moves %.1f dB in 1 ms%s\n",
              name.c_str(), 2.0 * decibels(gain), double{peak}, at_most(1.0, double{peak}).c_str(), residue,
              at_most(residue_asked, residue, 1).c_str(), fastest, at_most(10.0, fastest).c_str());
}

}  // namespace

void report_limiter() {
  std::printf("Limiter\n");
  if (has("lame") && has("mpg123") && has("sox")) {
    for (unsigned seed = 1; seed <= 3; ++seed) {
      const Sound source = master(seed, 0.7 + 0.3 * seed);
      const std::string name = "master " + std::to_string(seed);
      print_mp3(name.c_str(), source, 128);
      print_mp3(name.c_str(), source, 320);
    }
    print_mp3("master 4", master(1, 1.15), 128);
  }
  print_tones({1000.0, 1000.0}, 1.0, -97.7);
  print_tones({50.0, 1000.0}, 1.0, -95.0);
  print_tones({997.0, 1503.0}, 1.0, -44.5);  // its beat is followed
  for (const double hz : {1000.0, 50.0, 36.0}) print_tones({hz}, 2.0, -97.8);
  print_tones({30.0}, 2.0, -51.0);
  print_tones({20.0}, 2.0, -31.0);
}

}  // namespace tandem::report
