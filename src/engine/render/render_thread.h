// Runs the chain in real time: steps of 441 frames (10 ms), spread evenly, corrected by how full the output's ring is.
// While the output takes nothing (no device, paused, stopped) only commands are taken, and positions stand still.
//
// While nothing depends on the exact time of a step (run_freely_until), several steps are rendered at one wake-up: with
// a short queue just when the output demands them, if it does, so that no sound waits in the ring.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <thread>

#include "engine/device/output.h"
#include "engine/device/output_ring.h"
#include "engine/device/step_clock.h"
#include "engine/render/chain.h"
#include "engine/render/mix_point_wait.h"

namespace tandem {

class RenderThread {
 public:
  // `notify_ui` is called on the render thread, outside the chain, when events wait for the UI thread.
  RenderThread(Chain& chain, Output& output, OutputRing& ring, StepClock& clock, std::function<void()> notify_ui);
  ~RenderThread();
  RenderThread(const RenderThread&) = delete;
  RenderThread& operator=(const RenderThread&) = delete;

  // UI thread: commands have been sent. Costs nothing while sound is rendered: the next step takes them.
  void wake();
  // UI thread: no overlap is due before this step of the chain, so until then steps need not be spread evenly. 0: every
  // step by itself. With a deep output queue many steps are made at one wake-up, with a short one few.
  void run_freely_until(std::uint64_t step, bool deep_queue) noexcept;
  MixPointWait& mix_point_wait() noexcept { return mix_point_wait_; }

 private:
  void run();
  bool sounds() const noexcept;
  void rest();
  void pace();
  void serve();
  bool serves() noexcept;
  struct Due {
    std::int64_t periods;  // that have passed
    std::int64_t steps;    // to be made for them
  };
  Due due() noexcept;
  std::int64_t steps_to_catch_up() const noexcept;
  std::int64_t steps_at_once() const noexcept;
  std::int64_t steps_of_sleep() const noexcept;
  bool waits_for_the_panel() noexcept;
  void render_step() noexcept;

  Chain& chain_;
  Output& output_;
  OutputRing& ring_;
  StepClock& clock_;
  std::function<void()> notify_ui_;
  std::int64_t next_ns_ = 0;  // when the next step is due, on the clock
  std::int64_t late_ns_ = 0;  // how much later than due the last one was begun
  MixPointWait mix_point_wait_;
  std::atomic<std::uint64_t> free_until_{0};
  std::atomic<bool> deep_queue_{false};
  std::atomic<bool> stopping_{false};
  std::atomic<bool> resting_{false};
  std::thread thread_;
};

}  // namespace tandem
