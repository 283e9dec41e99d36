// The half that all outputs share: orders are posted to the thread that serves the device, questions are answered from
// what that thread last published. A class derived from it owns the thread.
#pragma once

#include <atomic>
#include <cstdint>

#include "engine/device/output.h"
#include "platform/output/output_commands.h"
#include "platform/output/playback_clock.h"
#include "platform/output/target_state.h"

namespace tandem {

// What the serving thread publishes; any thread reads it.
struct OutputStatus {
  std::atomic<bool> consuming{false};
  std::atomic<int> request_frames{1280};
  std::atomic<std::uint64_t> breaks{0};
  PlaybackClock heard;

  // The serving thread: whether the device takes sound. The render thread, which may rest, hears of it at once.
  void set_consuming(bool takes, OutputRing& ring) noexcept {
    if (consuming.exchange(takes, std::memory_order_acq_rel) == takes) return;
    if (takes) ring.serve(true);  // until the render thread says otherwise: the first demand may wait for it
    ring.call_off();
  }
};

class ThreadedOutput : public Output {
 public:
  void open(int buffer_bytes) override;
  void close() override;
  void start() override;
  void stop() override;
  void pause() override;
  void restart() override;
  void set_queue_length(int buffers) override;

  bool consuming() const noexcept override { return face_.consuming.load(std::memory_order_acquire); }
  std::uint64_t frames_played() const noexcept override { return face_.heard.heard(monotonic_now()); }
  int request_frames() const noexcept override { return face_.request_frames.load(std::memory_order_relaxed); }
  std::uint64_t underruns() const noexcept override { return face_.breaks.load(std::memory_order_relaxed); }
  bool lost() const noexcept override { return false; }  // whatever happens, the device is looked for again

 protected:
  explicit ThreadedOutput(OutputRing& ring) : ring_(ring) {}

  OutputRing& ring_;
  OutputCommands orders_;
  OutputStatus face_;

 private:
  void post(OutputCommand::Kind kind, int value = 0);
};

}  // namespace tandem
