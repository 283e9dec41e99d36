// The machine's monotonic clock for the render thread.
#pragma once

#include "engine/step_clock.h"

namespace tandem {

class RealStepClock final : public StepClock {
 public:
  std::int64_t now_ns() noexcept override;
  void sleep_until(std::int64_t ns) noexcept override;
};

}  // namespace tandem
