// How bars rise and fall. UI thread only.
#pragma once

#include <cstdint>
#include <span>

namespace tandem {

enum class DecayKind {
  None,      // down at once
  Step,      // as Uniform, but shown in whole spots
  Exponenc,  // in proportion to the height; from full height as fast as Uniform
  Uniform,   // the same distance in the same time
};

class BarDecay {
 public:
  static constexpr int kRows = 28;  // spots in the full height

  BarDecay() = default;
  // Falls decay x 12 % of the full height a second.
  BarDecay(DecayKind kind, std::int32_t decay) : kind_(kind), speed_(0.12 * decay) {}

  // Each level rises to its target at once and falls towards it. Levels and targets 0 .. 1, as many of one as of the
  // other.
  void move(std::span<float> levels, std::span<const float> targets, double seconds) const noexcept;

  // The height that is drawn for a level.
  float shown(float level) const noexcept;

 private:
  float fallen(float level, double seconds) const noexcept;

  DecayKind kind_ = DecayKind::Step;
  double speed_ = 0.96;  // full heights a second
};

}  // namespace tandem
