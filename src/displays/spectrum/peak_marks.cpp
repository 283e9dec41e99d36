#include "displays/spectrum/peak_marks.h"

#include <algorithm>

namespace tandem {

void PeakMarks::prepare(std::size_t columns, std::size_t count) {
  columns_ = columns;
  heights_.assign(columns * count, 0.0F);
  held_.assign(columns * count, 0.0);
  last_bars_.assign(columns, 0.0F);
  with_.assign(columns, 1);
}

void PeakMarks::put_times(std::int32_t delay, std::int32_t speed) noexcept {
  hold_ = kHoldUnit * delay;
  speed_ = kSpeedUnit * speed;
}

void PeakMarks::move(std::span<const float> bars, double seconds) noexcept {
  if (heights_.empty()) return;
  for (std::size_t mark = 0; mark < heights_.size(); ++mark) fall(mark, seconds);
  for (std::size_t column = 0; column < columns_; ++column) follow(column, bars[column]);
}

void PeakMarks::fall(std::size_t mark, double seconds) noexcept {
  const double falling = std::max(0.0, seconds - held_[mark]);
  held_[mark] = std::max(0.0, held_[mark] - seconds);
  heights_[mark] = std::max(0.0F, heights_[mark] - static_cast<float>(falling * speed_));
}

void PeakMarks::follow(std::size_t column, float bar) noexcept {
  const bool touches = bar >= heights_[column];
  if (touches) {
    if (with_[column] == 0 && bar > last_bars_[column]) start_new(column);
    heights_[column] = bar;
    held_[column] = hold_;
  }
  with_[column] = touches ? 1 : 0;
  last_bars_[column] = bar;
}

void PeakMarks::start_new(std::size_t column) noexcept {
  for (std::size_t mark = heights_.size() - columns_ + column; mark >= columns_; mark -= columns_) {
    heights_[mark] = heights_[mark - columns_];
    held_[mark] = held_[mark - columns_];
  }
}

bool PeakMarks::settled() const noexcept {
  return speed_ <= 0.0 || std::all_of(heights_.begin(), heights_.end(), [](float height) { return height <= 0.0F; });
}

}  // namespace tandem
