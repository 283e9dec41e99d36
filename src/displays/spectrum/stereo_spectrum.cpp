#include "displays/spectrum/stereo_spectrum.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tandem {

void StereoSpectrum::prepare(std::size_t length, FftWindow window) {
  window_.resize(length);
  fill_window(window, window_);
  const double energy = std::inner_product(window_.begin(), window_.end(), window_.begin(), 0.0);
  const auto scale = static_cast<float>(1.0 / std::sqrt(energy * static_cast<double>(length)));
  for (float& point : window_) point *= scale;
  fft_.prepare(length);
  for (auto& side : power_) side.assign(length / 2, 0.0F);
}

void StereoSpectrum::analyse(std::span<const SoundFrame> frames, std::size_t first, std::size_t end) noexcept {
  const std::span<float> re = fft_.real();
  const std::span<float> im = fft_.imaginary();
  for (std::size_t i = 0; i < window_.size(); ++i) {
    re[i] = frames[i].left * window_[i];
    im[i] = frames[i].right * window_[i];
  }
  fft_.transform();
  separate(first, end);
}

// The sums are twice the spectrum of one side: four times its power, which is what both halves of a real spectrum and
// the sine's mean square of 1/2 ask for.
void StereoSpectrum::separate(std::size_t first, std::size_t end) noexcept {
  const std::span<const float> re = fft_.real();
  const std::span<const float> im = fft_.imaginary();
  const auto square = [](float x) { return x * x; };
  for (std::size_t k = std::max<std::size_t>(first, 1); k < end; ++k) {
    const std::size_t mirrored = re.size() - k;
    power_[0][k] = square(re[k] + re[mirrored]) + square(im[k] - im[mirrored]);
    power_[1][k] = square(im[k] + im[mirrored]) + square(re[mirrored] - re[k]);
  }
}

void StereoSpectrum::clear() noexcept {
  for (auto& side : power_) std::fill(side.begin(), side.end(), 0.0F);
}

}  // namespace tandem
