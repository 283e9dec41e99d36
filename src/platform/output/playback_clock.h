// How many of the ring's frames have been played, at any moment: the device's own reports are rare and come in jumps,
// so between two of them the count runs on with the clock. Counted as the OutputRing counts, 44100 frames a second.
// Threads: publish() on the thread that serves the device, frames_played() on any thread, without a lock and without
// waiting.
#pragma once

#include <atomic>
#include <cstdint>

#include "engine/core/seqlock.h"
#include "platform/realtime/monotonic_clock.h"

namespace tandem {

class PlaybackClock {
 public:
  struct Anchor {
    std::uint64_t frames = 0;   // played at that moment
    Nanoseconds at = 0;         // the moment; may lie ahead of now (not yet running)
    std::uint64_t ceiling = 0;  // may not run past this; equal to frames: stands still
  };

  void publish(const Anchor& anchor) noexcept { anchor_.publish(anchor); }
  std::uint64_t frames_played(Nanoseconds now) const noexcept;  // never less than it ever answered

 private:
  SeqLock<Anchor> anchor_;
  mutable std::atomic<std::uint64_t> floor_{0};
};

}  // namespace tandem
