// Lengths and positions of the panel: whole twips, 1/1440 inch, 15 to a pixel at 100 %. Constants; any thread.
#pragma once

#include <cstdint>

namespace tandem {

using Twips = std::int32_t;
inline constexpr Twips kTwipsPerPixel = 15;

}  // namespace tandem
