#include "support/tap_response.h"

#include <algorithm>
#include <cmath>
#include <complex>

#include "engine/core/frames.h"
#include "engine/equalizer/real_fft.h"

namespace tandem::test {

namespace {

std::vector<RealFft::Complex> transform(const RealFft& fft, std::vector<float> time) {
  time.resize(fft.points());
  std::vector<RealFft::Complex> bins(fft.bins());
  fft.forward(time, bins);
  return bins;
}

}  // namespace

double TapResponse::level_at(double hz) const {
  const double place = hz / step_hz;
  const auto bin = static_cast<std::size_t>(place);
  return std::lerp(level_db[bin], level_db[bin + 1], place - static_cast<double>(bin));
}

// The group delay is the transform of the taps times their number, divided by that of the taps.
TapResponse tap_response(const std::vector<float>& taps, std::size_t points) {
  std::vector<float> ramp = taps;
  for (std::size_t n = 0; n < ramp.size(); ++n) ramp[n] *= static_cast<float>(n);
  const RealFft fft(points);
  const auto bins = transform(fft, taps);
  const auto slopes = transform(fft, ramp);
  TapResponse response{kSampleRate / static_cast<double>(points), {}, {}};
  for (std::size_t k = 0; k < bins.size(); ++k) {
    response.level_db.push_back(20.0 * std::log10(static_cast<double>(std::abs(bins[k]))));
    response.delay_ms.push_back(static_cast<double>((slopes[k] / bins[k]).real()) * 1000.0 / kSampleRate);
  }
  return response;
}

}  // namespace tandem::test
