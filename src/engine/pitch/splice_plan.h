// When and where the pitch shifter may splice. Its reading leads or lags the song more and more; a splice takes it
// back. Two rules: a sound that begins is heard once, at full level, at most 4 ms from its time; apart from that
// splices are few, and stand where the sound is most alike. Plain functions of their arguments; any thread.
#pragma once

#include <span>

#include "engine/core/frames.h"
#include "engine/pitch/splice_search.h"

namespace tandem {

// The song as it is read: frame `time` is due, frame `position` is given for it, and reading goes on by `ratio` frames
// for each frame given.
struct ReadHead {
  Frames time = 0;
  double position = 0.0;
  double ratio = 1.0;

  // How far the reading is ahead of the song, in frames; negative if it lags.
  double lead() const noexcept { return position - static_cast<double>(time); }
  // What lead() will be when `frame` is read.
  double lead_at(double frame) const noexcept { return frame - static_cast<double>(time) - (frame - position) / ratio; }
  // The position from which `frame` would be read with that lead.
  double position_for(double frame, double lead) const noexcept {
    return frame - (frame - static_cast<double>(time) - lead) * ratio;
  }
};

struct SplicePlan {
  static constexpr Frames kLongestFade = 882;  // 20 ms of the sound given
  static constexpr Frames kShortestFade = kLongestFade / 4;
  static constexpr Frames kSight = 3200;  // how far ahead of the position onsets must be known

  SpliceRange range;
  Frames fade = 0;      // how long both places sound, in frames given: kLongestFade, a half or a quarter; 0: no splice
  bool urgent = false;  // splice now; otherwise only where the likeness is `enough`
  float enough = 1.0F;
};

// What to do now. onsets: the frames where sounds begin, ascending, and the song's end if it is near.
SplicePlan plan_splice(const ReadHead& head, std::span<const Frames> onsets) noexcept;

// The same at ratio 1, to come as near to lead 0 as the sound allows.
SplicePlan plan_return(const ReadHead& head, std::span<const Frames> onsets) noexcept;

}  // namespace tandem
