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
  void open() noexcept { target_open_ = true; }
  void close() noexcept { target_open_ = false; }
  void finish_closing() noexcept { open_ = open_ && target_open_; }  // where nothing sounds, no fade is needed
  void forget() noexcept { opens_at_full_level_ = !open_; }
  bool closing() const noexcept { return open_ && !target_open_; }  // over the next step
  bool closed() const noexcept { return !open_ && !target_open_; }
  void apply(std::span<StereoFrame> frames) noexcept;

 private:
  bool open_ = false;
  bool target_open_ = false;
  bool opens_at_full_level_ = true;
};

}  // namespace tandem
