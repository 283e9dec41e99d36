// Always on: what the last underruns of the device were like, for tests and diagnostics. It costs a few stores a
// request and is never read in ordinary use.
//
// Threads: rendered() and waited_for_panel() on the render thread, fed(), underrun() and conversion_failed() on the
// thread that serves the device, the rest on any. Nothing here locks, allocates (but underruns()) or calls the system.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include "engine/core/seqlock.h"

namespace tandem {

class FlightRecorder {
 public:
  static constexpr std::size_t kKept = 64;

  enum class Late : std::uint32_t {
    kServer,  // the server or the machine's device: it had been given more than it can have played
    kOutput,  // the thread that serves the device, or the server's request to it: sound lay ready in the ring
    kRender,  // the render thread: the ring was empty
    kPanel,   // the UI thread, for which the render thread waited at a mix point
  };

  // Times in nanoseconds, of the monotonic clock or before `at`; sound in frames.
  struct Underrun {
    std::int64_t at = 0;
    std::int64_t since_fed = 0;       // the device was given sound in time
    std::int64_t since_rendered = 0;  // the render thread ended a round of work
    std::int64_t since_panel = 0;     // it waited for the panel
    std::int64_t rendered_late = 0;   // how much later than due its last round began
    std::int64_t queued = 0;          // at the device when it was given sound last
    std::int64_t ready = 0;           // in the ring, not taken
    std::uint64_t frame = 0;          // the ring's count there
    std::uint64_t steady = 0;         // 1: it counts; 0: the device or the queue had just changed
  };
  static Late late(const Underrun& underrun) noexcept;
  static std::string text(const Underrun& underrun);

  void rendered(std::int64_t now, std::int64_t late) noexcept;
  void waited_for_panel(std::int64_t now) noexcept { panel_at_.store(now, std::memory_order_relaxed); }

  void fed(std::int64_t now, std::int64_t queued) noexcept;
  // Completes the record from what was noted before.
  void underrun(std::int64_t now, std::int64_t ready, std::uint64_t frame, bool steady) noexcept;

  // The conversion to the device's rate, which was then left to the server or to ALSA.
  void conversion_failed() noexcept { failed_conversions_.fetch_add(1, std::memory_order_relaxed); }

  std::vector<Underrun> underruns() const;  // the newest kKept, oldest first
  std::uint64_t failed_conversions() const noexcept { return failed_conversions_.load(std::memory_order_relaxed); }

 private:
  std::atomic<std::int64_t> rendered_at_{0};
  std::atomic<std::int64_t> rendered_late_{0};
  std::atomic<std::int64_t> panel_at_{0};
  struct Feed {
    std::int64_t at = 0;
    std::int64_t queued = 0;
  };
  Feed feed_;  // the last two, on the serving thread
  Feed feed_before_;
  std::array<SeqLock<Underrun>, kKept> kept_;
  std::atomic<std::uint64_t> count_{0};
  std::atomic<std::uint64_t> failed_conversions_{0};
};

}  // namespace tandem
