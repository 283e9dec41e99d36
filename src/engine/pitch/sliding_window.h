// A stretch of a longer sound, left and right apart, kept in one piece: frames are added at its end and forgotten at
// its beginning. Frames are named by their number in the sound. One thread; allocates only when constructed.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class SlidingWindow {
 public:
  // capacity: the frames that may be held at once. Adding is cheapest where it is twice what is held.
  explicit SlidingWindow(std::size_t capacity) : left_(capacity), right_(capacity) {}

  Frames begin() const noexcept { return begin_; }
  Frames end() const noexcept { return begin_ + static_cast<Frames>(size_); }

  // From the frame `at` on, begin() <= at <= end().
  const float* left(Frames at) const noexcept { return left_.data() + (at - begin_); }
  const float* right(Frames at) const noexcept { return right_.data() + (at - begin_); }
  StereoFrame frame(Frames at) const noexcept { return {*left(at), *right(at)}; }

  void restart(Frames at) noexcept;     // empty; the next frame added is number `at`
  void forget(Frames before) noexcept;  // frames before this one may go
  void add(std::span<const StereoFrame> frames) noexcept;
  void add_silence(std::size_t count) noexcept;
  // Frames from..from+count of another window; with a fade, `count` frames that go over from `old_from` to `from`
  // by the rising weights fade[0..count).
  void add(const SlidingWindow& other, Frames from, std::size_t count) noexcept;
  void add_faded(const SlidingWindow& other, Frames old_from, Frames from, std::span<const float> fade) noexcept;

 private:
  std::size_t make_room(std::size_t count) noexcept;  // returns where they go

  std::vector<float> left_;
  std::vector<float> right_;
  Frames begin_ = 0;
  Frames needed_ = 0;
  std::size_t size_ = 0;
};

}  // namespace tandem
