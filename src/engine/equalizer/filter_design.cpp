#include "engine/equalizer/filter_design.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numbers>

#include "engine/core/frames.h"
#include "engine/equalizer/fft_real.h"

namespace tandem {

namespace {

constexpr std::size_t kHalf = EqualizerFilter::kTaps / 2;  // taps on each side of the linear-phase response's middle
constexpr std::size_t kGrid = 32768;                       // points of the transforms
constexpr std::size_t kBins = kGrid / 2 + 1;
constexpr double kKaiserBeta = 4.0;
constexpr double kLeastAmplitude = 1e-4;  // far below any gain: keeps the logarithm finite

double amplitude_of(double gain_db) { return std::pow(10.0, gain_db / 20.0); }

std::vector<double> kaiser_half() {
  std::vector<double> window(kHalf + 1);
  for (std::size_t n = 0; n <= kHalf; ++n) {
    const double x = static_cast<double>(n) / static_cast<double>(kHalf + 1);
    window[n] = std::cyl_bessel_i(0.0, kKaiserBeta * std::sqrt(1.0 - x * x)) / std::cyl_bessel_i(0.0, kKaiserBeta);
  }
  return window;
}

// Adds what an ideal low-pass of the given height contributes to the right half of a zero-phase response.
void add_low_pass(std::vector<double>& response, double edge_hz, double height) {
  const double turn = 2.0 * std::numbers::pi * edge_hz / kSampleRate;
  response[0] += height * turn / std::numbers::pi;
  for (std::size_t n = 1; n < response.size(); ++n) {
    const auto place = static_cast<double>(n);
    response[n] += height * std::sin(turn * place) / (std::numbers::pi * place);
  }
}

// The right half of the windowed zero-phase response: one ideal low-pass for every step of the target.
std::vector<double> zero_phase_half(std::span<const EqualizerBand> bands) {
  static const std::vector<double> window = kaiser_half();
  std::vector<double> response(kHalf + 1, 0.0);
  response[0] = amplitude_of(bands.back().gain_db);
  for (std::size_t i = 0; i + 1 < bands.size(); ++i) {
    const double step = amplitude_of(bands[i].gain_db) - amplitude_of(bands[i + 1].gain_db);
    if (step != 0.0) add_low_pass(response, bands[i].high_hz, step);
  }
  for (std::size_t n = 0; n <= kHalf; ++n) response[n] *= window[n];
  return response;
}

std::vector<double> amplitudes(const std::vector<double>& half, const RealFft& fft) {
  std::vector<double> time(kGrid, 0.0);
  time[0] = half[0];
  for (std::size_t n = 1; n < half.size(); ++n) time[n] = time[kGrid - n] = half[n];
  std::vector<double> result(kBins);
  const auto spectrum = fft.forward(time);
  for (std::size_t k = 0; k < kBins; ++k) result[k] = std::max(spectrum[k].real(), kLeastAmplitude);
  return result;
}

// The minimum-phase response with these amplitudes: the causal part of the cepstrum, doubled.
std::vector<double> minimum_phase(const std::vector<double>& amplitude, const RealFft& fft) {
  std::vector<std::complex<double>> spectrum(kBins);
  std::transform(amplitude.begin(), amplitude.end(), spectrum.begin(), [](double a) { return std::log(a); });
  std::vector<double> cepstrum = fft.back(spectrum);
  for (std::size_t n = 1; n < kGrid / 2; ++n) cepstrum[n] *= 2.0;
  std::fill(cepstrum.begin() + kGrid / 2 + 1, cepstrum.end(), 0.0);
  spectrum = fft.forward(cepstrum);
  for (auto& bin : spectrum) bin = std::exp(bin);
  return fft.back(spectrum);
}

bool is_even(std::span<const EqualizerBand> bands) {
  return std::all_of(bands.begin(), bands.end(),
                     [&](const EqualizerBand& band) { return band.gain_db == bands.front().gain_db; });
}

}  // namespace

std::vector<float> design_taps(std::span<const EqualizerBand> bands) {
  std::vector<float> taps(EqualizerFilter::kTaps, 0.0F);
  if (is_even(bands)) {
    taps[0] = static_cast<float>(bands.empty() ? 1.0 : amplitude_of(bands.front().gain_db));
    return taps;
  }
  const RealFft fft(kGrid);
  const std::vector<double> response = minimum_phase(amplitudes(zero_phase_half(bands), fft), fft);
  std::transform(response.begin(), response.begin() + static_cast<std::ptrdiff_t>(taps.size()), taps.begin(),
                 [](double tap) { return static_cast<float>(tap); });
  return taps;
}

std::unique_ptr<const EqualizerFilter> design_filter(std::span<const EqualizerBand> bands) {
  const bool flat = std::all_of(bands.begin(), bands.end(), [](const EqualizerBand& b) { return b.gain_db == 0.0; });
  if (flat) return nullptr;
  return std::make_unique<const EqualizerFilter>(design_taps(bands));
}

}  // namespace tandem
