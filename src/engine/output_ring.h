// The finished sound on its way from the render thread to the output device: 16-bit stereo.
// Threads: write() on the render thread, read() on the output's thread; no locks, no allocation after construction.
#pragma once

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tandem {

struct Sample16 {  // one frame as the device takes it
  std::int16_t left = 0;
  std::int16_t right = 0;
  friend bool operator==(const Sample16&, const Sample16&) = default;
};
static_assert(sizeof(Sample16) == 4);

class OutputRing {
 public:
  static constexpr std::size_t kCapacity = std::size_t{1} << 16;  // 1.49 s, more than 20 buffers of 10240 bytes

  OutputRing() : frames_(kCapacity) {}

  std::size_t readable() const noexcept;
  std::size_t writable() const noexcept { return kCapacity - readable(); }
  std::size_t write(std::span<const Sample16> frames) noexcept;  // returns how many fitted
  std::size_t read(std::span<Sample16> out) noexcept;            // returns how many there were

  // Frames ever written and ever read; any thread.
  std::uint64_t written() const noexcept { return tail_.load(std::memory_order_acquire); }
  std::uint64_t taken() const noexcept { return head_.load(std::memory_order_acquire); }

 private:
  std::vector<Sample16> frames_;
  alignas(64) std::atomic<std::uint64_t> head_{0};
  alignas(64) std::atomic<std::uint64_t> tail_{0};
};

}  // namespace tandem
