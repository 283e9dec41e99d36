#include "displays/spectrum/stereo_spectrum.h"

#include <new>

namespace tandem {

void StereoSpectrum::prepare(std::size_t length, FftWindow window) {
  plan_.reset(kiss_fft_alloc(static_cast<int>(length), 0, nullptr, nullptr));
  if (!plan_) throw std::bad_alloc();
  window_.resize(length);
  fill_window(window, window_);
  const auto scale = static_cast<float>(1.0 / (coherent_gain(window_) * static_cast<double>(length)));
  for (float& point : window_) point *= scale;
  frames_.resize(length);
  time_.resize(length);
  bins_.resize(length);
  for (auto& side : power_) side.assign(length / 2, 0.0F);
}

void StereoSpectrum::analyse(const HeardSound& sound) noexcept {
  sound.copy_newest(frames_);
  lay_window();
  kiss_fft(plan_.get(), time_.data(), bins_.data());
  take_apart();
}

void StereoSpectrum::lay_window() noexcept {
  for (std::size_t i = 0; i < window_.size(); ++i)
    time_[i] = {frames_[i].left * window_[i], frames_[i].right * window_[i]};
}

void StereoSpectrum::take_apart() noexcept {
  const auto square = [](float x) { return x * x; };
  // A sine shares its amplitude between two bins, but what stands in bin 0 is there alone.
  power_[0][0] = square(bins_[0].r);
  power_[1][0] = square(bins_[0].i);
  for (std::size_t k = 1; k < power_[0].size(); ++k) {
    const kiss_fft_cpx& a = bins_[k];
    const kiss_fft_cpx& b = bins_[bins_.size() - k];
    power_[0][k] = square(a.r + b.r) + square(a.i - b.i);
    power_[1][k] = square(a.i + b.i) + square(b.r - a.r);
  }
}

}  // namespace tandem
