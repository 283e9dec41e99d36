#include "app/tone_times.h"

#include <cmath>
#include <complex>
#include <numbers>

#include "engine/core/frames.h"

namespace tandem::test {

namespace {

constexpr std::size_t kWindow = 220;  // frames
constexpr double kLoudness = 0.25 * 32768;
constexpr double kRate = kSampleRate;

}  // namespace

std::optional<ToneTimes> find_tone(const std::vector<Sample16>& recording, double hertz) {
  std::vector<std::complex<double>> turned(recording.size());
  for (std::size_t i = 0; i < recording.size(); ++i)
    turned[i] = std::polar(static_cast<double>(recording[i].left),
                           -2 * std::numbers::pi * hertz / kRate * static_cast<double>(i));
  std::optional<ToneTimes> found;
  std::complex<double> sum;
  for (std::size_t i = 0; i < turned.size(); ++i) {
    sum += turned[i];
    if (i >= kWindow) sum -= turned[i - kWindow];
    const double amplitude = 2 * std::abs(sum) / kWindow;
    if (amplitude < kLoudness / 2) continue;
    const double seconds = static_cast<double>(i) / kRate;
    if (!found) found = ToneTimes{seconds, seconds};
    found->end = seconds;
  }
  return found;
}

}  // namespace tandem::test
