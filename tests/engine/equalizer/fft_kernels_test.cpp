// Every kind of processor's code against plain sums: only one of them runs in the equalizer on this machine.
#include "engine/equalizer/fft_kernels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <memory>
#include <numbers>
#include <random>

namespace tandem {
namespace {

using Number = std::complex<double>;

// 24-bit numbers through nine binary stages, in sums of some tens.
constexpr double kRounding = 2e-5;

Block noise_block(unsigned seed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<float> level(-1.0F, 1.0F);
  Block block{};
  for (std::size_t i = 0; i < kPartition; ++i) {
    block.left[i] = level(random);
    block.right[i] = level(random);
  }
  return block;
}

Number sample(const Block& block, std::size_t i) { return {double{block.left[i]}, double{block.right[i]}}; }

Number bin(const SpectrumTable& table, std::size_t slot, std::size_t index) {
  const float* const at = table.at(index) + slot * SpectrumTable::kEntry;
  return {double{at[0]}, double{at[SpectrumTable::kGroup]}};
}

void set(Spectrum& spectrum, std::size_t index, const Number& value) {
  spectrum.re[index] = static_cast<float>(value.real());
  spectrum.im[index] = static_cast<float>(value.imag());
}

Number at(const Spectrum& spectrum, std::size_t index) {
  return {double{spectrum.re[index]}, double{spectrum.im[index]}};
}

class EveryKernel : public testing::TestWithParam<Kernels> {};

// Where a bin lies: that of frequency k + 8 i + 64 j lies in row j of the group of 64 with number k, at place i.
std::size_t place_of(std::size_t frequency) {
  return (frequency % 8) * 64 + (frequency / 64) * 8 + (frequency / 8) % 8;
}

TEST_P(EveryKernel, TheTransformIsThePlainSum) {
  const Block earlier = noise_block(1);
  const Block later = noise_block(2);
  const auto table = std::make_unique<SpectrumTable>();
  GetParam().forward(earlier, later, *table, 7);
  for (std::size_t frequency = 0; frequency < kTransform; ++frequency) {
    Number sum;
    for (std::size_t n = 0; n < kTransform; ++n) {
      const Number x = n < kPartition ? sample(earlier, n) : sample(later, n - kPartition);
      sum += x * std::polar(1.0, -2.0 * std::numbers::pi * static_cast<double>(frequency * n % 512) / 512.0);
    }
    ASSERT_NEAR(std::abs(bin(*table, 7, place_of(frequency)) - sum), 0.0, kRounding) << frequency;
    ASSERT_EQ(bin(*table, 6, frequency), Number{});
    ASSERT_EQ(bin(*table, 8, frequency), Number{});
  }
}

TEST_P(EveryKernel, TheWayBackGivesTheLaterBlock) {
  const Block earlier = noise_block(3);
  const Block later = noise_block(4);
  const auto table = std::make_unique<SpectrumTable>();
  GetParam().forward(earlier, later, *table, 0);
  Spectrum spectrum{};
  for (std::size_t i = 0; i < kTransform; ++i) set(spectrum, i, bin(*table, 0, i));
  Block again{};
  GetParam().back(spectrum, again);
  for (std::size_t i = 0; i < kPartition; ++i) {
    ASSERT_NEAR(std::abs(sample(again, i) / 512.0 - sample(later, i)), 0.0, 1e-6) << i;
  }
}

TEST_P(EveryKernel, TheSumsOfProductsAreThePlainSums) {
  const auto x = std::make_unique<SpectrumTable>();
  const auto h = std::make_unique<SpectrumTable>();
  for (std::size_t i = 0; i < kPartitions; ++i) {
    const auto seed = static_cast<unsigned>(i);
    GetParam().forward(noise_block(100 + seed), noise_block(200 + seed), *x, i);
    GetParam().forward(noise_block(300 + seed), noise_block(400 + seed), *h, i);
  }
  constexpr std::size_t kNewest = 77;
  const auto sums = std::make_unique<SpectraAhead>();
  GetParam().ahead(*x, kNewest, *h, *sums);
  const double rounding =
      0.02;  // sums of 20 products of numbers about 20: a 24-bit number's last place many times over
  for (std::size_t i = 0; i < kTransform; ++i) {
    for (std::size_t block = 0; block < kAhead; ++block) {
      Number sum;
      for (std::size_t p = block; p < kPartitions; ++p) {
        sum += bin(*x, (kNewest + block - p) % kPartitions, i) * bin(*h, p, i);
      }
      ASSERT_NEAR(std::abs(at((*sums)[block], i) - sum), 0.0, rounding) << i << ' ' << block;
    }
  }
}

TEST_P(EveryKernel, TheRestOfASumIsAdded) {
  const auto x = std::make_unique<SpectrumTable>();
  const auto h = std::make_unique<SpectrumTable>();
  for (std::size_t i = 0; i < 3; ++i) {
    const auto seed = static_cast<unsigned>(i);
    GetParam().forward(noise_block(500 + seed), noise_block(600 + seed), *x, (kPartitions - 1 + i) % kPartitions);
    GetParam().forward(noise_block(700 + seed), noise_block(800 + seed), *h, i);
  }
  Spectrum sum{};
  sum.re.fill(3.0F);
  GetParam().rest(*x, kPartitions + 1, *h, 3, sum);
  for (std::size_t i = 0; i < kTransform; ++i) {
    const Number expected = 3.0 + bin(*x, 1, i) * bin(*h, 0, i) + bin(*x, 0, i) * bin(*h, 1, i) +
                            bin(*x, kPartitions - 1, i) * bin(*h, 2, i);
    ASSERT_NEAR(std::abs(at(sum, i) - expected), 0.0, 0.001) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Usable, EveryKernel, testing::ValuesIn(usable_kernels()),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace tandem
