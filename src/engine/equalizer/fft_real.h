// The Fourier transform of a long real signal, in double precision; for designing filters, not for the render thread.
// Method: radix 2 on half as many complex points, then split into the even and odd samples' spectra.
#pragma once

#include <complex>
#include <cstddef>
#include <vector>

namespace tandem {

class RealFft {
 public:
  explicit RealFft(std::size_t points);  // a power of two, at least 4

  // points real numbers to points / 2 + 1 bins, and back (scaled so that back(forward(x)) is x).
  std::vector<std::complex<double>> forward(const std::vector<double>& time) const;
  std::vector<double> back(const std::vector<std::complex<double>>& spectrum) const;

 private:
  void transform(std::vector<std::complex<double>>& points) const;

  std::size_t points_;
  std::vector<std::complex<double>> roots_;  // exp(-2 pi i k / points), k = 0 .. points / 2 - 1
};

}  // namespace tandem
