#include "paint/displays/spectrum_scale.h"

#include <algorithm>
#include <cmath>
#include <vector>

#include "displays/spectrum/roll_recorder.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr double kStripHeight = 3;
constexpr double kGridOpacity = .8;

int px(const SpectrumStyle& style, double length) {
  return std::max(1, static_cast<int>(std::floor(length * style.grid.scale)));
}

/// Shares of the axis at which the octaves of the reference frequency lie, itself left out.
std::vector<double> octaves(const SpectrumStyle& style) {
  std::vector<double> places;
  for (int octave = -12; octave <= 12; ++octave) {
    const double place = style.axis.position(std::ldexp(style.reference_hz, octave));
    if (octave != 0 && place > 0 && place < 1) places.push_back(place);
  }
  return places;
}

/// Pixels from a half's left end of the notches: octaves, or seconds of the roll from the right.
std::vector<int> notches(const SpectrumStyle& style) {
  std::vector<int> places;
  const SpectrumGrid& grid = style.grid;
  if (style.kind == AnalyserKind::Roll) {
    const int second = grid.roll_step() * RollRecorder::kStepsASecond;
    for (int x = grid.half_width() - second; x > 0; x -= second) places.push_back(x);
    return places;
  }
  for (const double place : octaves(style)) {
    const auto x = static_cast<int>(std::lround(place * grid.columns * grid.pitch));
    if (x < grid.half_width()) places.push_back(x);
  }
  return places;
}

void paint_reference(QPainter& painter, const SpectrumStyle& style, int left) {
  const double place = style.axis.position(style.reference_hz);
  if (style.kind == AnalyserKind::Roll || place < 0 || place > 1) return;
  const int width = px(style, kStripHeight);
  const int gap = style.grid.row_gap;
  const auto at = static_cast<int>(std::lround(place * style.grid.columns * style.grid.pitch - width / 2.));
  const int x = left + std::clamp(at, 0, style.grid.half_width() - width);
  painter.fillRect(x - gap, style.grid.strip_top, width + 2 * gap, width, QColor::fromRgb(palette::kBlack));
  painter.fillRect(x, style.grid.strip_top, width, width, QColor::fromRgb(palette::kSilver));
}

void dotted_row(QPainter& painter, const SpectrumStyle& style, int left, int y) {
  const int dot = style.grid.row_gap;
  const int width = style.grid.half_width();
  for (int x = 0; x < width; x += 4 * dot)
    painter.fillRect(left + x, y, std::min(dot, width - x), dot, faded(palette::kSilver, kGridOpacity));
}

void dotted_column(QPainter& painter, const SpectrumStyle& style, int x) {
  const int dot = style.grid.row_gap;
  for (int y = 0; y < style.grid.height(); y += 4 * dot)
    painter.fillRect(x, style.grid.top() + y, dot, dot, faded(palette::kSilver, kGridOpacity));
}

}  // namespace

void paint_spectrum_strip(QPainter& painter, const SpectrumStyle& style) {
  const SpectrumGrid& grid = style.grid;
  const int height = px(style, kStripHeight);
  for (const int left : grid.left) {
    painter.fillRect(left, grid.strip_top, grid.half_width(), height, QColor::fromRgb(palette::kTeal));
    for (const int x : notches(style))
      painter.fillRect(left + x, grid.strip_top, grid.row_gap, height, QColor::fromRgb(palette::kBlack));
    paint_reference(painter, style, left);
  }
}

void paint_spectrum_grid(QPainter& painter, const SpectrumStyle& style) {
  const SpectrumGrid& grid = style.grid;
  const bool rolls = style.kind == AnalyserKind::Roll;
  for (const int left : grid.left) {
    for (const int x : notches(style)) dotted_column(painter, style, left + x);
    if (!rolls) {
      for (int i = 1; i < 4; ++i) dotted_row(painter, style, left, grid.top() + grid.height() * i / 4);
      continue;
    }
    for (const double place : octaves(style))
      dotted_row(painter, style, left, grid.baseline - static_cast<int>(std::lround(place * grid.height())));
  }
}

}  // namespace tandem
