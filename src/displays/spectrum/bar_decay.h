// How bars rise and fall. UI thread only.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tandem {

enum class DecayKind {
  None,      // down at once
  Step,      // as Uniform; solid bars rest for 100 ms before they fall, LED bars are shown in whole rows
  Exponenc,  // in proportion to the height; from full height as fast as Uniform
  Uniform,   // the same distance in the same time
};

class BarDecay {
 public:
  BarDecay() = default;

  void prepare(std::size_t bars);  // clears the times of rest; allocates
  // Falls decay x 12 % of the full height a second. solid: bars are drawn without LED rows.
  void put(DecayKind kind, std::int32_t decay, bool solid) noexcept;

  // Each level rises to its target at once and falls towards it. Levels and targets 0 .. 1, as many as there are bars.
  void move(std::span<float> levels, std::span<const float> targets, double seconds) noexcept;

  // The height that is drawn for a level, of that many rows.
  float shown(float level, int rows) const noexcept;

 private:
  float fallen(float level, double seconds) const noexcept;

  DecayKind kind_ = DecayKind::Step;
  bool solid_ = false;
  double speed_ = 0.96;       // full heights a second
  std::vector<float> rests_;  // seconds that each bar still rests
};

}  // namespace tandem
