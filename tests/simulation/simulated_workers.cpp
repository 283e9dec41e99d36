#include "simulation/simulated_workers.h"

namespace tandem {

void SimulatedWorkers::read() {
  for (std::size_t i = 0; i < stalled_.size(); ++i)
    while (!stalled_[i] && work_->readers[i].work()) {
    }
}

// The commands may just have begun a fade or ended one.
void SimulatedWorkers::render() {
  if (!sounds()) return;
  std::array<StereoFrame, kStepFrames> block;
  work_->chain.render(block);
  // Where a test's device takes nothing the ring is full in the end, and what does not fit is lost.
  static_cast<void>(work_->ring.write(block));
}

// The readers come to new songs, the chain then gives up the old ones' frames, and the readers fill the room.
void SimulatedWorkers::step() {
  read();
  sounds() ? work_->chain.take_commands_ahead() : work_->chain.take_commands_silently();
  read();
  render();
}

}  // namespace tandem
