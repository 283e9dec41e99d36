// A song read at its own speed, but spliced to earlier or later places of itself where it fits best (WSOLA), so that a
// reader that takes frames faster or slower than the song goes by can stay in step with it.
// Render thread; allocates only when constructed.
#pragma once

#include <cstddef>
#include <vector>

#include "engine/pitch/sliding_window.h"
#include "engine/pitch/song_input.h"
#include "engine/pitch/splice_search.h"

namespace tandem {

class TimeStretch {
 public:
  static constexpr Frames kBefore = 64;   // frames kept before the reader's position
  static constexpr Frames kAhead = 4096;  // frames of the song that begin() and the first splice need
  static constexpr Frames kBack = 2048;   // frames of the song before it that begin() takes if there are any

  TimeStretch();

  // The stretched sound: its frame numbers are its own. Begins with the song's frame `at` under the number `at`.
  const SlidingWindow& sound() const noexcept { return sound_; }
  // The song itself, at least from the last begin() or 4096 frames before the last forget() on.
  const SlidingWindow& song() const noexcept { return song_; }

  // Begins anew at the ring's reading position, frame `at` of the song; takes what lies before it from the ring too.
  void begin(const SongInput& song, Frames at) noexcept;

  // Adds frames up to the next splice and 30 ms behind it. heard_at: the frame of the song that should be heard at the
  // splice; ratio: how fast the reader will go there; bias: see SpliceSearch. False if the ring ran dry: nothing is
  // added then, and it can be tried again.
  bool splice(const SongInput& song, double heard_at, double ratio, float bias) noexcept;
  // Adds 10 ms without a splice. As above.
  bool go_straight(const SongInput& song) noexcept;

  // Song frame less frame number, for what lies behind the last splice's fade.
  Frames offset() const noexcept { return tail_ - sound_.end(); }

  // The reader is at `number` of the sound and gives song frame `at`: what lies far enough before may go.
  void forget(Frames number, Frames at) noexcept;

 private:
  SlidingWindow song_;
  SlidingWindow sound_;
  SpliceSearch search_;
  std::vector<float> fade_;  // the rising half of a Hann window
  Frames tail_ = 0;          // the song frame that would follow without a splice
};

}  // namespace tandem
