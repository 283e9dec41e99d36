// The part common to all outputs. The UI thread's commands add up to a target state, which is published to the thread
// that serves the device; queries are answered from what that thread published last.
// Neither side locks, allocates or waits for the other, so the serving thread may have real-time scheduling. The
// derived class owns that thread.
#pragma once

#include <atomic>
#include <cstdint>

#include "base/descriptor.h"
#include "engine/core/seqlock.h"
#include "engine/device/output.h"
#include "platform/output/playback_clock.h"
#include "platform/output/ring_reader_token.h"
#include "platform/output/target_state.h"

namespace tandem {

class ThreadedOutput : public Output {
 public:
  ThreadedOutput(const ThreadedOutput&) = delete;
  ThreadedOutput& operator=(const ThreadedOutput&) = delete;

  // UI thread.
  void open(int buffer_bytes) override;
  void close() override;
  void start() override;
  void stop() override;
  void pause() override;
  void restart() override;
  void set_queue_length(int buffers) override;

  // Any thread.
  bool consuming() const noexcept override { return consuming_.load(std::memory_order_acquire); }
  std::uint64_t frames_played() const noexcept override { return playback_clock_.frames_played(monotonic_now()); }
  int request_frames() const noexcept override { return request_frames_.load(std::memory_order_relaxed); }
  std::uint64_t underruns() const noexcept override { return underruns_.load(std::memory_order_relaxed); }
  bool lost() const noexcept override { return false; }  // whatever happens, the device is looked for again

 protected:
  // `token`: shared with another output that may read the same ring; null if there is none.
  // Throws std::system_error if the system has no descriptor left.
  ThreadedOutput(OutputRing& ring, RingReaderToken* token);

  // Any thread: makes the serving thread check its target again.
  void wake() noexcept;

  // All below: the serving thread.
  int wake_fd() const noexcept { return wake_fd_.number(); }  // readable after a command or wake()
  void take_commands() noexcept;                              // resets wake_fd() and brings target() up to date
  const TargetState& target() const noexcept { return target_; }

  // Whether the device takes sound. A change wakes the render thread, which may be resting.
  void publish_consuming(bool consuming) noexcept;
  void publish_request_frames(int frames) noexcept { request_frames_.store(frames, std::memory_order_relaxed); }
  // The device is gone: what was taken from the ring counts as played, since it will never be heard.
  void abandon_taken() noexcept;
  // Without a device, the end of the sound before a stop is dropped: it would come back at the next start.
  void discard_unplayable() noexcept;

  OutputRing& ring_;
  RingReaderToken& token_;
  PlaybackClock playback_clock_;
  std::atomic<std::uint64_t> underruns_{0};

 private:
  // Changes the target state and publishes it.
  template <class Value>
  void command(void (TargetState::*change)(Value), Value value);

  Descriptor wake_fd_;
  RingReaderToken own_token_;
  TargetState commanded_;  // UI thread
  SeqLock<TargetState> published_;
  TargetState target_;  // serving thread
  std::atomic<bool> consuming_{false};
  std::atomic<int> request_frames_{1280};
};

}  // namespace tandem
