#include "displays/spectrum/column_contrast.h"

#include <algorithm>
#include <cmath>

namespace tandem {

namespace {

constexpr double kMemory = 4.0;      // seconds
constexpr float kWellMoved = 0.15F;  // mean distance of a column that needs no help
constexpr float kGreatest = 3.0F;    // times
constexpr float kBottom = 0.02F;
constexpr float kSilence = 1.5F;     // seconds at the bottom: what comes after them stands at its own height
constexpr float kLeastMove = 1e-3F;  // for the division

}  // namespace

void ColumnContrast::prepare(std::size_t columns) {
  habits_.assign(columns, Habit{});
  begun_ = false;
}

void ColumnContrast::begin(std::span<const float> heights) noexcept {
  std::transform(heights.begin(), heights.end(), habits_.begin(), [](float height) {
    return Habit{height, kWellMoved, 0.0F};
  });
  begun_ = true;
}

void ColumnContrast::enlarge(std::span<float> heights, double seconds) noexcept {
  if (!begun_) begin(heights);
  const auto share = static_cast<float>(1.0 - std::exp(-seconds / kMemory));
  for (std::size_t i = 0; i < heights.size(); ++i) {
    Habit& habit = habits_[i];
    const float distance = heights[i] - habit.mean;
    habit.mean += share * distance;
    habit.move += share * (std::abs(distance) - habit.move);
    habit.rest = heights[i] < kBottom ? habit.rest + static_cast<float>(seconds) : 0.0F;
    if (habit.rest > kSilence) habit.move = std::max(habit.move, kWellMoved);
    const float factor = std::clamp(kWellMoved / std::max(habit.move, kLeastMove), 1.0F, kGreatest);
    heights[i] = std::max(0.0F, habit.mean + factor * (heights[i] - habit.mean));
  }
}

}  // namespace tandem
