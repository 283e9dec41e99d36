// When a running title moves on: by whole dot columns, evenly, though pictures come a little early or late. UI thread.
#pragma once

#include <cmath>

namespace tandem {

// A column is due as often as a picture of 30 a second, so where the two coincide a millisecond decides which picture
// shows it. Each step therefore draws the phase nearer to a quarter of a column after the due time, which is as far as
// possible from both neighbouring pictures at 60 a second and far from them at 30.
class ScrollSteps {
 public:
  // `columns` a second, after `rest` seconds.
  ScrollSteps(double rest, double columns) noexcept : rest_(rest), columns_(columns) {}

  // How many columns to move on after `seconds` more, a multiple of `step`.
  int advance(double seconds, int step) noexcept {
    const double run = std::fdim(seconds, rest_);
    rest_ = std::fdim(rest_, seconds);
    due_ += run * columns_ / step;
    if (due_ < 1) return 0;
    const int steps = due_ < kSurelyTwo ? 1 : static_cast<int>(due_);
    due_ -= steps;
    due_ += kPull * (kPhase - due_);
    return steps * step;
  }

 private:
  static constexpr double kSurelyTwo = 2.25;  // steps
  static constexpr double kPhase = 0.25;
  static constexpr double kPull = 0.1;

  double rest_;  // seconds
  double columns_;
  double due_ = 0;  // steps
};

}  // namespace tandem
