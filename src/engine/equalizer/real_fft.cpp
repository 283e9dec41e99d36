#include "engine/equalizer/real_fft.h"

#include <new>

namespace tandem {

namespace {

// std::complex is laid out as two numbers in a row, as kissfft's own type is.
const kiss_fft_cpx* plain(std::span<const RealFft::Complex> bins) {
  return reinterpret_cast<const kiss_fft_cpx*>(bins.data());
}
kiss_fft_cpx* plain(std::span<RealFft::Complex> bins) { return reinterpret_cast<kiss_fft_cpx*>(bins.data()); }

kiss_fftr_cfg plan(std::size_t points, bool inverse) {
  kiss_fftr_cfg made = kiss_fftr_alloc(static_cast<int>(points), inverse ? 1 : 0, nullptr, nullptr);
  if (made == nullptr) throw std::bad_alloc();
  return made;
}

}  // namespace

RealFft::RealFft(std::size_t points) : points_(points), forward_(plan(points, false)), back_(plan(points, true)) {}

void RealFft::forward(std::span<const float> time, std::span<Complex> spectrum) const {
  kiss_fftr(forward_.get(), time.data(), plain(spectrum));
}

void RealFft::back(std::span<const Complex> spectrum, std::span<float> time) const {
  kiss_fftri(back_.get(), plain(spectrum), time.data());
  for (float& value : time) value /= static_cast<float>(points_);
}

}  // namespace tandem
