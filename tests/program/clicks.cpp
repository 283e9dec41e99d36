#include "program/clicks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace tandem::test {

namespace {

constexpr int kReach = 128;  // the filter has 2 x kReach + 1 taps
constexpr double kCorner = 5000.0 / kSampleRate;

// A high-pass by the window method, with a Blackman window.
std::array<double, 2 * kReach + 1> high_pass() {
  std::array<double, 2 * kReach + 1> taps{};
  for (int i = -kReach; i <= kReach; ++i) {
    const double turn = std::numbers::pi * i;
    const double low = i == 0 ? 2 * kCorner : std::sin(2 * kCorner * turn) / turn;
    const double window = 0.42 + 0.5 * std::cos(turn / kReach) + 0.08 * std::cos(2 * turn / kReach);
    taps.at(static_cast<std::size_t>(i + kReach)) = (i == 0 ? 1.0 : 0.0) - low * window;
  }
  return taps;
}

}  // namespace

Signal low_tone(double seconds) {
  Signal signal{kSampleRate, 2, {}};
  for (std::int64_t i = 0; i < std::llround(seconds * kSampleRate); ++i)
    signal.samples.insert(signal.samples.end(), 2,
                          0.5 * std::sin(2 * std::numbers::pi * 331.7 * static_cast<double>(i) / kSampleRate));
  return signal;
}

double click(std::span<const Sample16> sound, std::size_t from, std::size_t to) {
  static const auto taps = high_pass();
  const auto at = [&sound](std::int64_t i) {
    return i < 0 || i >= std::ssize(sound) ? 0.0 : sound[static_cast<std::size_t>(i)].left / 32768.0;
  };
  double greatest = 0;
  for (auto i = static_cast<std::int64_t>(from); i < static_cast<std::int64_t>(to); ++i) {
    double value = 0;
    for (int k = -kReach; k <= kReach; ++k) value += taps.at(static_cast<std::size_t>(k + kReach)) * at(i + k);
    greatest = std::max(greatest, std::abs(value));
  }
  return greatest;
}

}  // namespace tandem::test
