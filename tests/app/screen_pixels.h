// What a screen shows, as its X server has it.
#pragma once

#include <cstdint>
#include <vector>

namespace tandem::test {

// The pixels of a box of the screen that DISPLAY names, row by row, each as 0x00RRGGBB. Throws std::runtime_error if
// the screen cannot be asked.
std::vector<std::uint32_t> screen_pixels(int left, int top, int width, int height);

}  // namespace tandem::test
