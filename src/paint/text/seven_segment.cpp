#include "paint/text/seven_segment.h"

#include <array>
#include <cmath>
#include <numbers>
#include <string_view>

#include "paint/strokes/ink.h"

namespace tandem {

namespace {

constexpr double kStroke = 1.9;
constexpr double kGap = .35;
constexpr double kSlantDegrees = 5;

std::string_view lit_segments(char digit) {
  constexpr std::array<std::string_view, 10> kDigits = {"abcdef", "bc",     "abged", "abgcd",   "fgbc",
                                                        "afgcd",  "afgedc", "abc",   "abcdefg", "abcdfg"};
  if (digit >= '0' && digit <= '9') return kDigits[static_cast<std::size_t>(digit - '0')];
  return digit == '-' ? "g" : "";
}

QPointF slanted(const QPointF& corner, double x, double y) {
  static const double slope = std::tan(kSlantDegrees * std::numbers::pi / 180);
  return corner + QPointF(x + (kDigitHeight - y) * slope, y);
}

QPainterPath level_segment(const QPointF& corner, double y) {
  const double half = kStroke / 2;
  const double w = kDigitWidth;
  return polygon_path({slanted(corner, kGap + half, y - half), slanted(corner, w - kGap - half, y - half),
                       slanted(corner, w - kGap - .1, y), slanted(corner, w - kGap - half, y + half),
                       slanted(corner, kGap + half, y + half), slanted(corner, kGap + .1, y)});
}

QPainterPath upright_segment(const QPointF& corner, double x, double top, double bottom) {
  const double half = kStroke / 2;
  return polygon_path({slanted(corner, x, top + kGap), slanted(corner, x + half, top + kGap + half),
                       slanted(corner, x + half, bottom - kGap - half), slanted(corner, x, bottom - kGap),
                       slanted(corner, x - half, bottom - kGap - half), slanted(corner, x - half, top + kGap + half)});
}

QPainterPath segment(const QPointF& corner, char name) {
  const double top = kStroke / 2;
  const double middle = kDigitHeight / 2;
  const double bottom = kDigitHeight - top;
  const double right = kDigitWidth - top;
  switch (name) {
    case 'a':
      return level_segment(corner, top);
    case 'g':
      return level_segment(corner, middle);
    case 'd':
      return level_segment(corner, bottom);
    case 'f':
      return upright_segment(corner, top, top, middle);
    case 'b':
      return upright_segment(corner, right, top, middle);
    case 'e':
      return upright_segment(corner, top, middle, bottom);
    default:
      return upright_segment(corner, right, middle, bottom);
  }
}

}  // namespace

void paint_digit(QPainter& painter, const QPointF& top_left, char digit, QRgb lit, QRgb dark) {
  const std::string_view on = lit_segments(digit);
  for (const char name : on) stroke_path(painter, segment(top_left, name), faded(lit, .2), 2);
  for (const char name : std::string_view("agdfbec")) {
    const bool shines = on.find(name) != std::string_view::npos;
    fill_path(painter, segment(top_left, name), QColor::fromRgb(shines ? lit : dark));
  }
}

}  // namespace tandem
