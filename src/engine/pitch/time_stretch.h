// Keeps a song that is read faster or slower than it goes by in time, by splices of the song with itself (WSOLA, see
// SpliceSearch, at moments that SplicePlan chooses). It holds the song around the reading position and says from where
// to read; the reading itself is the pitch shifter's.
// Render thread; allocates only when constructed.
#pragma once

#include <array>
#include <span>

#include "engine/pitch/onset_detector.h"
#include "engine/pitch/sliding_window.h"
#include "engine/pitch/song_input.h"
#include "engine/pitch/splice_fade.h"
#include "engine/pitch/splice_plan.h"
#include "engine/pitch/splice_search.h"

namespace tandem {

class TimeStretch {
 public:
  static constexpr Frames kAhead = 4096;  // frames that the ring must hold at begin()
  static constexpr Frames kEvery = 110;   // frames from one decision to the next: 2.5 ms

  enum class Decision {
    kDry,      // the ring does not reach far enough; nothing has changed, try again
    kStay,     // no splice now
    kSpliced,  // the position has moved, fade() has started
  };

  TimeStretch() : song_(std::size_t{1} << 14) {}

  // Starts at the ring's reading position, frame `at` of the song; what lies before it is taken from the ring too.
  void begin(const SongInput& song, Frames at) noexcept;

  // The song, at least from 2000 frames before the time and the position of the last forget() on.
  const SlidingWindow& song() const noexcept { return song_; }
  // The splice under way.
  const SpliceFade& fade() const noexcept { return fade_; }
  SpliceFade& fade() noexcept { return fade_; }

  // Frames until the next decision, or until the fade is over; 0: decide now.
  Frames left(Frames time) const noexcept { return fade_.active() ? fade_.left() : next_ - time; }
  // Splices if it is time to. Not during a fade.
  Decision keep_in_time(const SongInput& song, ReadHead& head) noexcept;
  // At ratio 1: splices as near to lead 0 as the sound allows, as soon as no onset is in the way. That is soon: onsets
  // are further apart than a short fade takes.
  Decision return_to_unison(const SongInput& song, ReadHead& head) noexcept;

  // Takes more of the song from the ring, up to a position. False if the ring ran dry before.
  bool fill(const SongInput& song, double up_to) noexcept;
  // What lies far enough before the head may go.
  void forget(const ReadHead& head) noexcept;

 private:
  bool look_ahead(const SongInput& song, const ReadHead& head) noexcept;
  std::span<const Frames> onsets(const SongInput& song) noexcept;
  Decision carry_out(SplicePlan plan, ReadHead& head) noexcept;

  SlidingWindow song_;
  OnsetDetector detector_;
  SpliceSearch search_;
  SpliceFade fade_;
  std::array<Frames, OnsetDetector::kMost + 1> onsets_{};
  Frames first_ = 0;        // the first frame of the song in the window when it began
  Frames next_ = 0;         // the time of the next decision
  Frames next_search_ = 0;  // no search before this time, unless it is urgent
};

}  // namespace tandem
