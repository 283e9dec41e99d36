#include "displays/core/heard_sound.h"

#include <algorithm>

namespace tandem {

HeardSound::HeardSound(std::size_t capacity) : ring_(capacity), mask_(capacity - 1), quiet_(capacity) {}

void HeardSound::feed(std::span<const SoundFrame> frames) noexcept {
  if (frames.empty()) return;
  watch_.fed();
  for (const SoundFrame frame : frames.last(std::min(frames.size(), ring_.size()))) {
    ring_[end_] = frame;
    end_ = (end_ + 1) & mask_;
    quiet_ = frame == SoundFrame{} ? std::min(quiet_ + 1, ring_.size()) : 0;
  }
}

bool HeardSound::advance(double seconds) noexcept {
  const FeedWatch::State state = watch_.advance(seconds);
  if (state != FeedWatch::State::Gone || silent(ring_.size())) return state == FeedWatch::State::Fresh;
  clear();
  return true;
}

void HeardSound::copy_newest(std::span<SoundFrame> out) const noexcept {
  const std::size_t begin = (end_ - out.size()) & mask_;
  const std::size_t unbroken = std::min(out.size(), ring_.size() - begin);
  std::copy_n(&ring_[begin], unbroken, out.data());
  std::copy_n(ring_.data(), out.size() - unbroken, out.data() + unbroken);
}

void HeardSound::clear() noexcept {
  std::fill(ring_.begin(), ring_.end(), SoundFrame{});
  quiet_ = ring_.size();
}

}  // namespace tandem
