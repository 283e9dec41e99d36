#include "displays/spectrum/stereo_spectrum.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <numeric>

namespace tandem {

void StereoSpectrum::prepare(std::size_t length, FftWindow window) {
  plan_.reset(kiss_fft_alloc(static_cast<int>(length), 0, nullptr, nullptr));
  if (!plan_) throw std::bad_alloc();
  window_.resize(length);
  fill_window(window, window_);
  const double energy = std::inner_product(window_.begin(), window_.end(), window_.begin(), 0.0);
  const auto scale = static_cast<float>(1.0 / std::sqrt(energy * static_cast<double>(length)));
  for (float& point : window_) point *= scale;
  time_.resize(length);
  bins_.resize(length);
  for (auto& side : power_) side.assign(length / 2, 0.0F);
}

void StereoSpectrum::analyse(std::span<const SoundFrame> frames, std::size_t first, std::size_t end) noexcept {
  for (std::size_t i = 0; i < window_.size(); ++i)
    time_[i] = {frames[i].left * window_[i], frames[i].right * window_[i]};
  kiss_fft(plan_.get(), time_.data(), bins_.data());
  const auto square = [](float x) { return x * x; };
  // The sums are twice the spectrum of one side: four times its power, which is what both halves of a real spectrum
  // and the sine's mean square of 1/2 ask for.
  for (std::size_t k = std::max<std::size_t>(first, 1); k < end; ++k) {
    const kiss_fft_cpx& a = bins_[k];
    const kiss_fft_cpx& b = bins_[bins_.size() - k];
    power_[0][k] = square(a.r + b.r) + square(a.i - b.i);
    power_[1][k] = square(a.i + b.i) + square(b.r - a.r);
  }
}

void StereoSpectrum::clear() noexcept {
  for (auto& side : power_) std::fill(side.begin(), side.end(), 0.0F);
}

}  // namespace tandem
