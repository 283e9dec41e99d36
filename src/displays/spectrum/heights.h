// The heights of columns or rows, 0 .. 1 each. Values; any thread.
#pragma once

#include <algorithm>
#include <vector>

namespace tandem {

inline bool dark(const std::vector<float>& heights) noexcept {
  return std::all_of(heights.begin(), heights.end(), [](float height) { return height <= 0.0F; });
}

}  // namespace tandem
