// Lets a test watch what is done under render(): while a watcher is set, it learns when a thread goes in and out.
// Costs one relaxed load a step. Set it while nothing renders.
#pragma once

#include <atomic>

namespace tandem {

class RenderGuard {
 public:
  using Watcher = void (*)(bool inside);
  static inline std::atomic<Watcher> watcher{nullptr};

  RenderGuard() noexcept { notify(true); }
  ~RenderGuard() { notify(false); }
  RenderGuard(const RenderGuard&) = delete;
  RenderGuard& operator=(const RenderGuard&) = delete;

 private:
  static void notify(bool inside) noexcept {
    if (const Watcher watch = watcher.load(std::memory_order_relaxed)) watch(inside);
  }
};

}  // namespace tandem
