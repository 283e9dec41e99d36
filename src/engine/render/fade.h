// The short raised-cosine ramps of the chain: one step (10 ms) long. Render thread.
#pragma once

#include <cstddef>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

void fade_in(std::span<StereoFrame> frames) noexcept;   // at most one step
void fade_out(std::span<StereoFrame> frames) noexcept;  // at most one step; what is shorter ends faded too

inline StereoFrame scaled(StereoFrame frame, float gain) noexcept { return {frame.left * gain, frame.right * gain}; }

// The master volume: moves to a new gain within one step.
class GainRamp {
 public:
  void set(float gain) noexcept { target_ = gain; }
  void apply(std::span<StereoFrame> frames) noexcept;

 private:
  float gain_ = 1.0F;
  float target_ = 1.0F;
};

// Fades out for pause and in for resume, over one step. When no sound was cut off by the pause (at first, and after
// forget()), there is no fade in: what comes next begins at its full level.
class PauseFade {
 public:
  void begin_fade_in() noexcept { target_audible_ = true; }
  void begin_fade_out() noexcept { target_audible_ = false; }
  // Where nothing sounds no fade is needed.
  void finish_fade_out() noexcept { audible_ = audible_ && target_audible_; }
  void forget() noexcept { starts_at_full_level_ = !audible_; }
  bool fading_out() const noexcept { return audible_ && !target_audible_; }  // over the next step
  bool is_silent() const noexcept { return !audible_ && !target_audible_; }
  void apply(std::span<StereoFrame> frames) noexcept;

 private:
  bool audible_ = false;
  bool target_audible_ = false;
  bool starts_at_full_level_ = true;
};

}  // namespace tandem
