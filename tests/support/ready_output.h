// An output that is always there: its owner takes the frames from the ring.
#pragma once

#include <atomic>

#include "engine/device/output.h"

namespace tandem::test {

class ReadyOutput final : public Output {
 public:
  ReadyOutput(OutputRing& ring, int request_frames) : ring_(ring), request_frames_(request_frames) {}

  void open(int) override {}
  void close() override { running_ = false; }
  void start() override { running_ = true; }
  void stop() override { running_ = false; }
  void pause() override { running_ = false; }
  void restart() override { running_ = true; }
  void set_queue_length(int) override {}
  bool consuming() const noexcept override { return running_; }
  std::uint64_t frames_played() const noexcept override { return ring_.taken(); }
  int request_frames() const noexcept override { return request_frames_; }
  bool lost() const noexcept override { return false; }

 private:
  OutputRing& ring_;
  int request_frames_;
  std::atomic<bool> running_{false};
};

}  // namespace tandem::test
