// The spectra of the last seconds, for the kind that lets time run to the left. UI thread only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"

namespace tandem {

// Steps of time by rows of frequency; every cell a height 0 .. 1.
struct RollCells {
  std::size_t steps = 0;
  std::size_t rows = 0;
  std::size_t newest = 0;  // where the newest step lies
  BothSides<std::vector<float>> cells;

  // age 0 is the newest step, drawn at the right; row 0 the lowest frequency.
  std::span<const float> step(std::size_t side, std::size_t age) const {
    return std::span(cells[side]).subspan((newest + steps - age) % steps * rows, rows);
  }
};

// Moves the cells on.
class RollRecorder {
 public:
  static constexpr int kStepsASecond = 15;
  static constexpr double kStep = 1.0 / kStepsASecond;  // seconds

  void prepare(RollCells& cells, std::size_t steps, std::size_t rows);  // clears

  // The heights now, one for each row; a step keeps the greatest that there were in its time. Whether the picture has
  // moved.
  bool move(RollCells& cells, const BothSides<std::vector<float>>& heights, double seconds) noexcept;

  // Only steps that show nothing.
  bool empty(const RollCells& cells) const noexcept { return quiet_steps_ >= cells.steps; }

 private:
  void gather(const BothSides<std::vector<float>>& heights) noexcept;
  bool push(RollCells& cells) noexcept;

  BothSides<std::vector<float>> pending_;
  double waited_ = 0.0;
  std::size_t quiet_steps_ = 0;  // newest steps that show nothing
};

}  // namespace tandem
