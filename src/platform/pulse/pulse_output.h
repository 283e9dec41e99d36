// The output through a PulseAudio server or one that speaks its protocol (PipeWire), with libpulse.
//
// Threads: libpulse's own thread does all the work; commands reach it as a target state, so that a server that hangs
// holds up no other thread. Its request callback copies from the ring, demands what is missing there, and waits for
// that up to 10 ms if it is being made: it has nothing else to do, and more is queued.
// Failure: no server, a server that dies, a sink that goes away: looked for again (retry_delay.h); what the dead device
// still held is lost in silence. Throws std::runtime_error only if no thread can be made.
// Closing and opening again at once: the old stream plays what it has before the new one begins.
// The destructor cuts off what is still queued.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "engine/core/seqlock.h"
#include "platform/output/threaded_output.h"
#include "platform/pulse/stream_name.h"

namespace tandem {

class PulseOutput final : public ThreadedOutput {
 public:
  struct Sharing {  // for an owner that has another output beside this one
    RingReaderToken* token = nullptr;
    std::function<void(bool)> reachable = {};  // called on libpulse's thread when a server is found or given up
  };

  explicit PulseOutput(OutputRing& ring) : PulseOutput(ring, Sharing()) {}
  PulseOutput(OutputRing& ring, Sharing sharing);
  ~PulseOutput() override;
  PulseOutput(const PulseOutput&) = delete;
  PulseOutput& operator=(const PulseOutput&) = delete;

  void put_stream_name(const std::string& name);  // UTF-8; UI thread

 private:
  class Worker;

  SeqLock<StreamName> stream_name_;
  std::unique_ptr<Worker> worker_;
};

}  // namespace tandem
