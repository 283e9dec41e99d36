// The output through ALSA, for machines without a sound server.
//
// Threads: one of its own does all the work; commands reach it as a target state.
// Failure: a missing card, a card that is unplugged or taken by another program is looked for again (retry_delay.h).
// Throws std::system_error only if no thread or descriptor can be had.
// The destructor cuts off what is still queued.
#pragma once

#include <atomic>
#include <optional>
#include <string>

#include "platform/alsa/alsa_player.h"
#include "platform/output/retry_delay.h"
#include "platform/output/serving_thread.h"
#include "platform/output/threaded_output.h"

namespace tandem {

class AlsaOutput final : public ThreadedOutput {
 public:
  struct Choice {
    std::string device = {};           // empty: "default", or else the first card
    RingReaderToken* token = nullptr;  // for an owner that has another output beside this one
    bool allowed = true;               // see allow()
  };

  explicit AlsaOutput(OutputRing& ring) : AlsaOutput(ring, Choice()) {}
  AlsaOutput(OutputRing& ring, Choice choice);

  // Any thread: whether it may use the device at all. When that is taken back, it plays what is queued and lets the
  // device go.
  void allow(bool allowed) noexcept;

 private:
  Nanoseconds serve(Nanoseconds now);
  Nanoseconds look_after_device(Nanoseconds now);
  Nanoseconds play(Nanoseconds now);
  void open_device(Nanoseconds now);
  void close_device();
  void publish();
  bool current() const { return player_ && player_generation_ == target().generation() && allowed_.load(); }

  std::string device_;
  std::atomic<bool> allowed_;
  std::optional<AlsaPlayer> player_;  // these on the thread only
  std::uint32_t player_generation_ = 0;
  RetryDelay retry_;
  Nanoseconds retry_at_ = 0;
  bool alsa_converts_ = false;  // since our own conversion has failed; until the output is opened again
  ServingThread thread_;
};

}  // namespace tandem
