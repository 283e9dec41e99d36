// A needle meter for one side. UI thread only.
// A VU meter as IEC 60268-17 describes it: the average of the rectified sound of each 10 ms, scaled so that a sine
// reads its amplitude, in dB, + 8 + Gain. A full-scale sine stands at +3, the end of the scale, so that a loud master
// plays about 0. The ballistics act on the deflection, which is proportional to the amplitude, as in a real meter.
#pragma once

#include <cstddef>
#include <span>

#include "audio/mm_displays.h"
#include "displays/core/sound_display.h"
#include "displays/meters/block_levels.h"
#include "displays/meters/needle_ballistics.h"

namespace tandem {

inline constexpr double kNeedleTop = 3.0;     // dB on the scale at deflection 1
inline constexpr double kNeedleSwing = 43.0;  // degrees from the middle to either end

// Where a level of the scale (-20 .. +3 dB) lies: 0 at the left stop, 1 at +3.
double needle_deflection(double reading) noexcept;
// The level of a deflection above 0.
double needle_reading(double deflection) noexcept;
// Degrees from the upright, negative to the left.
constexpr double deflection_angle(double deflection) noexcept { return kNeedleSwing * (2.0 * deflection - 1.0); }

class NeedleMeter final : public SwitchedDisplay<MMMeterX> {
 public:
  explicit NeedleMeter(std::size_t side) : side_(side) {}  // 0 left, 1 right

  // 0 at the left stop, 1 at +3; the needle swings over by as much as 0.013.
  double deflection() const { return shown_; }

 private:
  void reset() override;
  void hear(std::span<const SoundFrame> frames) override { levels_.feed(frames); }
  bool pass(double seconds) override;
  bool resting() const override;
  bool show() noexcept;

  std::size_t side_;
  BlockLevels levels_;
  NeedleBallistics needle_;
  double target_ = 0.0;  // the deflection that the newest block asks for
  double shown_ = 0.0;
};

}  // namespace tandem
