#include "engine/equalizer/filter_design.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <thread>
#include <vector>

#include "engine/core/frames.h"
#include "engine/equalizer/filter_worker.h"
#include "engine/equalizer/real_fft.h"
#include "support/equalizer_gains.h"
#include "support/tap_response.h"

namespace tandem::test {
namespace {

Gains notch() { return {12, 12, -12, 12, 12, 12, 12, 12, -12, 12, -12, -12, -12, -12, -12}; }  // at 91 Hz
Gains smile() { return {12, 10, 8, 6, 3, 1, 0, -2, -2, 0, 2, 4, 7, 10, 12}; }

std::vector<Gains> many_gains() {
  std::vector<Gains> sets{
      even_gains(12), even_gains(-12), alternating_gains(12), alternating_gains(-12), alternating_gains(6),
      smile(),        notch()};
  for (std::size_t i = 0; i < 15; ++i) sets.emplace_back()[i] = i % 2 == 0 ? 12 : -12;
  for (const double g : {12.0, -12.0}) sets.push_back({-g, g, -g, -g, -g, -g, -g, -g, -g});  // delayed most
  std::mt19937 random(7);
  std::uniform_int_distribution<int> gain(-12, 12);
  for (int set = 0; set < 12; ++set) {
    sets.emplace_back();
    for (double& g : sets.back()) g = set < 6 ? gain(random) : (gain(random) > 0 ? 12 : -12);
  }
  return sets;
}

struct Design {
  Gains gains;
  std::vector<float> taps;
};

const std::vector<Design>& many_designs() {
  static const std::vector<Design> designs = [] {
    std::vector<Design> result;
    for (const Gains& gains : many_gains()) result.push_back({gains, design_taps(bands_of(gains))});
    return result;
  }();
  return designs;
}

// The level in dB at one frequency, by the plain sum over all taps.
double level(const std::vector<float>& taps, double hz) {
  const double turn = -2.0 * std::numbers::pi * hz / kSampleRate;
  std::complex<double> sum;
  for (std::size_t n = 0; n < taps.size(); ++n) {
    sum += static_cast<double>(taps[n]) * std::polar(1.0, turn * static_cast<double>(n));
  }
  return 20.0 * std::log10(std::abs(sum));
}

std::vector<double> centres(std::size_t band) {
  std::vector<double> result{(kEdges[band] + kEdges[band + 1]) / 2.0};
  if (kEdges[band] > 0.0) result.push_back(std::sqrt(kEdges[band] * kEdges[band + 1]));
  return result;
}

TEST(FilterDesign, EveryBandCentreHasItsGain) {
  double worst = 0.0;
  for (const auto& [gains, taps] : many_designs()) {
    for (std::size_t band = 0; band < gains.size(); ++band) {
      for (const double hz : centres(band)) worst = std::max(worst, std::abs(level(taps, hz) - gains[band]));
    }
  }
  RecordProperty("worst_centre_error_db", std::to_string(worst));
  EXPECT_LT(worst, 0.5);  // half of the slider's step of 1 dB
}

TEST(FilterDesign, EqualGainsGiveNoRipple) {
  for (const double gain : {12.0, -12.0}) {
    const auto taps = design_taps(bands_of(even_gains(gain)));
    for (double hz = 5.0; hz < 22050.0; hz *= 1.03) ASSERT_NEAR(level(taps, hz), gain, 0.01) << hz;
  }
}

TEST(FilterDesign, TheGainOfTheLastBandIsHeldAboveIt) {
  Gains gains = even_gains(0);
  gains[14] = 9;
  const auto taps = design_taps(bands_of(gains));
  for (const double hz : {20001.0, 21000.0, 22000.0}) EXPECT_NEAR(level(taps, hz), 9.0, 0.1);
}

TEST(FilterDesign, ZeroGainsAreASingleTapAndNeedNoFilter) {
  const auto taps = design_taps(bands_of(even_gains(0)));
  EXPECT_EQ(taps[0], 1.0F);
  for (std::size_t n = 1; n < taps.size(); ++n) ASSERT_EQ(taps[n], 0.0F);
  EXPECT_EQ(design_filter(bands_of(even_gains(0))), nullptr);
  EXPECT_NE(design_filter(bands_of(even_gains(1))), nullptr);
}

TEST(FilterDesign, NearlyZeroGainsAreNearlyASingleTap) {
  Gains gains = even_gains(0);
  gains[7] = 0.01;  // 0.12 % in amplitude, over a fortieth of the spectrum
  const auto taps = design_taps(bands_of(gains));
  EXPECT_NEAR(taps[0], 1.0F, 1e-4F);
  for (std::size_t n = 1; n < taps.size(); ++n) ASSERT_NEAR(taps[n], 0.0F, 1e-4F);
}

// On a grid of 2.7 Hz.
TapResponse response_of(const std::vector<float>& taps) { return tap_response(taps, 16384); }

// What makes a response minimum-phase: no other with the same levels has its energy earlier. The first tap is then
// the geometric mean of the levels over all frequencies.
TEST(FilterDesign, TheResponseIsMinimumPhase) {
  for (const auto& [gains, taps] : many_designs()) {
    const auto levels = response_of(taps).level_db;
    double sum = -(levels.front() + levels.back()) / 2.0;
    for (const double level : levels) sum += level;
    const double mean = sum / static_cast<double>(levels.size() - 1);
    EXPECT_NEAR(20.0 * std::log10(static_cast<double>(taps[0])), mean, 0.01);
  }
}

TEST(FilterDesign, NoFrequencyIsDelayedByMoreThan15Milliseconds) {
  double worst = 0.0;
  for (const auto& [gains, taps] : many_designs())
    for (const double delay : response_of(taps).delay_ms) worst = std::max(worst, std::abs(delay));
  RecordProperty("worst_delay_ms", std::to_string(worst));
  EXPECT_LE(worst, 15.0);
}

// After how many milliseconds the response of an impulse stays 60 dB below its peak.
double ringing_ms(const Gains& gains) {
  const auto taps = design_taps(bands_of(gains));
  double peak = 0.0;
  for (const float tap : taps) peak = std::max(peak, std::abs(static_cast<double>(tap)));
  std::size_t last = 0;
  for (std::size_t n = 0; n < taps.size(); ++n)
    if (std::abs(static_cast<double>(taps[n])) > peak / 1000.0) last = n;
  return static_cast<double>(last) * 1000.0 / kSampleRate;
}

TEST(FilterDesign, AnImpulseIsSoonOver) {
  EXPECT_LE(ringing_ms(alternating_gains(12)), 40.0);
  EXPECT_LE(ringing_ms(alternating_gains(-12)), 40.0);
  EXPECT_LE(ringing_ms(smile()), 20.0);
}

TEST(FilterDesign, BetweenTwoBandsTheLevelPassesOverMostOfTheWay) {
  Gains gains = even_gains(0);
  for (std::size_t i = 9; i < gains.size(); ++i) gains[i] = 12;  // from 2500 Hz on
  const auto taps = design_taps(bands_of(gains));
  EXPECT_NEAR(level(taps, 1775.0), 0.0, 0.3);
  EXPECT_NEAR(level(taps, 2150.0), 2.0, 0.4);
  EXPECT_NEAR(level(taps, 2390.0), 6.0, 0.3);
  EXPECT_NEAR(level(taps, 2667.0), 10.0, 0.4);
  EXPECT_NEAR(level(taps, 3200.0), 12.0, 0.3);
}

TEST(FilterDesign, TheResponseEndsWithinItsTaps) {
  for (const auto& [gains, taps] : many_designs()) {
    double last = 0.0;
    for (std::size_t n = taps.size() - 64; n < taps.size(); ++n) last = std::max(last, std::abs(double{taps[n]}));
    EXPECT_LT(last, 1e-4);  // -80 dB at the very end: no audible cut
  }
}

TEST(RealFft, AgreesWithThePlainSumAndComesBack) {
  std::mt19937 random(5);
  std::normal_distribution<float> level(0.0F, 1.0F);
  const RealFft fft(64);
  std::vector<float> time(fft.points());
  for (float& x : time) x = level(random);
  std::vector<RealFft::Complex> spectrum(fft.bins());
  fft.forward(time, spectrum);
  for (std::size_t k = 0; k < spectrum.size(); ++k) {
    std::complex<double> sum;
    for (std::size_t n = 0; n < time.size(); ++n) {
      sum += double{time[n]} * std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(n * k) / 64.0);
    }
    EXPECT_NEAR(std::abs(sum - std::complex<double>(spectrum[k])), 0.0, 1e-5);
  }
  std::vector<float> again(fft.points());
  fft.back(spectrum, again);
  for (std::size_t n = 0; n < time.size(); ++n) EXPECT_NEAR(again[n], time[n], 1e-6F);
}

bool same_filter(const EqualizerFilter* a, const EqualizerFilter* b) {
  for (std::size_t bin = 0; bin < kTransform; bin += SpectrumTable::kGroup) {
    const float* const group = a->partitions().at(bin);
    if (!std::equal(group, group + kPartitions * SpectrumTable::kEntry, b->partitions().at(bin))) return false;
  }
  return true;
}

TEST(FilterWorker, InSimulatedTimeDesignsOnlyTheLatestRequest) {
  FilterWorker designer(false);
  const EqualizerFilter* filter = nullptr;
  EXPECT_FALSE(designer.take(filter));
  for (int move = 1; move <= 50; ++move) designer.request(bands_of(alternating_gains(12.0 * move / 50)), false);
  ASSERT_TRUE(designer.take(filter));
  EXPECT_EQ(designer.designs(), 1);
  ASSERT_NE(filter, nullptr);
  EXPECT_TRUE(same_filter(filter, design_filter(bands_of(alternating_gains(12))).get()));
  EXPECT_FALSE(designer.take(filter));
  designer.give_back(filter);
}

TEST(FilterWorker, FlatOrBypassedIsNone) {
  FilterWorker designer(false);
  const EqualizerFilter stand_in(std::vector<float>{1.0F});
  for (const auto& [gain, bypassed] : {std::pair{0.0, false}, {6.0, true}, {0.0, true}}) {
    designer.request(bands_of(even_gains(gain)), bypassed);
    const EqualizerFilter* filter = &stand_in;
    ASSERT_TRUE(designer.take(filter));
    EXPECT_EQ(filter, nullptr);
  }
}

// Takes until the filter of these gains has come; gives all others back.
void take_until(FilterWorker& designer, const Gains& gains) {
  const auto expected = design_filter(bands_of(gains));
  for (bool found = false; !found; std::this_thread::yield()) {
    const EqualizerFilter* filter = nullptr;
    if (!designer.take(filter)) continue;
    found = filter != nullptr && same_filter(filter, expected.get());
    designer.give_back(filter);
  }
}

TEST(FilterWorker, ADragOfFiftyMovesDoesNotQueueFiftyDesigns) {
  FilterWorker designer(true);
  for (int move = 1; move <= 50; ++move) designer.request(bands_of(alternating_gains(12.0 * move / 50)), false);
  take_until(designer, alternating_gains(12));
  // Fifty requests take less time than one design; half of them leaves room for any scheduling.
  EXPECT_LE(designer.designs(), 25);
}

TEST(FilterWorker, FreesWhatWasNeverTaken) {
  FilterWorker designer(true);  // the address sanitizer's leak check sees to the rest
  designer.request(bands_of(even_gains(3)), false);
  designer.request(bands_of(even_gains(4)), false);
  while (designer.designs() == 0) std::this_thread::yield();
}

TEST(FilterWorker, StopsWhileARequestIsUnderWay) {
  for (int run = 0; run < 10; ++run) {
    FilterWorker designer(true);
    designer.request(bands_of(alternating_gains(run + 1)), false);
  }
}

}  // namespace
}  // namespace tandem::test
