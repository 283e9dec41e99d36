// The last resort against dead air in an unattended list. While the panel plays and the output runs, too long a time
// without an unmuted song in progress (quiet passages count as in progress) makes one mix tick see all songs as ended,
// and one end is notified. The limit is 30 ms when both inputs are muted, which only a user's action causes, and half a
// second when one is open, since its song may be about to sound. A delayed panel with undelivered ends of songs does
// not count as silence: at most kAsked steps count between two polls. UI thread; nothing fails.
#pragma once

#include <algorithm>
#include <cstdint>

namespace tandem {

class SilenceGuard {
 public:
  // Steps of 10 ms.
  struct Patience {
    std::uint64_t all_muted = 3;
    std::uint64_t one_open = 50;
  };
  static constexpr std::uint64_t kAsked = 25;  // the most steps that count between two polls

  SilenceGuard() = default;
  explicit SilenceGuard(const Patience& patience) : patience_(patience) {}

  struct State {
    bool playing = false;         // the panel's mix timer runs and the output too
    bool all_muted = false;       // both inputs of the mixer
    std::uint64_t step = 0;       // the mixer's steps so far
    std::uint64_t live_step = 0;  // the last one with a song that goes on
  };
  // To be polled once per step or less often. True if the silence must be broken now.
  bool due(const State& now) {
    if (!now.playing) {
      watching_ = false;
      return false;
    }
    count_to(now);
    const std::uint64_t patience = now.all_muted ? patience_.all_muted : patience_.one_open;
    if (now.step - since_ < patience) return false;
    since_ = now.step;
    return true;
  }

 private:
  void count_to(const State& now) {
    const std::uint64_t held_up = watching_ && now.step - asked_ > kAsked ? now.step - asked_ - kAsked : 0;
    since_ = std::max(watching_ ? since_ + held_up : now.step, now.live_step);
    watching_ = true;
    asked_ = now.step;
  }

  Patience patience_;
  bool watching_ = false;
  std::uint64_t asked_ = 0;  // the step of the last question
  std::uint64_t since_ = 0;  // the step since which it has been silent
};

}  // namespace tandem
