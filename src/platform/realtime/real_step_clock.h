// The machine's monotonic clock for the render thread, which at its first look asks for real-time scheduling.
#pragma once

#include "engine/device/step_clock.h"

namespace tandem {

class RealStepClock final : public StepClock {
 public:
  std::int64_t now_ns() noexcept override;
  void sleep_until(std::int64_t ns) noexcept override;

 private:
  bool asked_priority_ = false;
};

}  // namespace tandem
