// The dot font of the LED labels, with what it has not rasterised from the desktop's fonts.
#pragma once

#include <QString>
#include <array>
#include <cstdint>

#include "paint/text/dot_glyphs.h"

namespace tandem {

inline constexpr int kDotRows = 7;      // of a cell
inline constexpr int kCellColumns = 6;  // 5 dots and a gap

/// The glyph of a code point: a small letter shows its capital where it has none, any other letter its base letter, and
/// what is left a blank. Never fails.
const DotGlyph& dot_glyph(char32_t letter);

/// Whether dot_glyph() has something to show for the code point.
bool has_dot_glyph(char32_t letter);

/// A letter in half dots: eleven columns from left to right (5 dots and a half), bit 0 the uppermost of 14 rows.
using FineGlyph = std::array<std::uint16_t, 11>;

/// A letter that the dot font lacks, rasterised from the desktop's fonts; a diamond if no font has it. Kept for
/// each letter. UI thread; needs a QGuiApplication.
const FineGlyph& fine_glyph(char32_t letter);

}  // namespace tandem
