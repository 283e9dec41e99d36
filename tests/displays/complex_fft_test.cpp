#include "displays/spectrum/complex_fft.h"

#include <gtest/gtest.h>

#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace tandem {
namespace {

using Numbers = std::vector<std::complex<double>>;

Numbers noise(std::size_t length) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> number(-1.0, 1.0);
  Numbers numbers(length);
  for (auto& value : numbers) value = {number(random), number(random)};
  return numbers;
}

// By the definition, term by term.
std::complex<double> bin_of(const Numbers& signal, std::size_t bin) {
  std::complex<double> sum;
  for (std::size_t i = 0; i < signal.size(); ++i) {
    const double turns = static_cast<double>(bin * i % signal.size()) / static_cast<double>(signal.size());
    sum += signal[i] * std::polar(1.0, -2.0 * std::numbers::pi * turns);
  }
  return sum;
}

void load(ComplexFft& fft, const Numbers& signal) {
  for (std::size_t i = 0; i < signal.size(); ++i) {
    fft.real()[i] = static_cast<float>(signal[i].real());
    fft.imaginary()[i] = static_cast<float>(signal[i].imag());
  }
}

TEST(ComplexFft, EveryBinOfEveryLengthIsThatOfTheDefinition) {
  for (std::size_t length = 16; length <= 2048; length *= 2) {
    const Numbers signal = noise(length);
    ComplexFft fft;
    fft.prepare(length);
    load(fft, signal);
    fft.transform();
    for (std::size_t bin = 0; bin < length; ++bin) {
      const std::complex<double> wanted = bin_of(signal, bin);
      const std::complex<double> got(fft.real()[bin], fft.imaginary()[bin]);
      ASSERT_LT(std::abs(got - wanted), 2e-5 * std::sqrt(static_cast<double>(length))) << bin << " of " << length;
    }
  }
}

TEST(ComplexFft, IsUsedAgainForAnotherSignalAndAnotherLength) {
  ComplexFft fft;
  for (const std::size_t length : {64U, 16U, 64U}) {
    fft.prepare(length);
    for (int times = 0; times < 2; ++times) {
      load(fft, Numbers(length, 1.0));
      fft.transform();
      EXPECT_FLOAT_EQ(fft.real()[0], static_cast<float>(length));
      for (std::size_t bin = 1; bin < length; ++bin) EXPECT_NEAR(fft.real()[bin], 0.0F, 1e-4F) << bin;
    }
  }
}

}  // namespace
}  // namespace tandem
