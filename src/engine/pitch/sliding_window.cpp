#include "engine/pitch/sliding_window.h"

#include <algorithm>

namespace tandem {
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
