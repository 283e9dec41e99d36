// The 5 x 7 dot font of the LED labels.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

namespace tandem {

/// Five columns from left to right, bit 0 the top row.
using DotGlyph = std::array<std::uint8_t, 5>;

/// The glyph of a code point: ASCII and accented capitals have their own, a small letter shows its capital where it has
/// none, any other letter its base letter, and what is left a hollow box. Never fails.
const DotGlyph& dot_glyph(char32_t letter);

}  // namespace tandem
