// The panel's colours as the painters use them (opaque, 0xAARRGGBB), and the one conversion from a control's number.
// Constants; any thread.
#pragma once

#include <QColor>
#include <cstdint>

namespace tandem {

/// The colour of a control's number: 24 bits in the order blue, green, red. Higher bits are ignored.
inline QColor from_bgr(std::uint32_t number) {
  return QColor(static_cast<int>(number & 0xFF), static_cast<int>((number >> 8) & 0xFF),
                static_cast<int>((number >> 16) & 0xFF));
}

}  // namespace tandem

namespace tandem::palette {

inline constexpr QRgb kFaceplate[] = {0xFF454B52, 0xFF383D43, 0xFF2C3035, 0xFF24282C};
inline constexpr QRgb kOuterEdge = 0xFF08090A;
inline constexpr QRgb kSlot = 0xFF060708;
inline constexpr QRgb kWellRim = 0xFF050607;
inline constexpr QRgb kRecessTop = 0xFF1A1D20;
inline constexpr QRgb kRecessUpper = 0xFF1E2125;
inline constexpr QRgb kRecessBottom = 0xFF2A2E33;
inline constexpr QRgb kGlassTop = 0xFF0B0F12;
inline constexpr QRgb kGlassMiddle = 0xFF05080A;
inline constexpr QRgb kGlassBottom = 0xFF020304;

inline constexpr QRgb kLegend = 0xFFDDE2E7;
inline constexpr QRgb kLegendUnchosen = 0xFFB4BCC4;
inline constexpr QRgb kMark = 0xFF8B939B;
inline constexpr QRgb kNameStrip = 0xFFC8CFD6;
inline constexpr QRgb kFocus = 0xFF7FD1FF;
inline constexpr QRgb kBlack = 0xFF000000;
inline constexpr QRgb kWhite = 0xFFFFFFFF;

inline constexpr QRgb kCap[] = {0xFFC9CFD6, 0xFF8E959D, 0xFF5A6067, 0xFF34383D};
inline constexpr QRgb kTileTop = 0xFF30353B;
inline constexpr QRgb kTileBottom = 0xFF1A1D20;
inline constexpr QRgb kTileHoverTop = 0xFF3D434A;
inline constexpr QRgb kTileHoverBottom = 0xFF24282C;
inline constexpr QRgb kTileFlatTop = 0xFF3A3E43;  // of a disabled key
inline constexpr QRgb kTileFlatBottom = 0xFF34383C;
inline constexpr QRgb kDisabledCaption = 0xFF9AA0A6;
inline constexpr QRgb kDisabledFace = 0xFF8B9197;

inline constexpr QRgb kWellTop = 0xFF0C0E10;
inline constexpr QRgb kWellBottom = 0xFF1B1E21;

inline constexpr QRgb kListDirectory = 0xFF8D969F;
inline constexpr QRgb kListFile = 0xFFE6EAEE;
inline constexpr QRgb kListSelected = 0xFF0B4A78;
inline constexpr QRgb kListSelectedDirectory = 0xFFC9E6FA;
inline constexpr QRgb kListLength = 0xFF7D858D;
inline constexpr QRgb kListDrop = 0xFFBFE6FF;

inline constexpr QRgb kLimeSpinnerTop = 0xFF021402;
inline constexpr QRgb kLimeSpinnerBottom = 0xFF042304;
inline constexpr QRgb kLimeSegmentDark = 0xFF0A4A0A;
inline constexpr QRgb kWhiteSpinnerTop = 0xFF2A2D30;
inline constexpr QRgb kWhiteSpinnerBottom = 0xFF3A3E42;
inline constexpr QRgb kWhiteSegmentDark = 0xFF53585D;

inline constexpr QRgb kRed = 0xFFFF0000;
inline constexpr QRgb kMaroon = 0xFF800000;
inline constexpr QRgb kLime = 0xFF00FF00;
inline constexpr QRgb kGreen = 0xFF008000;
inline constexpr QRgb kYellow = 0xFFFFFF00;
inline constexpr QRgb kOlive = 0xFF808000;
inline constexpr QRgb kAqua = 0xFF00FFFF;
inline constexpr QRgb kTeal = 0xFF008080;
inline constexpr QRgb kSilver = 0xFFC0C0C0;
inline constexpr QRgb kOrange = 0xFFFF8000;
inline constexpr QRgb kBrown = 0xFF804000;
inline constexpr QRgb kGauge = 0xFFC0C000;
inline constexpr QRgb kMixMark = 0xFFC06A14;     // where the next song will start
inline constexpr QRgb kOverlapDot = 0xFFFFC080;  // place of the other song while two sound
inline constexpr QRgb kBreathCore = 0xFFFFD9A8;  // of a lamp at the top of its breath
inline constexpr QRgb kStopRed = 0xFFFF3B30;
inline constexpr QRgb kNeedle = 0xFFFFE9CC;
inline constexpr QRgb kNeedleGlow = 0xFFFFD9A8;
inline constexpr QRgb kRedZone = 0xFFE8301C;
inline constexpr QRgb kRedZoneGlow = 0xFFFF3A20;

// Key frames without a colour of the panel's own.
inline constexpr QRgb kNeutralKey = 0xFF4C5259;
inline constexpr QRgb kPlayingKey = 0xFF1F7A33;
inline constexpr QRgb kStoppedKey = 0xFF7A2A20;

// Dark dots of the LED labels; the three small captions have none.
inline constexpr QRgb kCaptionLed = 0xFFA9B9C4;
inline constexpr QRgb kWhiteDots = 0xFF262B30;
inline constexpr QRgb kTitleDots = 0xFF1F2429;  // in one unbroken field
inline constexpr QRgb kLimeDots = 0xFF093512;
inline constexpr QRgb kOrangeDots = 0xFF3D2004;
inline constexpr QRgb kReadOutDots = 0xFF004000;

}  // namespace tandem::palette
