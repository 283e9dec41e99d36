// What one picture of the spectrum shows, and what stands in the image from the one before. Values; any thread.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "paint/strokes/distance_field.h"

namespace tandem {

inline constexpr int kMostPeakMarks = 5;

/// A ring of spectra for the roll, each of `rows` values 0..1 from the lowest frequency up.
struct RollHistory {
  std::span<const float> left;  ///< `steps` x `rows` values
  std::span<const float> right;
  int steps = 0;              ///< spectra in the ring
  int rows = 0;               ///< of the grid
  std::uint64_t written = 0;  ///< spectra ever written; the newest lies at (written - 1) % steps
};

struct SpectrumPicture {
  std::span<const float> left;  ///< height 0..1 of each column; missing columns are empty
  std::span<const float> right;
  /// Heights of the peak marks, `marks_per_column` for each column with the newest first; below 0 = no mark.
  std::span<const float> left_peaks;
  std::span<const float> right_peaks;
  int marks_per_column = 0;
  RollHistory roll;
};

/// What stands in the image. Give a fresh one whenever the image or the backdrop is new.
struct SpectrumTrace {
  /// Places in sixteenths of a device pixel from the top of the area.
  struct Column {
    int top = 0;  ///< lit from here to the bottom
    int bottom = 0;
    std::array<int, kMostPeakMarks> marks{};  ///< top of each mark, -1 = none
    bool operator==(const Column&) const = default;
  };
  std::vector<Column> columns;  ///< left half, then right half; empty = nothing drawn yet
  std::uint64_t roll_steps = 0;
  std::optional<DistanceField> line{};  ///< room to draw the line kind in
  std::vector<int> curve{};             ///< the line's height in each pixel of a half
};

}  // namespace tandem
