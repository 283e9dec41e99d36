// Moves frames from the ring into one open ALSA device, in its format, keeps a set number of them queued, and reports
// what was played. Paced by time, not by the device's interrupts: each step returns when the next is due, so a device
// that is always ready causes no busy loop. One thread; the current time is a parameter.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "engine/device/output_ring.h"
#include "platform/alsa/alsa_pcm.h"
#include "platform/output/device_feed.h"
#include "platform/output/playback_clock.h"

namespace tandem {

class AlsaPlayer {
 public:
  AlsaPlayer(AlsaPcm pcm, OutputRing& ring, PlaybackClock& clock, std::atomic<std::uint64_t>& underruns);

  void set_queue(int buffer_frames, int depth);  // in the ring's frames
  // One step: takes sound if wanted, otherwise plays what the ring was given up to that count, then holds.
  // Returns when the next step is due.
  Nanoseconds step(bool wanted, std::uint64_t play_up_to, Nanoseconds now);

  bool held() const noexcept { return motion_ == Motion::kHeld; }
  bool asleep() const noexcept { return asleep_; }
  bool gone() const noexcept { return gone_ || unconverted(); }
  bool unconverted() const noexcept { return feed_.broken(); }  // gone since its rate cannot be converted to
  // In the ring's frames.
  int request_frames() const noexcept { return static_cast<int>(ring_frames(request_)); }

 private:
  enum class Motion { kHeld, kPlaying, kPlayingOut };

  Nanoseconds play(const AlsaPcm::Look& look, Nanoseconds now);
  Nanoseconds play_out(const AlsaPcm::Look& look, Nanoseconds now);
  void begin_playing_out(std::uint64_t play_up_to);
  bool look(AlsaPcm::Look& found);
  std::size_t fetch(std::size_t frames);
  std::size_t fetch_end(std::uint64_t up_to);
  std::size_t append(std::size_t frames, const auto& read);
  long send(long space);
  void recover(long error);
  void report(long queued, bool runs, Nanoseconds now);
  std::size_t frame_bytes() const noexcept { return feed_.format().frame_bytes(); }
  long waiting() const noexcept { return static_cast<long>(waiting_.size() / frame_bytes()); }
  std::uint64_t ring_frames(long frames) const noexcept {
    return feed_.format().ring_frames(static_cast<std::uint64_t>(frames));
  }
  Nanoseconds time_of(long frames) const noexcept;

  AlsaPcm pcm_;
  OutputRing& ring_;
  PlaybackClock& clock_;
  std::atomic<std::uint64_t>& underruns_;  // how often the device ran dry while it was to play
  Motion motion_ = Motion::kHeld;
  bool asleep_ = false;
  bool gone_ = false;
  DeviceFeed feed_;
  // In the device's frames:
  long target_ = 0;                 // to keep queued
  long request_ = 0;                // to take at once
  long silence_ = 0;                // after the last one of the ring
  std::vector<std::byte> waiting_;  // out of the ring, not yet in the device
};

}  // namespace tandem
