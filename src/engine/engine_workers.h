// Who reads and renders for the engine: in the player threads (EngineThreads), in simulated time the calling thread
// (SimulatedWorkers of the tests). The engine is wired in the same way for both, so that what tests in simulated time
// prove holds in the player.
//
// UI thread. Nothing fails. The defaults do nothing, which suits workers without threads.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "engine/device/output.h"
#include "engine/device/output_ring.h"
#include "engine/read/deck_reader.h"
#include "engine/render/chain.h"

namespace tandem {

class EngineWorkers {
 public:
  // The readers fill their rings from files; while the output consumes, the chain renders what they bring into its
  // ring.
  struct Work {
    std::array<DeckReader, Chain::kDecks>& readers;
    Chain& chain;
    Output& output;
    OutputRing& ring;
  };

  EngineWorkers() = default;
  virtual ~EngineWorkers() = default;
  EngineWorkers(const EngineWorkers&) = delete;
  EngineWorkers& operator=(const EngineWorkers&) = delete;

  // Whether the equalizer's filters are designed on a thread, too.
  virtual bool has_threads() const { return false; }
  // The engine's first call and its last: `work` stays valid between them.
  virtual void start(const Work& work) = 0;
  virtual void stop() = 0;

  virtual void wake_reader(std::size_t /*deck*/) {}  // it has a request
  virtual void wake_renderer() {}                    // there are commands
  // At every delivery, with the count of steps that were rendered: see ReaderThread.
  virtual bool replace_if_hung(std::size_t /*deck*/, std::uint64_t /*step*/) { return false; }
  // See RenderThread.
  virtual void run_freely_until(std::uint64_t /*step*/, bool /*deep_queue*/) {}
  // See MixPointWait.
  virtual void put_mix_point(int /*deck*/, std::uint32_t /*generation*/, Frames /*frame*/) {}
  virtual void clear_mix_point() {}
};

}  // namespace tandem
