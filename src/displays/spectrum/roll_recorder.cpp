#include "displays/spectrum/roll_recorder.h"

#include <algorithm>

#include "displays/spectrum/heights.h"

namespace tandem {

namespace {

void darken(BothSides<std::vector<float>>& heights) noexcept {
  for (auto& side : heights) std::fill(side.begin(), side.end(), 0.0F);
}

}  // namespace

void RollRecorder::prepare(RollCells& cells, std::size_t steps, std::size_t rows) {
  cells.steps = steps;
  cells.rows = rows;
  for (auto& side : cells.cells) side.resize(steps * rows);
  for (auto& side : pending_) side.resize(rows);
  darken(cells.cells);
  darken(pending_);
  cells.newest = 0;
  waited_ = 0.0;
  quiet_steps_ = cells.steps;
}

bool RollRecorder::move(RollCells& cells, const BothSides<std::vector<float>>& heights, double seconds) noexcept {
  gather(heights);
  // After a long time no more steps than the picture holds.
  waited_ = std::min(waited_ + seconds, kStep * static_cast<double>(cells.steps + 1));
  if (waited_ < kStep) return false;
  bool moved = false;
  for (; waited_ >= kStep; waited_ -= kStep) moved = push(cells) || moved;
  darken(pending_);
  return moved;
}

void RollRecorder::gather(const BothSides<std::vector<float>>& heights) noexcept {
  for (std::size_t side = 0; side < kSides; ++side)
    std::transform(heights[side].begin(), heights[side].end(), pending_[side].begin(), pending_[side].begin(),
                   [](float now, float before) { return std::max(now, before); });
}

bool RollRecorder::push(RollCells& cells) noexcept {
  const bool was_empty = empty(cells);
  cells.newest = (cells.newest + 1) % cells.steps;
  const auto at = static_cast<std::ptrdiff_t>(cells.newest * cells.rows);
  for (std::size_t side = 0; side < kSides; ++side)
    std::copy(pending_[side].begin(), pending_[side].end(), cells.cells[side].begin() + at);
  quiet_steps_ = dark(pending_[0]) && dark(pending_[1]) ? std::min(quiet_steps_ + 1, cells.steps) : 0;
  return !was_empty || !empty(cells);
}

}  // namespace tandem
