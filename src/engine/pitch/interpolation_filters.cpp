#include "engine/pitch/interpolation_filters.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "engine/core/frames.h"
#include "engine/core/window_shapes.h"
#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

constexpr double kStopBand = 24100.0;  // Hz of the sound given
constexpr double kAudible = 20000.0;   // Hz
constexpr double kBanksAnOctave = 24.0;
constexpr std::size_t kFarDown = 0;
constexpr std::size_t kUnison = 1;
constexpr std::size_t kBankSize = (kKernelPhases + 1) * kKernelTaps;
constexpr std::size_t kHalf = kKernelTaps / 2 * kKernelPhases;  // grid points from the middle of the window to its end

double attenuation_of(std::size_t bank) { return bank == kFarDown ? 75.0 : 100.0; }  // dB

// Where the stop band begins, in Hz of the song.
double stop_band_of(std::size_t bank) {
  if (bank == kFarDown) return kSampleRate / 2.0;
  return kStopBand / std::exp2(static_cast<double>(bank - kUnison) / kBanksAnOctave);
}

// The middle of the transition band, as a part of the sample rate.
double cutoff_of(std::size_t bank) {
  const double width = (attenuation_of(bank) - 7.95) / (14.36 * static_cast<double>(kKernelTaps));
  return stop_band_of(bank) / kSampleRate - width / 2.0;
}

std::vector<double> half_kaiser(double attenuation) {
  const double beta = kaiser_beta(attenuation);
  std::vector<double> window(kHalf + 1);
  for (std::size_t i = 0; i < window.size(); ++i)
    window[i] = kaiser_window(static_cast<double>(i) / static_cast<double>(kHalf), beta);
  return window;
}

// Half of the impulse response, kKernelPhases points a frame.
std::vector<double> half_response(const std::vector<double>& window, double cutoff) {
  std::vector<double> response(window.size());
  for (std::size_t i = 0; i < response.size(); ++i) {
    const double x = 2.0 * std::numbers::pi * cutoff * static_cast<double>(i) / static_cast<double>(kKernelPhases);
    response[i] = window[i] * (i == 0 ? 1.0 : std::sin(x) / x);
  }
  return response;
}

// The taps for one fraction, scaled to a gain of 1 at 0 Hz.
void fill_row(const std::vector<double>& response, std::size_t phase, std::span<float> row) {
  const auto distance = [phase](std::size_t tap) {
    const auto ahead = static_cast<std::ptrdiff_t>(tap) - static_cast<std::ptrdiff_t>(kKernelBefore);
    return static_cast<std::size_t>(
        std::abs(ahead * static_cast<std::ptrdiff_t>(kKernelPhases) - static_cast<std::ptrdiff_t>(phase)));
  };
  double sum = 0.0;
  for (std::size_t tap = 0; tap < row.size(); ++tap) sum += response[distance(tap)];
  for (std::size_t tap = 0; tap < row.size(); ++tap) row[tap] = static_cast<float>(response[distance(tap)] / sum);
}

}  // namespace

InterpolationFilters::InterpolationFilters() : rows_(kBanks * kBankSize) {
  const std::vector<double> far_down = half_kaiser(attenuation_of(kFarDown));
  const std::vector<double> others = half_kaiser(attenuation_of(kUnison));
  for (std::size_t bank = 0; bank < kBanks; ++bank) {
    const std::vector<double> response = half_response(bank == kFarDown ? far_down : others, cutoff_of(bank));
    for (std::size_t phase = 0; phase <= kKernelPhases; ++phase) {
      fill_row(response, phase, std::span(rows_).subspan(bank * kBankSize + phase * kKernelTaps, kKernelTaps));
    }
  }
}

std::size_t InterpolationFilters::bank_for(double ratio) noexcept {
  if (ratio < kAudible / (kSampleRate / 2.0)) return kFarDown;
  const double up = std::ceil(std::log2(ratio) * kBanksAnOctave - 1e-6);
  return kUnison + static_cast<std::size_t>(std::clamp(up, 0.0, static_cast<double>(kBanks - 1 - kUnison)));
}

const float* InterpolationFilters::rows(std::size_t bank) const noexcept { return rows_.data() + bank * kBankSize; }

const InterpolationFilters& interpolation_filters() {
  static const InterpolationFilters filters;
  return filters;
}

}  // namespace tandem
