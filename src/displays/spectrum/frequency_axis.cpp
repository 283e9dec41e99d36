#include "displays/spectrum/frequency_axis.h"

#include <algorithm>

namespace tandem {

FrequencyAxis shown_axis(std::int32_t horizontal_scale, double reference_hz) {
  const FrequencyAxis whole;
  const double width = 1.0 / horizontal_scale;
  const double low = std::clamp(whole.position(reference_hz) - width / 2.0, 0.0, 1.0 - width);
  return {whole.hz(low), whole.hz(low + width)};
}

}  // namespace tandem
