#include "engine/components/null_components.h"

#include <algorithm>

namespace tandem {

std::string TimeText::time_text(std::int32_t milliseconds) const {
  const std::int32_t seconds = std::max(milliseconds, 0) / 1000;
  const std::string digits = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (digits.size() == 1 ? ":0" : ":") + digits;
}

}  // namespace tandem
