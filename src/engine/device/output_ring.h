// The finished sound on its way from the render thread to the output device: float stereo. What the
// device takes (rate, bits) is the output's concern: to 16 bits with a Quantizer16.
// Threads: write() on the render thread, read() on the output's thread; they neither lock nor allocate.
//
// An output that takes sound in large pieces at moments of its own says so with demand(): then what it takes next can
// be made just in time and need not wait here, where it would only make the sound later.
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
  std::size_t write(std::span<const StereoFrame> frames) noexcept;  // returns how many fitted
  std::size_t read(std::span<StereoFrame> out) noexcept;            // returns how many there were

  // The output's thread: it demands from now on, and would take so many frames at once; 0 if it has what it wants.
  void demand(std::size_t frames) noexcept;
  // The output's thread: it demands no more, for it plays out, is held or has ended.
  void end_demands() noexcept;
  bool has_demands() const noexcept { return has_demands_.load(std::memory_order_acquire); }
  std::size_t demanded() const noexcept { return demanded_.load(std::memory_order_acquire); }
  // The render thread: waits until frames are demanded, at most so long, or called off. How many; 0 if none were.
  std::size_t await_demand(std::chrono::milliseconds most) noexcept;
  // The render thread: from now on it makes sound, and says with supply() whenever there is more, or it rests. Until it
  // says so again, an output that begins may say it for it.
  void serve(bool serves) noexcept { served_.store(serves, std::memory_order_release); }
  bool served() const noexcept { return served_.load(std::memory_order_acquire); }
  // Whether it waits in await_demand().
  bool is_awaiting_demand() const noexcept { return awaits_demand_.load(std::memory_order_acquire); }
  // The render thread: what was demanded lies there now, or as much of it as there will be for the moment.
  void supply() noexcept;
  // The output's thread: demand(), and waits until it is supplied, at most so long; not at all where nobody makes
  // sound.
  void demand_now(std::size_t frames, std::chrono::milliseconds most) noexcept;
  // Any thread: who waits for a demand looks about.
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
  std::atomic<bool> told_{false};  // the semaphore is raised
  std::atomic<bool> served_{false};
  std::atomic<bool> awaits_supply_{false};
  std::atomic<bool> awaits_demand_{false};
  Semaphore demand_;
  Semaphore supply_;
  FlightRecorder flight_recorder_;
};

}  // namespace tandem
