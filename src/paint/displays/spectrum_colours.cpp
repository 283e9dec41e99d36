#include "paint/displays/spectrum_colours.h"

#include <algorithm>
#include <span>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

struct RampStop {
  double height;
  QRgb colour;
};

constexpr RampStop kGradient[] = {{0, 0xFF00701C},          {.35, 0xFF00B428}, {.64, palette::kLime}, {.70, 0xFF80FF00},
                                  {.755, palette::kYellow}, {.80, 0xFFFF9000}, {.86, palette::kRed}};
constexpr RampStop kRoll[] = {
    {.08, 0xFF001805}, {.58, 0xFF009020}, {.72, palette::kLime}, {.80, palette::kYellow}, {.90, palette::kRed}};

QRgb on_ramp(std::span<const RampStop> ramp, double height) {
  const auto above = std::find_if(ramp.begin(), ramp.end(), [=](const RampStop& stop) { return stop.height > height; });
  if (above == ramp.begin()) return ramp.front().colour;
  if (above == ramp.end()) return ramp.back().colour;
  const RampStop& below = *(above - 1);
  return mixed(below.colour, above->colour, (height - below.height) / (above->height - below.height));
}

}  // namespace

RowColours row_colours(double height) {
  if (height > .80) return {palette::kRed, palette::kMaroon};
  if (height > .70) return {palette::kYellow, palette::kOlive};
  return {palette::kLime, palette::kGreen};
}

QRgb gradient_colour(double height) { return on_ramp(kGradient, height); }

const std::array<QRgb, 256>& roll_colours() {
  static const std::array<QRgb, 256> colours = [] {
    std::array<QRgb, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) table[i] = on_ramp(kRoll, static_cast<double>(i) / 255);
    return table;
  }();
  return colours;
}

}  // namespace tandem
