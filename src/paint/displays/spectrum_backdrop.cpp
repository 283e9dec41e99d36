#include "paint/displays/spectrum_backdrop.h"

#include <algorithm>
#include <cmath>

#include "paint/displays/spectrum_colours.h"
#include "paint/displays/spectrum_scale.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"

namespace tandem {

namespace {

constexpr double kGhost = .13;       // opacity of unlit solid bars
constexpr double kLineGround = .16;  // and of what lies below the line
constexpr double kStemGlow = .18;

/// Paints the images; all in device pixels but for the glass.
class BackdropPainter {
 public:
  BackdropPainter(const SpectrumStyle& style, const QRectF& area, const QRectF& well)
      : style_(style), grid_(style.grid), area_(area), well_(well) {}

  /// Ground, what `draw` paints on it, grid and shine.
  template <typename Draw>
  QImage picture(Draw draw) const {
    QImage image = ground();
    QPainter painter(&image);
    draw(painter);
    if (style_.grid_lines) paint_spectrum_grid(painter, style_);
    set_up(painter, grid_.scale);
    painter.translate(-area_.topLeft());
    paint_glass_shine(painter, well_);
    return image;
  }

  void unlit(QPainter& painter) const {
    if (!style_.inactive) return;
    if (style_.kind == AnalyserKind::Picks || (style_.kind == AnalyserKind::Bar && !style_.solid)) unlit_rows(painter);
    if (style_.kind == AnalyserKind::Bar && style_.solid) {
      columns_in_gradient(painter, 0, grid_.column_width(), kGhost);
    }
  }

  void lit(QPainter& painter) const {
    if (style_.kind == AnalyserKind::VLines) {
      columns_in_gradient(painter, stem_left() - edge(), stem_width() + 2 * edge(), kStemGlow);
      columns_in_gradient(painter, stem_left(), stem_width(), 1);
    } else if (style_.kind == AnalyserKind::Lines) {
      for (const int left : grid_.left) gradient(painter, left, grid_.half_width(), kLineGround);
    } else if (style_.in_rows()) {
      lit_rows(painter, 0, grid_.column_width());
    } else {
      columns_in_gradient(painter, 0, grid_.column_width(), 1);
    }
  }

  void heads(QPainter& painter) const {
    const int left = stem_left() - edge();
    const int width = stem_width() + 2 * edge();
    if (style_.solid) {
      columns_in_gradient(painter, left, width, 1);
    } else {
      lit_rows(painter, left, width);
    }
  }

  void flood(QPainter& painter, QRgb colour) const {
    for (const int left : grid_.left)
      painter.fillRect(left, grid_.top(), grid_.half_width(), grid_.height(), QColor::fromRgb(colour));
  }

 private:
  int edge() const { return std::max(1, static_cast<int>(grid_.scale / 2)); }
  int stem_width() const {
    return std::clamp(static_cast<int>(std::lround(1.2 * grid_.scale)), 1, grid_.column_width());
  }
  int stem_left() const { return (grid_.column_width() - stem_width()) / 2; }

  QImage ground() const {
    const auto px = [this](double length) { return static_cast<int>(std::lround(length * grid_.scale)); };
    QImage image(px(area_.width()), px(area_.height()), QImage::Format_RGB32);
    QPainter painter(&image);
    set_up(painter, grid_.scale);
    painter.translate(-area_.topLeft());
    paint_glass(painter, well_);
    painter.resetTransform();
    paint_spectrum_strip(painter, style_);
    return image;
  }

  template <typename Draw>
  void each_column(Draw draw) const {
    for (std::size_t side = 0; side < kSides; ++side)
      for (int column = 0; column < grid_.columns; ++column) draw(grid_.column_x(side, column));
  }

  void unlit_rows(QPainter& painter) const {
    for (int row = 0; row < grid_.rows; ++row) {
      const QColor colour = QColor::fromRgb(row_colours((row + .5) / grid_.rows).dark);
      const int top = grid_.row_top(row) + grid_.row_pitch - 2 * grid_.row_gap;
      each_column([&](int x) { painter.fillRect(x, top, grid_.column_width(), grid_.row_gap, colour); });
    }
  }

  void lit_rows(QPainter& painter, int left, int width) const {
    for (int row = 0; row < grid_.rows; ++row) {
      const QColor colour = QColor::fromRgb(row_colours((row + .5) / grid_.rows).lit);
      const int height = grid_.row_pitch - grid_.row_gap;
      each_column([&](int x) { painter.fillRect(x + left, grid_.row_top(row), width, height, colour); });
    }
  }

  void gradient(QPainter& painter, int x, int width, double opacity) const {
    for (int y = grid_.top(); y < grid_.baseline; ++y) {
      const double height = (grid_.baseline - y - .5) / grid_.height();
      painter.fillRect(x, y, width, 1, faded(gradient_colour(height), opacity));
    }
  }

  void columns_in_gradient(QPainter& painter, int left, int width, double opacity) const {
    each_column([&](int x) { gradient(painter, x + left, width, opacity); });
  }

  const SpectrumStyle& style_;
  const SpectrumGrid& grid_;
  QRectF area_;
  QRectF well_;
};

std::vector<QRgb> gradient_lines(const SpectrumGrid& grid) {
  std::vector<QRgb> colours;
  colours.reserve(static_cast<std::size_t>(grid.height()));
  for (int line = 0; line < grid.height(); ++line)
    colours.push_back(gradient_colour((grid.height() - line - .5) / grid.height()));
  return colours;
}

// A cubic Bezier curve that is level at both ends, its control points half way: x = 1.5 t - 1.5 t^2 + t^3,
// y = 3 t^2 - 2 t^3.
float line_share(double x) {
  double low = 0;
  double high = 1;
  for (int i = 0; i < 30; ++i) {
    const double t = (low + high) / 2;
    (1.5 * t - 1.5 * t * t + t * t * t < x ? low : high) = t;
  }
  return static_cast<float>(low * low * (3 - 2 * low));
}

std::vector<float> line_shares(int pitch) {
  std::vector<float> shares;
  shares.reserve(static_cast<std::size_t>(pitch));
  for (int i = 0; i < pitch; ++i) shares.push_back(line_share(static_cast<double>(i) / pitch));
  return shares;
}

}  // namespace

SpectrumBackdrop::SpectrumBackdrop(const SpectrumStyle& style, const QRectF& area, const QRectF& well)
    : style_(style), line_(palette::kLime, {{4 * style.grid.scale, .16}, {1.3 * style.grid.scale, 1}}) {
  const BackdropPainter painter(style_, area, well);
  dark_ = painter.picture([&](QPainter& on) { painter.unlit(on); });
  if (style_.kind == AnalyserKind::Roll) {
    lit_ = painter.picture([&](QPainter& on) { painter.flood(on, palette::kWhite); });
    second_ = painter.picture([&](QPainter& on) { painter.flood(on, palette::kBlack); });
    return;
  }
  lit_ = painter.picture([&](QPainter& on) { painter.lit(on); });
  if (style_.kind == AnalyserKind::VLines) second_ = painter.picture([&](QPainter& on) { painter.heads(on); });
  if (style_.kind == AnalyserKind::Lines) {
    line_colours_ = gradient_lines(style_.grid);
    line_shape_ = line_shares(style_.grid.pitch);
  }
}

}  // namespace tandem
