// Made-up signals for the sheets. UI thread.
#pragma once

#include <cstdint>
#include <vector>

namespace tandem {

/// A typical falling spectrum of `columns` heights; the same seed gives the same heights.
std::vector<float> sample_spectrum(int columns, std::uint32_t seed, double tilt);

/// A typical trace of kScopeValues values.
std::vector<float> sample_trace(double phase, double amplitude, std::uint32_t seed);

}  // namespace tandem
