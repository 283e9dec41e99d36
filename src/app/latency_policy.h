// Whether sound is queued far ahead. With a hand near it follows at once; alone it is queued deep, which saves most of
// the wake-ups and holds out when the machine is busy. A machine that proves too busy for the short queue gets the deep
// one in spite of the hand: for a minute, for up to 16 if it happens again and again. UI thread.
#pragma once

#include <algorithm>
#include <cstdint>
#include <utility>

namespace tandem {

class LatencyPolicy {
 public:
  using Milliseconds = std::int64_t;
  static constexpr Milliseconds kAlone = 3000;           // without a hand near, until it is deep
  static constexpr Milliseconds kIdle = 60'000;          // of a hand that does nothing: it has left the panel as it was
  static constexpr Milliseconds kCaution = 60'000;       // after a first break
  static constexpr Milliseconds kMostCaution = 960'000;  // after many
  static constexpr Milliseconds kForgotten = 3'600'000;  // a break is, when so long there was none

  // A hand does something. True if it had rested: the answer of deep() may change at once.
  bool move_hand(Milliseconds now) noexcept {
    const bool rested = now - hand_moved_ > kIdle;
    hand_moved_ = now;
    return rested;
  }

  // `near`: a hand can reach the panel; `seen`: it is on a screen; `breaks`: how often, ever, the device ran dry.
  bool deep(Milliseconds now, bool near, bool seen, std::uint64_t breaks) noexcept {
    if (near && now - hand_moved_ <= kIdle) near_ = now;
    if (std::exchange(underruns_, breaks) != breaks && !deep_) be_cautious(now);
    deep_ = now - near_ > kAlone || now < cautious_until_ || !(seen || near);
    return deep_;
  }

 private:
  void be_cautious(Milliseconds now) noexcept {
    caution_ = now - broke_ > kForgotten ? kCaution : std::min(2 * caution_, kMostCaution);
    broke_ = now;
    cautious_until_ = now + caution_;
  }

  Milliseconds near_ = 0;        // when a hand was last near
  Milliseconds hand_moved_ = 0;  // when it last did anything
  Milliseconds cautious_until_ = 0;
  Milliseconds caution_ = 0;
  Milliseconds broke_ = -kForgotten - 1;
  std::uint64_t underruns_ = 0;
  bool deep_ = false;
};

}  // namespace tandem
