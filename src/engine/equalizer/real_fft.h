// The Fourier transform of a long real signal, by kissfft; for designing filters, not for the render thread.
// One thread at a time; allocates when made. A transform costs about 0.4 ms for 32768 points.
#pragma once

#include <kiss_fftr.h>

#include <complex>
#include <cstddef>
#include <memory>
#include <span>

namespace tandem {

class RealFft {
 public:
  using Complex = std::complex<float>;

  explicit RealFft(std::size_t points);  // even

  std::size_t points() const noexcept { return points_; }
  std::size_t bins() const noexcept { return points_ / 2 + 1; }

  // points() numbers to bins(), and back, scaled so that back(forward(x)) is x.
  void forward(std::span<const float> time, std::span<Complex> spectrum) const;
  void back(std::span<const Complex> spectrum, std::span<float> time) const;

 private:
  struct Release {
    void operator()(kiss_fftr_cfg plan) const noexcept { kiss_fftr_free(plan); }
  };
  using Plan = std::unique_ptr<kiss_fftr_state, Release>;

  std::size_t points_;
  Plan forward_;
  Plan back_;
};

}  // namespace tandem
