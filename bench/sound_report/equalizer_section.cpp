// The equalizer's curve, its ringing and its delay.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <random>

#include "engine/equalizer/filter_design.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "sound_report/svg_plot.h"
#include "support/equalizer_gains.h"
#include "support/tap_response.h"

namespace tandem::report {

namespace {

using test::alternating_gains;
using test::bands_of;
using test::even_gains;
using test::Gains;
using test::kEdges;
using test::TapResponse;

Gains one_band(std::size_t band, double gain) {
  Gains gains{};
  gains[band] = gain;
  return gains;
}

TapResponse response_of(const std::vector<float>& taps) { return test::tap_response(taps, 65536); }

double centre_error(const TapResponse& response, const Gains& gains) {
  double worst = 0.0;
  for (std::size_t i = 0; i < gains.size(); ++i) {
    worst = greater(worst, std::abs(response.level_at((kEdges[i] + kEdges[i + 1]) / 2.0) - gains[i]));
    if (i > 0) worst = greater(worst, std::abs(response.level_at(std::sqrt(kEdges[i] * kEdges[i + 1])) - gains[i]));
  }
  return worst;
}

double ringing_ms(const std::vector<float>& taps) {
  float peak = 0.0F;
  for (const float tap : taps) peak = std::max(peak, std::abs(tap));
  std::size_t last = 0;
  for (std::size_t n = 0; n < taps.size(); ++n)
    if (std::abs(taps[n]) > peak / 1000.0F) last = n;
  return static_cast<double>(last) * 1000.0 / kSampleRate;
}

double greatest_delay_ms(const TapResponse& response) {
  double greatest = 0.0;
  for (const double delay : response.delay_ms) greatest = greater(greatest, std::abs(delay));
  return greatest;
}

constexpr double kCentres = 0.5;      // dB
constexpr double kGroupDelay = 15.0;  // ms

Line print(const std::string& name, const Gains& gains, double longest_ms = 40.0) {
  const auto taps = design_taps(bands_of(gains));
  const TapResponse response = response_of(taps);
  const double centres = centre_error(response, gains);
  const double ringing = ringing_ms(taps);
  const double delay = greatest_delay_ms(response);
  std::printf("  %-22s centres within %4.2f dB%s, impulse -60 dB after %4.1f ms%s, group delay at most %4.1f ms%s\n",
              name.c_str(), centres, at_most(kCentres, centres, 1).c_str(), ringing,
              at_most(longest_ms, ringing).c_str(), delay, at_most(kGroupDelay, delay).c_str());
  Line line{name, {}};
  for (double hz = 10.0; hz < 22000.0; hz *= 1.01) line.points.emplace_back(hz, response.level_at(hz));
  return line;
}

void print_random() {
  std::mt19937 random(1);
  double centre = 0.0;
  double delay = 0.0;
  for (int set = 0; set < 100; ++set) {
    Gains gains;
    for (double& gain : gains)
      gain = set % 2 == 0 ? static_cast<double>(random() % 25) - 12.0 : (random() % 2 == 0 ? 12.0 : -12.0);
    const TapResponse response = response_of(design_taps(bands_of(gains)));
    centre = greater(centre, centre_error(response, gains));
    delay = greater(delay, greatest_delay_ms(response));
  }
  std::printf("  %-22s centres within %4.2f dB%s, group delay at most %4.1f ms%s\n", "100 random settings", centre,
              at_most(kCentres, centre, 1).c_str(), delay, at_most(kGroupDelay, delay).c_str());
}

void print_ripple() {
  const auto levels = response_of(design_taps(bands_of(even_gains(12.0)))).level_db;
  const auto [least, most] = std::minmax_element(levels.begin(), levels.end());
  std::printf("  %-22s ripple %.3f dB%s\n", "all +12", *most - *least, at_most(0.1, *most - *least, 1).c_str());
}

}  // namespace

void report_equalizer(const std::string& folder) {
  std::printf("Equalizer\n");
  const Gains smile{12, 10, 8, 6, 3, 1, 0, -2, -2, 0, 2, 4, 7, 10, 12};
  std::vector<Line> lines{print("alternating +-12", alternating_gains(12.0))};
  print("alternating -+12", alternating_gains(-12.0));
  lines.push_back(print("smile", smile, 20.0));
  lines.push_back(print("470-540 Hz +12", one_band(5, 12.0)));
  lines.push_back(print("4000-5400 Hz -12", one_band(10, -12.0)));
  print_random();
  print_ripple();
  const Axis x{"Hz",
               10.0,
               22000.0,
               {{20, "20"},
                {50, "50"},
                {100, "100"},
                {200, "200"},
                {500, "500"},
                {1000, "1k"},
                {2000, "2k"},
                {5000, "5k"},
                {10000, "10k"},
                {20000, "20k"}},
               true};
  const Axis y{"dB", -18.0, 18.0, {{-12, "-12"}, {-6, "-6"}, {0, "0"}, {6, "6"}, {12, "12"}}, false};
  write_plot(folder + "/equalizer.svg", "Equalizer: level over frequency", x, y, lines);
}

}  // namespace tandem::report
