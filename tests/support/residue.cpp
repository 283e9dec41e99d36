#include "support/residue.h"

#include <cmath>
#include <complex>
#include <numbers>
#include <numeric>

namespace tandem::test {

namespace {

double power_of(const std::vector<double>& values) {
  return std::inner_product(values.begin(), values.end(), values.begin(), 0.0);
}

// Takes a tone out that fits into `values` a whole number of times.
void remove_tone(std::vector<double>& values, double hz) {
  const double turn = 2.0 * std::numbers::pi * hz / kSampleRate;
  std::complex<double> sum;
  for (std::size_t n = 0; n < values.size(); ++n) sum += values[n] * std::polar(1.0, -turn * static_cast<double>(n));
  sum *= 2.0 / static_cast<double>(values.size());
  for (std::size_t n = 0; n < values.size(); ++n)
    values[n] -= (sum * std::polar(1.0, turn * static_cast<double>(n))).real();
}

}  // namespace

double residue_db(std::span<const StereoFrame> sound, const std::vector<double>& tones) {
  std::vector<double> left;
  for (const StereoFrame& frame : sound.subspan(kSampleRate, kSampleRate)) left.push_back(double{frame.left});
  const double all = power_of(left);
  for (const double hz : tones) remove_tone(left, hz);
  return 10.0 * std::log10(power_of(left) / all);
}

}  // namespace tandem::test
