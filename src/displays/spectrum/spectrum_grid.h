// Where the columns and rows of the spectrum lie, in device pixels from the top left corner of the display.
// Values; any thread.
#pragma once

#include <array>
#include <cstdint>

#include "displays/core/sound_frame.h"

namespace tandem {

// One pitch for all columns and one for all rows, whole pixels at every scale; the left half begins at the left margin,
// the right half ends at the right one, and what is left over lies between them.
struct SpectrumGrid {
  double scale = 1.0;  // 1 = 100 %
  int columns = 0;     // of each half
  int pitch = 0;       // from column to column, gap included
  int gap = 0;
  int rows = 0;
  int row_pitch = 0;  // from row to row, gap included
  int row_gap = 0;
  int baseline = 0;       // first line below the columns
  int strip_top = 0;      // of the scale strip
  BothSides<int> left{};  // x of the first column of each half

  int column_x(std::size_t side, int column) const { return left[side] + column * pitch; }
  int column_width() const { return pitch - gap; }
  int half_width() const { return columns * pitch - gap; }
  int height() const { return rows * row_pitch; }
  int top() const { return baseline - height(); }
  int roll_step() const { return scale < 1.0 ? 1 : static_cast<int>(2.0 * scale); }  // pixels of a step of the roll
  int row_top(int row) const { return baseline - (row + 1) * row_pitch; }
  friend bool operator==(const SpectrumGrid&, const SpectrumGrid&) = default;
};

inline constexpr int kSpectrumWidth = 337;  // px at scale 1
inline constexpr int kSpectrumHeight = 91;

// Columns of 5 px with their gap at the transform length 64, wider for shorter ones, narrower for longer ones down to
// 2 device pixels; rows of 3 px.
SpectrumGrid spectrum_grid(std::int32_t fft_length, double scale);

}  // namespace tandem
