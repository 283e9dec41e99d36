// How the bins of a spectrum become the columns of a picture.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tandem {

// Columns of one half of the display. A column is `pitch` device px wide with its gap, the gap is 1 px from pitch 3 on.
struct ColumnFit {
  int columns = 1;
  int pitch = 1;
};

// One column for each bin if whole pixels then fill at least five sixths of the half (5 px for 32 bins in 160 px);
// otherwise as many columns as fill it, of at least smallest_pitch px, each with one bin or more.
ColumnFit fit_columns(int half_px, int bins, int smallest_pitch);

// The frequencies that the columns cover.
struct FrequencyRange {
  double low_hz = 0.0;
  double high_hz = 22050.0;
  // 0 at the left end of the half, 1 at the right end.
  double position(double hz) const { return (hz - low_hz) / (high_hz - low_hz); }
};

// 22050 / horizontal_scale Hz around the reference frequency, moved to lie within 0 .. 22050.
FrequencyRange shown_range(std::int32_t horizontal_scale, std::int32_t reference_hz);

// Which bins fall into each of a number of equal bands of a frequency range. A band that is narrower than a bin shows
// the bin below it.
class BandMap {
 public:
  void prepare(FrequencyRange range, std::size_t bands, std::size_t bins);

  // The greatest bin of each band; greatest.size() is the number of bands.
  void take_greatest(std::span<const float> bins, std::span<float> greatest) const noexcept;
  std::size_t bands() const noexcept { return first_.size(); }

 private:
  std::vector<std::size_t> first_;
  std::vector<std::size_t> end_;
};

}  // namespace tandem
