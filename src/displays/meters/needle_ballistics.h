// The movement of a needle: a mass on a damped spring, as in a real level meter. UI thread only.
#pragma once

namespace tandem {

// Second order, w0 = 13.42 rad/s, damping 0.81: 99 % of a step after 300 ms, 1.3 % overshoot, as IEC 60268-17 asks of
// a VU meter. Solved in closed form, so the frame rate doesn't matter. Stops at 0, where a pin holds it.
class NeedleBallistics {
 public:
  void move(double target, double seconds) noexcept;
  double deflection() const noexcept { return deflection_; }
  // Close enough to the target and slow enough that the rest of the way can't be seen.
  bool arrived(double target) const noexcept;
  void stand_at(double deflection) noexcept;

 private:
  double deflection_ = 0.0;
  double speed_ = 0.0;  // a second
};

}  // namespace tandem
