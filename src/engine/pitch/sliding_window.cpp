#include "engine/pitch/sliding_window.h"

#include <algorithm>

namespace tandem {
namespace {

void mix(const float* from, const float* to, std::span<const float> fade, float* out) noexcept {
  for (std::size_t i = 0; i < fade.size(); ++i) out[i] = from[i] + fade[i] * (to[i] - from[i]);
}

}  // namespace

void SlidingWindow::restart(Frames at) noexcept {
  begin_ = at;
  needed_ = at;
  size_ = 0;
}

void SlidingWindow::forget(Frames before) noexcept { needed_ = std::clamp(before, needed_, std::max(needed_, end())); }

void SlidingWindow::add(std::span<const StereoFrame> frames) noexcept {
  std::size_t at = make_room(frames.size());
  for (const StereoFrame& frame : frames) {
    left_[at] = frame.left;
    right_[at] = frame.right;
    ++at;
  }
}

void SlidingWindow::add_silence(std::size_t count) noexcept {
  const std::size_t at = make_room(count);
  std::fill_n(left_.data() + at, count, 0.0F);
  std::fill_n(right_.data() + at, count, 0.0F);
}

void SlidingWindow::add(const SlidingWindow& other, Frames from, std::size_t count) noexcept {
  const std::size_t at = make_room(count);
  std::copy_n(other.left(from), count, left_.data() + at);
  std::copy_n(other.right(from), count, right_.data() + at);
}

void SlidingWindow::add_faded(const SlidingWindow& other, Frames old_from, Frames from,
                              std::span<const float> fade) noexcept {
  const std::size_t at = make_room(fade.size());
  mix(other.left(old_from), other.left(from), fade, left_.data() + at);
  mix(other.right(old_from), other.right(from), fade, right_.data() + at);
}

std::size_t SlidingWindow::make_room(std::size_t count) noexcept {
  if (size_ + count > left_.size()) {
    const auto gone = static_cast<std::size_t>(needed_ - begin_);
    size_ -= gone;
    std::copy_n(left_.data() + gone, size_, left_.data());
    std::copy_n(right_.data() + gone, size_, right_.data());
    begin_ = needed_;
  }
  const std::size_t at = size_;
  size_ += count;
  return at;
}

}  // namespace tandem
