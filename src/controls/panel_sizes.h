// Sizes of the panel's window, in twips. Constants; any thread.
#pragma once

#include "base/twips.h"

namespace tandem {

inline constexpr Twips kFullWidth = 9105;
inline constexpr Twips kFullHeight = 3870;
inline constexpr Twips kBoardHeight = 6390;  // full, with the analyser's board
inline constexpr Twips kSmallWidth = 3930;
inline constexpr Twips kSmallHeight = 2475;

}  // namespace tandem
