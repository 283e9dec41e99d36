#include "engine/read/deck_ring.h"

#include <algorithm>

namespace tandem {

DeckRing::DeckRing() : frames_(kCapacity) {}

std::size_t DeckRing::writable() const noexcept {
  return kCapacity - static_cast<std::size_t>(written() - keep_.load(std::memory_order_acquire));
}

void DeckRing::write(std::span<const StereoFrame> frames) noexcept {
  const std::uint64_t tail = written();
  const std::size_t at = static_cast<std::size_t>(tail & (kCapacity - 1));
  const std::size_t first = std::min(frames.size(), kCapacity - at);
  std::copy_n(frames.begin(), first, frames_.begin() + static_cast<std::ptrdiff_t>(at));
  std::copy(frames.begin() + static_cast<std::ptrdiff_t>(first), frames.end(), frames_.begin());
  tail_.store(tail + frames.size(), std::memory_order_release);
}

std::size_t DeckRing::readable() const noexcept {
  return static_cast<std::size_t>(tail_.load(std::memory_order_acquire) - position());
}

void DeckRing::copy_out(std::uint64_t from, std::span<StereoFrame> out) const noexcept {
  const std::size_t at = static_cast<std::size_t>(from & (kCapacity - 1));
  const std::size_t first = std::min(out.size(), kCapacity - at);
  std::copy_n(frames_.begin() + static_cast<std::ptrdiff_t>(at), first, out.begin());
  std::copy_n(frames_.begin(), out.size() - first, out.begin() + static_cast<std::ptrdiff_t>(first));
}

std::size_t DeckRing::peek(std::span<StereoFrame> out) const noexcept {
  const std::size_t count = std::min(out.size(), readable());
  copy_out(position(), out.first(count));
  return count;
}

std::size_t DeckRing::read(std::span<StereoFrame> out) noexcept {
  const std::size_t count = peek(out);
  const std::uint64_t head = position() + count;
  head_.store(head, std::memory_order_release);
  // What lies further back than the history goes to the writer, and is never taken back from it.
  const std::uint64_t kept = keep_.load(std::memory_order_relaxed);
  keep_.store(std::max(kept, head > kHistory ? head - kHistory : 0), std::memory_order_release);
  return count;
}

void DeckRing::skip_to(std::uint64_t position) noexcept {
  head_.store(position, std::memory_order_release);
  keep_.store(position, std::memory_order_release);
}

std::size_t DeckRing::unread(std::size_t frames) noexcept {
  const std::uint64_t head = position();
  const std::uint64_t kept = keep_.load(std::memory_order_relaxed);
  const std::uint64_t target = std::max(kept, head - std::min<std::uint64_t>(frames, head));
  head_.store(target, std::memory_order_release);
  return static_cast<std::size_t>(head - target);
}

}  // namespace tandem
