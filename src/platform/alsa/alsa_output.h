// The output through ALSA, for machines without a sound server.
//
// Threads: one of its own does all the work; orders reach it through a queue.
// Failure: a missing card, a card that is unplugged or taken by another program: looked for again every 200 ms (after
// 10 s every second). Throws std::system_error only if no thread or descriptor can be had.
// The destructor cuts off what is still queued.
#pragma once

#include <optional>
#include <string>
#include <thread>

#include "platform/alsa/alsa_player.h"
#include "platform/output/ring_reader_token.h"
#include "platform/output/threaded_output.h"

namespace tandem {

class AlsaOutput final : public ThreadedOutput {
 public:
  struct Choice {
    std::string device = {};  // empty: "default", or else the first card
    RingReaderToken* lease =
        nullptr;          // asked before the ring is read, for an owner that has another output beside this one
    bool allowed = true;  // see allow()
  };

  explicit AlsaOutput(OutputRing& ring) : AlsaOutput(ring, Choice()) {}
  AlsaOutput(OutputRing& ring, Choice choice);
  ~AlsaOutput() override;
  AlsaOutput(const AlsaOutput&) = delete;
  AlsaOutput& operator=(const AlsaOutput&) = delete;

  // Whether it may hold the device at all; any thread. Taken back, it plays what is queued and lets the device go.
  void allow(bool allowed) noexcept;

 private:
  void run();
  Nanoseconds tend(Nanoseconds now);
  Nanoseconds serve(Nanoseconds now);
  void open_device(Nanoseconds now);
  void let_go();
  void discard_unplayable();
  void publish();
  bool current() const { return player_ && player_generation_ == wish_.generation() && allowed_.load(); }

  Choice choice_;
  RingReaderToken own_lease_;
  std::atomic<bool> allowed_;
  std::atomic<bool> ending_{false};
  TargetState wish_;  // these on the thread only
  std::optional<AlsaPlayer> player_;
  unsigned player_generation_ = 0;
  int failures_ = 0;
  Nanoseconds retry_at_ = 0;
  std::thread thread_;
};

}  // namespace tandem
