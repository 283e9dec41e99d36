// A section of a longer sound in contiguous memory, left and right in arrays of their own: frames are added at its end
// and dropped at its beginning. A frame is named by its number in the whole sound. One thread; allocates only when
// constructed.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class SlidingWindow {
 public:
  // capacity: the most frames that can be held at once. Adding is cheapest if that is twice what is usually held.
  explicit SlidingWindow(std::size_t capacity) : left_(capacity), right_(capacity) {}

  Frames begin() const noexcept { return begin_; }
  Frames end() const noexcept { return begin_ + static_cast<Frames>(size_); }

  // The samples from frame `at` on; begin() <= at <= end(). Valid until the next frame is added.
  const float* left(Frames at) const noexcept { return left_.data() + (at - begin_); }
  const float* right(Frames at) const noexcept { return right_.data() + (at - begin_); }
  StereoFrame frame(Frames at) const noexcept { return {*left(at), *right(at)}; }

  void restart(Frames at) noexcept;     // becomes empty; the next frame added has number `at`
  void forget(Frames before) noexcept;  // frames below this number may be dropped from now on
  void add(std::span<const StereoFrame> frames) noexcept;
  void add_silence(std::size_t count) noexcept;

 private:
  std::size_t make_room(std::size_t count) noexcept;  // returns the index of the first new frame

  std::vector<float> left_;
  std::vector<float> right_;
  Frames begin_ = 0;
  Frames needed_ = 0;
  std::size_t size_ = 0;
};

}  // namespace tandem
