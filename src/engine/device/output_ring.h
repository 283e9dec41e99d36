// The ring buffer of finished sound (float stereo) between the render thread and the output device. Conversion to the
// device's rate and sample format is the output's concern.
// Threads: write() on the render thread, read() on the output's thread; they neither lock nor allocate.
//
// An output that takes sound in large blocks at its own times announces them with demand(): the next block is then
// rendered just in time instead of waiting here, where it would only add latency.
#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "engine/core/frames.h"
#include "engine/core/semaphore.h"
#include "engine/device/flight_recorder.h"

namespace tandem {

class OutputRing {
 public:
  static constexpr std::size_t kCapacity = std::size_t{1} << 16;  // 1.49 s, more than 20 buffers of 10240 bytes

  OutputRing() : frames_(kCapacity) {}

  std::size_t readable() const noexcept;
  std::size_t writable() const noexcept { return kCapacity - readable(); }
  [[nodiscard]] std::size_t write(std::span<const StereoFrame> frames) noexcept;  // returns how many fitted
  [[nodiscard]] std::size_t read(std::span<StereoFrame> out) noexcept;            // returns how many there were

  // The output's thread: asks for that many frames at once; 0 if it has enough for now. has_demands() from then on.
  void demand(std::size_t frames) noexcept;
  // The output's thread: no further demands; it plays out, is paused or has ended.
  void end_demands() noexcept;
  bool has_demands() const noexcept { return has_demands_.load(std::memory_order_acquire); }
  std::size_t demanded() const noexcept { return demanded_.load(std::memory_order_acquire); }
  // The render thread: waits until frames are demanded, call_off() is called or the time is up. Returns how many frames
  // are demanded; 0 if none.
  std::size_t await_demand(std::chrono::milliseconds most) noexcept;
  // The render thread: whether it is rendering and will call supply() for each demand. An output that starts while it
  // is not may set this on its behalf.
  void serve(bool serves) noexcept { served_.store(serves, std::memory_order_release); }
  bool served() const noexcept { return served_.load(std::memory_order_acquire); }
  // Whether it waits in await_demand().
  bool is_awaiting_demand() const noexcept { return awaits_demand_.load(std::memory_order_acquire); }
  // The render thread: what was demanded is in the ring now, or as much of it as can be rendered for the moment.
  void supply() noexcept;
  // The output's thread: demand(), then waits until it is supplied, for at most `most`. Returns at once while nothing
  // renders.
  void demand_now(std::size_t frames, std::chrono::milliseconds most) noexcept;
  // Any thread: wakes a thread in await_demand() without a demand.
  void call_off() noexcept;

  // What both sides of the ring note about their work.
  FlightRecorder& flight_recorder() noexcept { return flight_recorder_; }
  const FlightRecorder& flight_recorder() const noexcept { return flight_recorder_; }

  // Frames ever written and ever read; any thread.
  std::uint64_t written() const noexcept { return tail_.load(std::memory_order_acquire); }
  std::uint64_t taken() const noexcept { return head_.load(std::memory_order_acquire); }

 private:
  std::vector<StereoFrame> frames_;
  alignas(64) std::atomic<std::uint64_t> head_{0};
  alignas(64) std::atomic<std::uint64_t> tail_{0};
  std::atomic<bool> has_demands_{false};
  std::atomic<std::size_t> demanded_{0};
  std::atomic<bool> demand_raised_{false};  // the semaphore is raised
  std::atomic<bool> served_{false};
  std::atomic<bool> awaits_supply_{false};
  std::atomic<bool> awaits_demand_{false};
  Semaphore demand_;
  Semaphore supply_;
  FlightRecorder flight_recorder_;
};

}  // namespace tandem
