// The newest frames that were heard. UI thread only.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/feed_watch.h"
#include "displays/core/sound_frame.h"

namespace tandem {

class HeardSound {
 public:
  explicit HeardSound(std::size_t capacity);  // frames that are kept: a power of two

  void feed(std::span<const SoundFrame> frames) noexcept;
  // Whether the kept frames are others than at the last call. Without sound for 50 ms they become silence.
  bool advance(double seconds) noexcept;

  // The newest out.size() frames, oldest first; out must not be larger than the capacity.
  void copy_newest(std::span<SoundFrame> out) const noexcept;
  // Whether the newest `frames` frames are all zero.
  bool silent(std::size_t frames) const noexcept { return quiet_ >= frames; }
  void clear() noexcept;

 private:
  std::vector<SoundFrame> ring_;
  std::size_t mask_;
  std::size_t end_ = 0;    // where the next frame goes
  std::size_t quiet_ = 0;  // zero frames at the end
  FeedWatch watch_;
};

}  // namespace tandem
