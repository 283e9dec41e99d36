// The discrete Fourier transform of a short complex signal, four numbers at a time. One thread at a time.
// Method: Stockham's self-sorting transform of radix 4 (Van Loan, "Computational Frameworks for the Fast Fourier
// Transform", 1992, section 1.7).
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tandem {

class ComplexFft {
 public:
  void prepare(std::size_t length);  // a power of two from 16; allocates

  // The signal, which transform() replaces by its spectrum: bin k at k, negative frequencies in the upper half.
  std::span<float> real() noexcept { return signal_.re; }
  std::span<float> imaginary() noexcept { return signal_.im; }
  void transform() noexcept;

  std::size_t length() const noexcept { return signal_.re.size(); }

 private:
  struct Numbers {
    std::vector<float> re;
    std::vector<float> im;
    void resize(std::size_t count) {
      re.assign(count, 0.0F);
      im.assign(count, 0.0F);
    }
  };

  void first_pass() noexcept;
  void pass(std::size_t stride) noexcept;
  void halves_pass() noexcept;

  Numbers signal_;
  Numbers other_;        // each pass writes here, then the two are exchanged
  Numbers twiddles_[3];  // exp(-2 pi i r k / length) of the powers r = 1 .. 3, for k below a quarter of the length
};

}  // namespace tandem
