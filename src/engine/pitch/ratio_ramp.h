// How fast the pitch engine reads, frame by frame: the way from one ratio to another, and the way back into step with
// the song. Ratio: frames read for each frame given; 2^(1/12) is a semitone up. Render thread, no allocation.
#pragma once

#include <span>

#include "engine/core/frames.h"

namespace tandem {

class RatioRamp {
 public:
  void begin(double ratio) noexcept;
  // Goes over to a ratio in a straight line over 512 frames, from whatever is done now.
  void steer(double ratio) noexcept;
  // Reads a song that goes by at its own speed, but `ahead` frames too far on: falls back into step by a speed that
  // differs from 1 by at most 2 % (a third of a semitone), on a cosine.
  void fall_into_step(double ahead) noexcept;

  double target() const noexcept { return target_; }
  double top_ratio() const noexcept;                    // not exceeded by the next frames
  bool resting() const noexcept { return left_ == 0; }  // the ratio has arrived
  bool gliding() const noexcept { return gliding_; }    // falling into step, or in step
  bool in_step() const noexcept { return gliding_ && done_ >= span_; }

  // Puts down the next reading positions, the first one is `from`; returns the one that follows.
  double advance(double from, std::span<double> positions) noexcept;

 private:
  double glide_ahead(Frames frame) const noexcept;
  double advance_steered(double from, std::span<double> positions) noexcept;
  double advance_gliding(double from, std::span<double> positions) noexcept;

  double ratio_ = 1.0;
  double target_ = 1.0;
  double slope_ = 0.0;
  int left_ = 0;
  bool gliding_ = false;
  double ahead_ = 0.0;  // of the glide: at its start, its length, what is done
  Frames span_ = 0;
  Frames done_ = 0;
};

}  // namespace tandem
