// The engine's work in simulated time: a step does all of it inline, so that every run gives the same bytes. One
// thread.
#pragma once

#include <array>
#include <cstddef>
#include <optional>

#include "engine/engine_workers.h"

namespace tandem {

class SimulatedWorkers final : public EngineWorkers {
 public:
  void start(const Work& work) override { work_.emplace(work); }
  void stop() override { work_.reset(); }

  // 10 ms of sound, if the output takes any; there must be an engine. Engine::deliver() follows unless the panel is
  // busy.
  void step();
  // The deck's reader does no work while stalled, as on a disk that hangs.
  void stall_reader(std::size_t deck, bool stalled) { stalled_.at(deck) = stalled; }

 private:
  void read();
  bool sounds() const { return work_->output.consuming() && work_->chain.wants_render(); }
  void render();

  std::optional<Work> work_;
  std::array<bool, Chain::kDecks> stalled_{};
};

}  // namespace tandem
