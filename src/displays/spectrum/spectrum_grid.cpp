#include "displays/spectrum/spectrum_grid.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

constexpr double kMargin = 2.0;   // px at scale 1, left and right
constexpr double kBetween = 5.0;  // at least between the halves
constexpr double kColumnHeight = 84.0;
constexpr double kRowPitch = 3.0;
constexpr double kPitchTimesLength = 320.0;
constexpr int kLeastPitch = 2;  // device pixels

int whole(double pixels) { return std::max(1, static_cast<int>(std::floor(pixels + 1e-6))); }

}  // namespace

SpectrumGrid spectrum_grid(std::int32_t fft_length, double scale) {
  SpectrumGrid grid;
  grid.scale = scale;
  grid.pitch = std::max(kLeastPitch, whole(kPitchTimesLength * scale / fft_length));
  grid.gap = std::min(whole(scale), grid.pitch / 2);
  grid.row_pitch = whole(kRowPitch * scale);
  grid.row_gap = whole(scale);
  grid.rows = whole(kColumnHeight * scale / grid.row_pitch);
  grid.strip_top = static_cast<int>(std::lround(kSpectrumHeight * scale)) - whole(scale) - whole(3.0 * scale);
  grid.baseline = grid.strip_top - whole(scale);

  const auto width = static_cast<int>(std::lround(kSpectrumWidth * scale));
  const auto margin = static_cast<int>(std::lround(kMargin * scale));
  const double half = (kSpectrumWidth - 2.0 * kMargin - kBetween) * scale / 2.0;
  grid.columns = whole((half + grid.gap) / grid.pitch);
  grid.left = {margin, width - margin - grid.half_width()};
  return grid;
}

}  // namespace tandem
