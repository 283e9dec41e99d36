// The last resort of an unattended list: while the panel plays and the output runs, half a second without any unmuted
// song that goes on (quiet music is not meant) makes one mix tick see all songs as ended, and one end is notified.
// A panel that was held up, with ends of songs yet to be delivered, is no silence: steps count only up to kAsked since
// the last question. UI thread. A class of its own, so that tests can switch it off.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tandem {

class SilenceGuard {
 public:
  static constexpr std::uint64_t kSteps = 50;  // of 10 ms
  static constexpr std::uint64_t kAsked = 25;  // at most so many between two questions while all is well

  void switch_off() { on_ = false; }

  // To be asked once per step or less often: true if the silence is to be broken now. `playing`: the panel's mix timer
  // runs and the output too. `step`: the mixer's steps so far; `live_step`: the last one with a song that goes on.
  bool due(bool playing, std::uint64_t step, std::uint64_t live_step) {
    if (!playing) {
      watching_ = false;
      return false;
    }
    const std::uint64_t held_up = watching_ && step - asked_ > kAsked ? step - asked_ - kAsked : 0;
    since_ = watching_ ? since_ + held_up : step;
    watching_ = true;
    asked_ = step;
    since_ = std::max(since_, live_step);
    if (!on_ || step - since_ < kSteps) return false;
    since_ = step;
    return true;
  }

 private:
  bool on_ = true;
  bool watching_ = false;
  std::uint64_t asked_ = 0;  // the step of the last question
  std::uint64_t since_ = 0;
};

}  // namespace tandem
