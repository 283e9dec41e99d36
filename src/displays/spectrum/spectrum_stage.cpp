#include "displays/spectrum/spectrum_stage.h"

#include <algorithm>

namespace tandem {

void SpectrumStage::prepare(std::size_t points, FftWindow window, double rate, std::span<const double> edges_hz) {
  spectrum_.prepare(points, window);
  bands_.prepare(edges_hz, rate / static_cast<double>(points), points / 2);
  newest_.assign(points, SoundFrame{});
}

void SpectrumStage::add(std::span<const SoundFrame> frames) noexcept {
  std::shift_left(newest_.begin(), newest_.end(), static_cast<std::ptrdiff_t>(frames.size()));
  std::copy_backward(frames.begin(), frames.end(), newest_.end());
}

void SpectrumStage::transform() noexcept {
  if (bands_.bands() > 0) spectrum_.analyse(newest_, bands_.first_bin(), bands_.end_bin());
}

void SpectrumStage::raise(BothSides<std::span<float>> bands) const noexcept {
  for (std::size_t side = 0; side < kSides; ++side) bands_.raise(spectrum_.power(side), bands[side]);
}

void SpectrumStage::clear() noexcept {
  std::fill(newest_.begin(), newest_.end(), SoundFrame{});
  spectrum_.clear();
}

}  // namespace tandem
