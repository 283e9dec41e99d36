// The finished sound kept for the displays, which show each frame when it is heard, not when it is made.
// Threads: write() on the render thread, read() on the UI thread; neither waits for the other. What is older than the
// capacity is overwritten.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

class DisplayFeed {
 public:
  static constexpr std::size_t kCapacity = std::size_t{1} << 17;  // 2.97 s, more than the deepest output queue

  DisplayFeed() : frames_(kCapacity) {}

  void write(std::span<const StereoFrame> frames) noexcept;
  // The out.size() frames in front of frame number `until` (frames are counted as the OutputRing counts them).
  // False if they are not written yet or not kept any more; out is then undefined.
  bool read(std::uint64_t until, std::span<StereoFrame> out) const noexcept;
  std::uint64_t written() const noexcept { return written_.load(std::memory_order_acquire); }

 private:
  std::vector<std::atomic<std::uint64_t>> frames_;
  std::atomic<std::uint64_t> announced_{0};  // frames that are, or are just being, written
  std::atomic<std::uint64_t> written_{0};
};

}  // namespace tandem
