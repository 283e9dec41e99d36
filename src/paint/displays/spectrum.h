// The moving part of the spectrum display: draws only what changed into an image at device resolution. UI thread.
#pragma once

#include <QImage>
#include <QRect>
#include <QVarLengthArray>
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "paint/displays/spectrum_backdrop.h"

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

using ChangedRects = QVarLengthArray<QRect, 8>;

/// Brings the display area, whose top left is `origin` in the image, up to date and returns what changed in image
/// pixels: at most eight rectangles, none if nothing moved. The image is RGB32 or premultiplied ARGB32 and holds the
/// whole area. Allocates at the first call only.
ChangedRects update_spectrum(QImage& image, const QPoint& origin, const SpectrumBackdrop& backdrop,
                             const SpectrumPicture& picture, SpectrumTrace& standing);

}  // namespace tandem
