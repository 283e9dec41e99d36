// How well a colour stands out from another, as the Web Content Accessibility Guidelines 2 define it.
#pragma once

#include <QColor>
#include <algorithm>
#include <cmath>

namespace tandem {

inline constexpr double kContrastRounding = .05;  // the ratios have one decimal

inline double linear(int channel) {
  const double share = channel / 255.;
  return share <= .04045 ? share / 12.92 : std::pow((share + .055) / 1.055, 2.4);
}

/// 0 black .. 1 white.
inline double luminance(QRgb colour) {
  return .2126 * linear(qRed(colour)) + .7152 * linear(qGreen(colour)) + .0722 * linear(qBlue(colour));
}

/// 1 .. 21.
inline double contrast(QRgb a, QRgb b) {
  const auto [darker, lighter] = std::minmax({luminance(a), luminance(b)});
  return (lighter + .05) / (darker + .05);
}

}  // namespace tandem
