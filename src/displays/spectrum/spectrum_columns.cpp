#include "displays/spectrum/spectrum_columns.h"

#include <algorithm>
#include <cmath>

#include "displays/core/sound_frame.h"

namespace tandem {

namespace {

constexpr double kTop = kHeardRate / 2.0;

// The first bin that isn't below `place` (in bins), with room for the rounding of a whole number.
std::size_t bin_from(double place) { return static_cast<std::size_t>(std::max(0.0, std::ceil(place - 1e-6))); }

}  // namespace

ColumnFit fit_columns(int half_px, int bins, int smallest_pitch) {
  const int pitch = half_px / bins;
  if (pitch >= smallest_pitch && pitch * bins * 6 >= half_px * 5) return {bins, pitch};
  const int wider = std::max(smallest_pitch, (half_px + bins - 1) / bins);
  return {std::max(1, half_px / wider), wider};
}

FrequencyRange shown_range(std::int32_t horizontal_scale, std::int32_t reference_hz) {
  const double width = kTop / horizontal_scale;
  const double low = std::clamp(reference_hz - width / 2.0, 0.0, kTop - width);
  return {low, low + width};
}

void BandMap::prepare(FrequencyRange range, std::size_t bands, std::size_t bins) {
  first_.resize(bands);
  end_.resize(bands);
  const double bins_a_hertz = static_cast<double>(bins) / kTop;
  const auto edge = [&](std::size_t band) {
    const double part = static_cast<double>(band) / static_cast<double>(bands);
    return (range.low_hz + part * (range.high_hz - range.low_hz)) * bins_a_hertz;
  };
  for (std::size_t i = 0; i < bands; ++i) {
    const std::size_t first = bin_from(edge(i));
    const std::size_t end = bin_from(edge(i + 1));
    first_[i] = std::min(first < end || first == 0 ? first : first - 1, bins - 1);
    end_[i] = std::clamp(end, first_[i] + 1, bins);
  }
}

void BandMap::take_greatest(std::span<const float> bins, std::span<float> greatest) const noexcept {
  for (std::size_t i = 0; i < first_.size(); ++i)
    greatest[i] = *std::max_element(bins.data() + first_[i], bins.data() + end_[i]);
}

}  // namespace tandem
