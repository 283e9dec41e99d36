// The output of simulated time: takes every step as soon as it is rendered and passes it to a sink. Nothing is late,
// nothing is queued. One thread.
#pragma once

#include <functional>
#include <span>

#include "engine/device/output.h"

namespace tandem {

// A sink that takes the sound as a 16-bit device does.
std::function<void(std::span<const StereoFrame>)> sink_of_16_bits(std::function<void(std::span<const Sample16>)> sink);

class SimulatedOutput final : public Output {
 public:
  using Sink = std::function<void(std::span<const StereoFrame>)>;

  explicit SimulatedOutput(OutputRing& ring, Sink sink = {}) : ring_(ring), sink_(std::move(sink)) {}

  void open(int buffer_bytes) override { buffer_bytes_ = buffer_bytes; }
  void close() override { running_ = false; }
  void start() override { running_ = true; }
  void stop() override { running_ = false; }
  void pause() override { paused_ = true; }
  void restart() override { paused_ = false; }
  void set_queue_length(int) override {}
  bool consuming() const noexcept override { return running_ && !paused_; }
  std::uint64_t frames_played() const noexcept override { return ring_.taken(); }
  int request_frames() const noexcept override { return buffer_bytes_ / static_cast<int>(sizeof(Sample16)); }
  bool lost() const noexcept override { return false; }

  void drain();  // to be called after each step

 private:
  OutputRing& ring_;
  Sink sink_;
  int buffer_bytes_ = 0;
  bool running_ = false;
  bool paused_ = false;
};

}  // namespace tandem
