// How many frames of the ring have been heard, between two reports of a device: runs on at 44100 frames a second from
// the last report up to its ceiling.
// Threads: publish() on the output's thread only; frames_played() on any thread, without a lock and without waiting.
#pragma once

#include <atomic>
#include <cstdint>

#include "platform/realtime/monotonic_clock.h"

namespace tandem {

class PlaybackClock {
 public:
  struct Anchor {
    std::uint64_t frames = 0;   // heard at that moment
    Nanoseconds at = 0;         // the moment; may lie ahead of now (not yet running)
    std::uint64_t ceiling = 0;  // may not run past this; equal to frames: stands still
  };

  void publish(const Anchor& anchor) noexcept;
  std::uint64_t heard(Nanoseconds now) const noexcept;  // never less than it ever answered

 private:
  bool read(Anchor& anchor) const noexcept;

  std::atomic<std::uint32_t> turn_{0};  // odd while an anchor is being written
  std::atomic<std::uint64_t> frames_{0};
  std::atomic<Nanoseconds> at_{0};
  std::atomic<std::uint64_t> ceiling_{0};
  mutable std::atomic<std::uint64_t> floor_{0};
};

}  // namespace tandem
