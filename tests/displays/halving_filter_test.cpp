#include "displays/spectrum/halving_filter.h"

#include <gtest/gtest.h>

#include <cmath>

#include "displays/tones.h"

namespace tandem {
namespace {

// The amplitude that is left of a sine at a share of the old rate.
double left_of(std::size_t pairs, double share) {
  HalvingFilter filter(pairs, 512);
  const Sound tone = sine(4096, share * kHeardRate);
  Sound half(256);
  double energy = 0.0;
  for (std::size_t at = 0; at < tone.size(); at += 512) {
    filter.halve(std::span(tone).subspan(at, 512), half);
    if (at == 0) continue;  // the filter fills
    for (const SoundFrame& frame : half) energy += static_cast<double>(frame.left * frame.left);
  }
  return std::sqrt(2.0 * energy / (7 * 256));
}

double db(double amplitude) { return 20.0 * std::log10(amplitude); }

TEST(HalvingFilter, KeepsTheLowerBand) {
  for (const double share : {0.003, 0.05, 0.1}) EXPECT_NEAR(db(left_of(3, share)), 0.0, 0.1) << share;
  for (const double share : {0.05, 0.1, 0.15, 0.2}) EXPECT_NEAR(db(left_of(8, share)), 0.0, 0.1) << share;
}

TEST(HalvingFilter, TakesOutWhatWouldFoldBackOntoIt) {
  for (const double share : {0.40, 0.43, 0.47}) EXPECT_LT(db(left_of(3, share)), -48.0) << share;
  for (const double share : {0.31, 0.35, 0.40, 0.47}) EXPECT_LT(db(left_of(8, share)), -45.0) << share;
}

TEST(HalvingFilter, BlocksOfAnySizeGiveTheSameSound) {
  const Sound tone = sine(1024, 440.0);
  HalvingFilter whole(8, 1024);
  HalvingFilter parts(8, 512);
  Sound expected(512);
  Sound got(512);
  whole.halve(tone, expected);
  std::size_t at = 0;
  for (const std::size_t size : {2U, 510U, 64U, 448U}) {
    parts.halve(std::span(tone).subspan(at, size), std::span(got).subspan(at / 2, size / 2));
    at += size;
  }
  EXPECT_EQ(got, expected);
}

}  // namespace
}  // namespace tandem
