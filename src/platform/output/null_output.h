// An output without a device, for tests and tools: takes the ring's frames in whole requests at the pace of the
// monotonic clock, keeps the ordered depth queued, and drops them.
// Threads: one of its own. Failure: only in the constructor, std::system_error if no thread or descriptor can be had.
#pragma once

#include <thread>

#include "platform/output/playhead.h"
#include "platform/output/threaded_output.h"

namespace tandem {

class NullOutput final : public ThreadedOutput {
 public:
  explicit NullOutput(OutputRing& ring);
  ~NullOutput() override;
  NullOutput(const NullOutput&) = delete;
  NullOutput& operator=(const NullOutput&) = delete;

 private:
  void run();
  void step(Nanoseconds now);
  void take(std::uint64_t frames, Nanoseconds now);
  Nanoseconds next_step(Nanoseconds now);
  std::uint64_t request() const;
  std::uint64_t target() const;

  TargetState wish_;  // these on the thread only
  Playhead playhead_;
  std::uint64_t first_;  // the ring's count when the playhead stood at 0
  std::atomic<bool> ending_{false};
  std::thread thread_;
};

}  // namespace tandem
