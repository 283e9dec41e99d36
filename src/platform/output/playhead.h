// The playing position of a device that has no clock of its own: what was added plays at 44100 frames a second, and
// stands when there is no more. Time is a parameter. No thread of its own.
#pragma once

#include <cstdint>

#include "platform/realtime/monotonic_clock.h"

namespace tandem {

class Playhead {
 public:
  void add(std::uint64_t frames, Nanoseconds now) noexcept;  // begins at now if nothing was left to play
  std::uint64_t played(Nanoseconds now) noexcept;            // frames, ever
  std::uint64_t queued(Nanoseconds now) noexcept { return added_ - played(now); }
  // When the queue will have fallen to that many frames; now or earlier if it has.
  Nanoseconds time_of_queue(std::uint64_t frames, Nanoseconds now) noexcept;

 private:
  std::uint64_t added_ = 0;
  std::uint64_t base_ = 0;  // played at since_
  Nanoseconds since_ = 0;
};

}  // namespace tandem
