// The level bar between the needle meters: two columns of spots. UI thread only.
// The greatest sample of each 10 ms in dB, + 3 + Gain; 2 dB a row, full scale lights the top row. Rises at once, falls
// in whole spots.
#pragma once

#include <span>

#include "audio/mm_displays.h"
#include "displays/core/sound_display.h"
#include "displays/meters/block_levels.h"

namespace tandem {

class LevelBar final : public SwitchedDisplay<MMLevelX> {
 public:
  static constexpr int kRows = 22;

  // Lit rows from the bottom, 0 .. 22.
  const BothSides<int>& lit() const { return lit_; }

 private:
  void reset() override;
  void hear(std::span<const SoundFrame> frames) override { blocks_.feed(frames); }
  bool pass(double seconds) override;
  bool resting() const override;

  BlockLevels blocks_;
  BothSides<float> targets_{};  // heights 0 .. 1
  BothSides<float> levels_{};
  BothSides<int> lit_{};
};

}  // namespace tandem
