#include "displays/scope/scope_trigger.h"

#include <algorithm>

namespace tandem {

std::optional<ScopeStart> find_rising_zero(std::span<const float> samples) noexcept {
  if (samples.empty()) return std::nullopt;
  const float trough = *std::min_element(samples.begin(), samples.end());
  const auto low = std::find_if(samples.begin(), samples.end(), [=](float x) { return x < 0.5F * trough; });
  const auto high = std::find_if(low, samples.end(), [](float x) { return x >= 0.0F; });
  if (low == samples.end() || high == samples.end()) return std::nullopt;
  const float below = *(high - 1);
  return ScopeStart{static_cast<std::size_t>(high - 1 - samples.begin()), below / (below - *high)};
}

}  // namespace tandem
