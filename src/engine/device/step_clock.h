// The clock that paces the render thread; the program's one on the machine's monotonic clock lives in platform/.
// Render thread only.
#pragma once

#include <cstdint>

namespace tandem {

class StepClock {
 public:
  virtual ~StepClock() = default;
  virtual std::int64_t now_ns() noexcept = 0;  // never goes back
  virtual void sleep_until(std::int64_t ns) noexcept = 0;
};

}  // namespace tandem
