// How fast the pitch shifter reads, frame by frame: the ramp from one ratio to another, and the way back into unison
// with the song. Ratio: song frames read for each frame given; 2^(1/12) is a semitone up. Render thread, no allocation.
#pragma once

#include <span>

#include "engine/core/frames.h"

namespace tandem {

class RatioRamp {
 public:
  void begin(double ratio) noexcept;
  // Goes to another ratio in a straight line over 512 frames, from the speed of this moment.
  void set_ratio(double ratio) noexcept;
  // Goes on at ratio 1 with the reading `lead` frames ahead of the song, and takes that lead off: on a half cosine, at
  // a speed that differs from 1 by at most 2 % (a third of a semitone). Then the reading is in unison with the song.
  void resync(double lead) noexcept;

  double target() const noexcept { return target_; }
  double top_ratio() const noexcept;                         // not exceeded by the next frames
  bool settled() const noexcept { return ramp_left_ == 0; }  // the target ratio is reached
  bool resyncing() const noexcept { return resyncing_; }     // from resync() to the next set_ratio()
  bool in_unison() const noexcept { return resyncing_ && done_ >= span_; }

  // Writes the next reading positions, the first of which is `from`; returns the one that follows them.
  double advance(double from, std::span<double> positions) noexcept;

 private:
  double lead_at(Frames frame) const noexcept;
  double advance_ramp(double from, std::span<double> positions) noexcept;
  double advance_resync(double from, std::span<double> positions) noexcept;

  double ratio_ = 1.0;
  double target_ = 1.0;
  double slope_ = 0.0;
  int ramp_left_ = 0;
  bool resyncing_ = false;
  double lead_ = 0.0;  // when resync() began
  Frames span_ = 0;    // frames that it takes
  Frames done_ = 0;    // frames since
};

}  // namespace tandem
