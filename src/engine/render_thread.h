// Runs the chain in real time: one step of 441 frames every 10 ms, spread evenly, corrected by how full the output's
// ring is. While the output takes nothing (no device, paused, stopped) only orders are taken and positions stand still.
#pragma once

#include <atomic>
#include <cstdint>
#include <semaphore>
#include <thread>

#include "engine/chain.h"
#include "engine/output.h"
#include "engine/output_ring.h"
#include "engine/step_clock.h"

namespace tandem {

class RenderThread {
 public:
  RenderThread(Chain& chain, const Output& output, OutputRing& ring, StepClock& clock);
  ~RenderThread();
  RenderThread(const RenderThread&) = delete;
  RenderThread& operator=(const RenderThread&) = delete;

  // UI thread: there are orders. Costs nothing while the thread paces itself anyway.
  void wake();

 private:
  void run();
  void rest();
  void pace();
  int steps_due() noexcept;
  void render_step() noexcept;

  Chain& chain_;
  const Output& output_;
  OutputRing& ring_;
  StepClock& clock_;
  std::int64_t next_ns_ = 0;  // when the next step is due, on the clock
  std::atomic<bool> stopping_{false};
  std::atomic<bool> resting_{false};
  std::counting_semaphore<> woken_{0};
  std::thread thread_;
};

}  // namespace tandem
