// What the displays make of a short burst, of a steady low tone and of loud sound.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>
#include <span>
#include <vector>

#include "displays/meters/needle_meter.h"
#include "displays/spectrum/band_analyser.h"
#include "displays/spectrum_burst.h"
#include "displays/tones.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"

namespace tandem::report {

namespace {

using Heard = tandem::Sound;

constexpr std::array<double, 2> kPictureRates{30.0, 60.0};

void print_bursts() {
  std::printf("  burst of 1 ms at -6 dBFS, the least height of the highest bar wherever it falls, %% of the glass\n");
  for (const double pictures : kPictureRates) {
    std::printf("    %.0f pictures a second:", pictures);
    double least_of_all = 1.0;
    for (int length = 4; length <= 4096; length *= 2) {
      double least = 1.0;
      for (std::size_t begin = 2000; begin < 4000; begin += 97)
        least = lesser(least, burst_height(length, pictures, begin));
      std::printf("  FFT %d %.0f", length, 100.0 * least);
      least_of_all = lesser(least_of_all, least);
    }
    std::printf("%s\n", at_least(60.0, 100.0 * least_of_all).c_str());
  }
}

// By how many dB the band of a tone moves from picture to picture, before level and fall smooth it.
double swing_db(double sharpness, double hz) {
  constexpr std::size_t kBands = 33;
  constexpr std::size_t kPicture = 735;  // frames: 60 pictures a second
  BandAnalyser bands;
  const FrequencyAxis axis;
  bands.prepare(sharpness, FftWindow::Hamming, axis, kBands);
  BothSides<std::vector<float>> powers;
  for (auto& side : powers) side.assign(kBands, 0.0F);
  const auto band = static_cast<std::size_t>(axis.position(hz) * kBands);
  const Heard tone = sine(frames_in(2.0), hz);
  double least = 1e9;
  double most = 0.0;
  for (std::size_t at = 0; at + kPicture <= tone.size(); at += kPicture) {
    bands.feed(std::span(tone).subspan(at, kPicture));
    bands.take(powers);
    if (at < frames_in(0.5)) continue;
    least = lesser(least, double{powers[0][band]});
    most = greater(most, double{powers[0][band]});
  }
  return 10.0 * std::log10(most / least);
}

void print_swing() {
  std::printf("  steady tone of 50 Hz, swing of its band at 60 pictures a second:");
  for (const double sharpness : {0.5, 1.0, 2.0}) {
    const double swing = swing_db(sharpness, 50.0);
    std::printf("  lengths x %.1f %.2f dB%s", sharpness, swing, at_most(2.0, swing).c_str());
  }
  std::printf("\n");
}

double needle_db(const Heard& sound) {
  NeedleMeter meter(0);
  meter.put_Enabled(true);
  Screen(meter, sound).run(static_cast<double>(sound.size()) / kHeardRate);
  return needle_reading(meter.deflection());
}

void print_needle(const char* name, const Heard& sound, double asked, double reach) {
  const double stands = needle_db(sound);
  std::printf("  needle: %-24s %+.1f%s\n", name, stands, about(asked, reach, stands).c_str());
}

// Rectified noise averages 1.05 dB less than a sine of the same rms.
void print_needles() {
  std::mt19937 random(1);
  std::normal_distribution<double> gauss(0.0, amplitude_of(-18.0));
  print_needle("sine of 0 dBFS", sine(frames_in(2.0), 997.0), 3.0, 0.1);
  print_needle("sine of -10 dBFS", sine(frames_in(2.0), 997.0, amplitude_of(-10.0)), -7.0, 0.1);
  print_needle("sine of -20 dBFS", sine(frames_in(2.0), 997.0, amplitude_of(-20.0)), -17.0, 0.1);
  print_needle("noise of -18 dBFS rms", both(frames_in(2.0), [&](double) { return gauss(random); }), -13.0, 0.5);
}

}  // namespace

void report_displays() {
  std::printf("Displays\n");
  print_bursts();
  print_swing();
  print_needles();
}

}  // namespace tandem::report
