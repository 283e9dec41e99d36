// An output without a device, for tests: takes the ring's frames at the pace of the machine's clock, as a
// device of that queue length would, and drops them.
// Threads: one of its own serves it. Throws std::system_error if no thread or descriptor can be had.
#pragma once

#include "platform/output/playhead.h"
#include "platform/output/serving_thread.h"
#include "platform/output/threaded_output.h"

namespace tandem {

class NullOutput final : public ThreadedOutput {
 public:
  explicit NullOutput(OutputRing& ring);

 private:
  Nanoseconds serve(Nanoseconds now);
  void step(Nanoseconds now);
  void take(std::uint64_t frames, Nanoseconds now);
  Nanoseconds next_step(Nanoseconds now);
  std::uint64_t request() const;
  std::uint64_t queue() const;

  Playhead playhead_;    // these on the thread only
  std::uint64_t first_;  // the ring's count when the playhead stood at 0
  ServingThread thread_;
};

}  // namespace tandem
