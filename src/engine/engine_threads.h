// The engine's work on threads of their own: one for each deck's reader, and the render thread. UI thread.
#pragma once

#include <array>
#include <functional>
#include <memory>

#include "engine/device/step_clock.h"
#include "engine/engine_workers.h"

namespace tandem {

class ReaderThread;
class RenderThread;

class EngineThreads final : public EngineWorkers {
 public:
  // `notify_ui` is called on the render thread when Engine::deliver() should be called soon. The clock outlives this.
  EngineThreads(StepClock& clock, std::function<void()> notify_ui);
  ~EngineThreads() override;

  bool has_threads() const override { return true; }
  void start(const Work& work) override;
  void stop() override;
  void wake_reader(std::size_t deck) override;
  void wake_renderer() override;
  bool replace_if_hung(std::size_t deck, std::uint64_t step) override;
  void run_freely_until(std::uint64_t step, bool deep_queue) override;
  void put_mix_point(int deck, std::uint32_t generation, Frames frame) override;
  void clear_mix_point() override;

 private:
  StepClock& clock_;
  std::function<void()> notify_ui_;
  std::array<std::unique_ptr<ReaderThread>, Chain::kDecks> readers_;
  std::unique_ptr<RenderThread> renderer_;
};

}  // namespace tandem
