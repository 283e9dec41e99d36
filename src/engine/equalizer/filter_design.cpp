#include "engine/equalizer/filter_design.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "engine/core/frames.h"
#include "engine/equalizer/group_delay_limit.h"
#include "engine/equalizer/real_fft.h"

namespace tandem {

namespace {

constexpr std::size_t kGrid = 32768;  // points of the transforms
constexpr double kGridSpacing = static_cast<double>(kSampleRate) / kGrid;
constexpr float kNepersOfDecibel = static_cast<float>(std::numbers::ln10 / 20.0);

float amplitude_of(double gain_db) { return static_cast<float>(std::pow(10.0, gain_db / 20.0)); }

// The minimum-phase response with these levels: the causal part of the cepstrum, doubled.
std::vector<float> minimum_phase(const std::vector<float>& decibels) {
  const RealFft fft(kGrid);
  std::vector<RealFft::Complex> spectrum(fft.bins());
  std::transform(decibels.begin(), decibels.end(), spectrum.begin(), [](float db) { return db * kNepersOfDecibel; });
  std::vector<float> time(kGrid);
  fft.back(spectrum, time);
  for (std::size_t n = 1; n < kGrid / 2; ++n) time[n] *= 2.0F;
  std::fill(time.begin() + kGrid / 2 + 1, time.end(), 0.0F);
  fft.forward(time, spectrum);
  for (RealFft::Complex& bin : spectrum) bin = std::exp(bin);
  fft.back(spectrum, time);
  return time;
}

bool is_even(std::span<const EqualizerBand> bands) {
  return std::all_of(bands.begin(), bands.end(),
                     [&](const EqualizerBand& band) { return band.gain_db == bands.front().gain_db; });
}

}  // namespace

std::vector<float> design_taps(std::span<const EqualizerBand> bands) {
  std::vector<float> taps(EqualizerFilter::kTaps, 0.0F);
  if (is_even(bands)) {
    taps[0] = bands.empty() ? 1.0F : amplitude_of(bands.front().gain_db);
    return taps;
  }
  const std::vector<BandCentre> centres = centres_of(bands);
  std::vector<float> curve = band_curve(centres, kGridSpacing, kGrid / 2 + 1);
  limit_group_delay(curve, centres);
  const std::vector<float> response = minimum_phase(curve);
  std::copy_n(response.begin(), taps.size(), taps.begin());
  return taps;
}

std::unique_ptr<const EqualizerFilter> design_filter(std::span<const EqualizerBand> bands) {
  const bool flat = std::all_of(bands.begin(), bands.end(), [](const EqualizerBand& b) { return b.gain_db == 0.0; });
  if (flat) return nullptr;
  return std::make_unique<const EqualizerFilter>(design_taps(bands));
}

}  // namespace tandem
