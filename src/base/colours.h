// The panel's colours: 24-bit numbers in the order blue, green, red (&HBBGGRR). Constants; any thread.
#pragma once

#include <cstdint>

namespace tandem {

using Colour = std::int32_t;

inline constexpr Colour clRed = 0x0000FF;
inline constexpr Colour clMaroon = 0x000080;
inline constexpr Colour clLime = 0x00FF00;
inline constexpr Colour clGreen = 0x008000;
inline constexpr Colour clYellow = 0x00FFFF;
inline constexpr Colour clOlive = 0x008080;
inline constexpr Colour clAqua = 0xFFFF00;
inline constexpr Colour clTeal = 0x808000;
inline constexpr Colour clSilver = 0xC0C0C0;
inline constexpr Colour clGrey = 0x808080;
inline constexpr Colour clWhite = 0xFFFFFF;
inline constexpr Colour clBlue = 0xFF0000;

inline constexpr Colour kLeadLit = 33023;   // &H0080FF, orange
inline constexpr Colour kLeadDark = 16512;  // &H004080, brown

}  // namespace tandem
