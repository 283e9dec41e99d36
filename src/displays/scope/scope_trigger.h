// Finds where a trace must start so that a steady tone stands still. Any thread, no state.
#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace tandem {

struct ScopeStart {
  std::size_t sample = 0;  // the last sample below zero
  float shift = 0.0F;      // how much later the zero crossing lies, 0 .. 1 samples
};

// The first rising zero crossing. It counts only after a sample below half the deepest trough, so that neither noise
// about the zero line nor the ripples of an overtone make another start. None if there is no such crossing.
std::optional<ScopeStart> find_rising_zero(std::span<const float> samples) noexcept;

}  // namespace tandem
