// The decoded sound of one deck, on its way from the deck's reader thread to the render thread.
// A ring of stereo frames that also keeps the last frames that were read, so that the pitch stage can go back.
// Threads: write() and friends on the reader thread, read() and friends on the render thread; no locks, no allocation
// after construction. Positions are counts of frames since construction and never go back but by unread().
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class DeckRing {
 public:
  static constexpr std::size_t kCapacity = std::size_t{1} << 18;  // 5.94 s
  static constexpr std::size_t kHistory = std::size_t{1} << 14;   // 372 ms stay readable before the reading position

  DeckRing();

  // Reader thread.
  std::size_t writable() const noexcept;                     // frames that can be written now
  void write(std::span<const StereoFrame> frames) noexcept;  // at most writable()
  std::uint64_t written() const noexcept { return tail_.load(std::memory_order_relaxed); }

  // Render thread.
  std::size_t readable() const noexcept;                        // frames that can be read now
  std::size_t read(std::span<StereoFrame> out) noexcept;        // returns how many were read
  std::size_t peek(std::span<StereoFrame> out) const noexcept;  // as read(), but they stay
  std::uint64_t position() const noexcept { return head_.load(std::memory_order_relaxed); }
  void skip_to(std::uint64_t position) noexcept;  // forward, at most to what is written
  // Goes back by `frames`, at most kHistory and at most what was read since the last skip_to().
  // Returns how far it went.
  std::size_t unread(std::size_t frames) noexcept;

 private:
  void copy_out(std::uint64_t from, std::span<StereoFrame> out) const noexcept;

  std::vector<StereoFrame> frames_;
  // Where the render thread stands, and the lowest position that the writer must leave alone.
  alignas(64) std::atomic<std::uint64_t> head_{0};
  alignas(64) std::atomic<std::uint64_t> keep_{0};
  alignas(64) std::atomic<std::uint64_t> tail_{0};
};

}  // namespace tandem
