// While the user is at the panel the output queue is short, so that controls are heard at once; otherwise it is long,
// which saves wake-ups and survives a busy machine. A machine that proves too busy for the short queue gets the long
// one in spite of the user: for a minute, for up to 16 if it happens again and again. UI thread; time is an argument.
#pragma once

#include <algorithm>
#include <cstdint>
#include <optional>
#include <utility>

namespace tandem {

class LatencyPolicy {
 public:
  using Milliseconds = std::int64_t;
  static constexpr Milliseconds kUserGone = 3000;        // after the user has left, until the queue is long
  static constexpr Milliseconds kIdle = 60'000;          // without input for this long the user counts as away
  static constexpr Milliseconds kAppears = 1000;         // after the start, until a window that cannot be seen counts
  static constexpr Milliseconds kCaution = 60'000;       // after a first underrun
  static constexpr Milliseconds kMostCaution = 960'000;  // after many
  static constexpr Milliseconds kForgotten = 3'600'000;  // an underrun is, this long after it without another

  // The user does something. True if there was no input for kIdle: the answer of deep() may change at once.
  bool note_input(Milliseconds now) noexcept {
    const bool rested = now - last_input_ > kIdle;
    last_input_ = now;
    return rested;
  }

  // `user_present`: the panel has the pointer or the keyboard; `window_visible`: it is on a screen; `underruns`: ever.
  // The user who has just started the program is present: the queue keeps its length until the window has appeared, for
  // each change of length is a moment in which a busy machine may be late.
  bool deep(Milliseconds now, bool user_present, bool window_visible, std::uint64_t underruns) noexcept {
    if (!begun_) begun_ = present_at_ = now;
    if (user_present && now - last_input_ <= kIdle) present_at_ = now;
    if (std::exchange(underruns_, underruns) != underruns && !deep_) be_cautious(now);
    deep_ = now - present_at_ > kUserGone || now < cautious_until_ ||
            (!(window_visible || user_present) && now - *begun_ > kAppears);
    return deep_;
  }

 private:
  void be_cautious(Milliseconds now) noexcept {
    caution_ = now - last_underrun_ > kForgotten ? kCaution : std::min(2 * caution_, kMostCaution);
    last_underrun_ = now;
    cautious_until_ = now + caution_;
  }

  std::optional<Milliseconds> begun_;
  Milliseconds present_at_ = 0;  // when the user was last present
  Milliseconds last_input_ = 0;  // when the user last did anything
  Milliseconds cautious_until_ = 0;
  Milliseconds caution_ = 0;
  Milliseconds last_underrun_ = -kForgotten - 1;
  std::uint64_t underruns_ = 0;
  bool deep_ = false;
};

}  // namespace tandem
