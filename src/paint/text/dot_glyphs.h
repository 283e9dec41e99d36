// The glyphs of the 5 x 7 dot font: Latin, Greek and Cyrillic capitals, figures and the usual signs.
// Constants; any thread.
#pragma once

#include <array>
#include <cstdint>

namespace tandem {

/// Five columns from left to right, bit 0 the top row.
using DotGlyph = std::array<std::uint8_t, 5>;

/// Null for a letter without a glyph of its own.
const DotGlyph* find_dot_glyph(char32_t letter);

}  // namespace tandem
