// Keeps every column of the spectrum on the move, in dense music too. UI thread only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace tandem {

// In a compressed recording a band stays within a few dB for minutes, and its column would stand still. Here each
// column is drawn about its own mean of the last seconds, and the less it moves about that mean, the more its moves are
// enlarged, up to three times. A column that moves well by itself stays as it is, and a steady tone stands at its own
// height, since it does not leave its mean.
class ColumnContrast {
 public:
  void prepare(std::size_t columns);  // forgets what it has seen; allocates

  // Heights 0 (the bottom) .. 1 (the top) and above, as many as there are columns; the time since the last call.
  void enlarge(std::span<float> heights, double seconds) noexcept;

 private:
  struct Habit {
    float mean = 0.0F;
    float move = 0.0F;  // mean distance from the mean
    float rest = 0.0F;  // seconds at the bottom
  };

  void begin(std::span<const float> heights) noexcept;

  std::vector<Habit> habits_;
  bool begun_ = false;
};

}  // namespace tandem
