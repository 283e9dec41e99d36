#include "paint/displays/spectrum_backdrop.h"

#include <algorithm>
#include <cmath>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"

namespace tandem {

namespace {

// The area's inner box, px from its top left corner: 1 px free at the sides, 2 above, 1 below.
constexpr double kInnerLeft = 1;
constexpr double kInnerTop = 2;
constexpr double kInnerWidth = 335;
constexpr double kColumnHeight = 84;
constexpr double kStripTop = 87;
constexpr double kStripHeight = 3;
constexpr double kRowHeight = 3;
constexpr int kHalfRoom = 160;
constexpr int kWidestGap = 9;

struct RowColour {
  QRgb lit;
  QRgb dark;
};

RowColour colour_at(double share) {
  if (share > .80) return {palette::kRed, palette::kMaroon};
  if (share > .70) return {palette::kYellow, palette::kOlive};
  return {palette::kLime, palette::kGreen};
}

/// Paints the parts of one face image; all in device pixels but for the glass.
class FacePainter {
 public:
  FacePainter(const SpectrumStyle& style, const SpectrumGrid& grid, const QRectF& area, const QRectF& well)
      : style_(style), grid_(grid), area_(area), well_(well) {}

  QImage dark() const {
    QImage image = ground();
    QPainter painter(&image);
    if (style_.inactive && has_spots()) inactive_spots(painter);
    finish(painter);
    return image;
  }

  QImage lit() const {
    QImage image = ground();
    QPainter painter(&image);
    if (style_.kind == SpectrumKind::Stems) {
      stems(painter);
    } else if (has_spots()) {
      lit_spots(painter);
    } else {
      solid_columns(painter);
    }
    finish(painter);
    return image;
  }

  QImage filled(QRgb colour) const {
    QImage image = ground();
    QPainter painter(&image);
    for (const int x : grid_.left) {
      painter.fillRect(x, grid_.baseline - grid_.height, grid_.half_width(), grid_.height, QColor::fromRgb(colour));
    }
    finish(painter);
    return image;
  }

 private:
  bool has_spots() const {
    return style_.kind == SpectrumKind::Picks || (style_.kind == SpectrumKind::Bars && style_.led_style);
  }
  int px(double length) const { return static_cast<int>(std::lround(length * grid_.scale)); }

  QImage ground() const {
    QImage image(px(area_.width()), px(area_.height()), QImage::Format_RGB32);
    QPainter painter(&image);
    set_up(painter, grid_.scale);
    painter.translate(-area_.topLeft());
    paint_glass(painter, well_);
    painter.resetTransform();
    for (const int x : grid_.left) strip(painter, x);
    return image;
  }

  void strip(QPainter& painter, int x) const {
    const int top = px(kStripTop);
    const int height = px(kStripHeight);
    const int gap = grid_.pitch - grid_.width;
    painter.fillRect(x, top, grid_.half_width() - gap, height, QColor::fromRgb(palette::kTeal));
    const int notch = std::max(1, px(1));
    for (double octave = .5;; octave /= 2) {
      const double at = (octave - style_.low) / (style_.high - style_.low) * grid_.half_width();
      if (at < grid_.pitch - .5) break;
      if (at >= grid_.half_width()) continue;
      painter.fillRect(x + static_cast<int>(std::lround(at)) - notch, top, notch, height,
                       QColor::fromRgb(palette::kBlack));
    }
    if (style_.reference) {
      const auto at = static_cast<int>(std::lround(*style_.reference * (grid_.half_width() - gap - notch)));
      painter.fillRect(x + at, top, notch, height, QColor::fromRgb(palette::kWhite));
    }
  }

  template <typename Draw>
  void each_column(Draw draw) const {
    for (int side = 0; side < 2; ++side) {
      for (int column = 0; column < grid_.columns; ++column) draw(grid_.column_x(side, column));
    }
  }

  void inactive_spots(QPainter& painter) const {
    const int height = std::max(1, px(1));
    for (int row = 0; row < kSpectrumRows; ++row) {
      const QColor colour = QColor::fromRgb(colour_at((row + .5) / kSpectrumRows).dark);
      const int top = grid_.row_top[static_cast<std::size_t>(row)] + grid_.spot_height - height;
      each_column([&](int x) { painter.fillRect(x, top, grid_.width, height, colour); });
    }
  }

  void lit_spots(QPainter& painter) const {
    for (int row = 0; row < kSpectrumRows; ++row) {
      const QColor colour = QColor::fromRgb(colour_at((row + .5) / kSpectrumRows).lit);
      const int top = grid_.row_top[static_cast<std::size_t>(row)];
      each_column([&](int x) { painter.fillRect(x, top, grid_.width, grid_.spot_height, colour); });
    }
  }

  void solid_columns(QPainter& painter) const {
    for (int line = 0; line < grid_.height; ++line) {
      const QColor colour = QColor::fromRgb(colour_at((line + .5) / grid_.height).lit);
      each_column([&](int x) { painter.fillRect(x, grid_.baseline - 1 - line, grid_.width, 1, colour); });
    }
  }

  void stems(QPainter& painter) const {
    painter.setRenderHint(QPainter::Antialiasing);
    const double width = std::min<double>(1.2 * grid_.scale, grid_.width);
    const double left = std::floor((grid_.width - width) / 2);  // one edge on a whole pixel: a bright line, not two dim
    constexpr double kBounds[] = {0, .7, .8, 1};
    for (std::size_t i = 0; i < 3; ++i) {
      const double top = grid_.baseline - kBounds[i + 1] * grid_.height;
      const double height = (kBounds[i + 1] - kBounds[i]) * grid_.height;
      const QColor colour = QColor::fromRgb(colour_at((kBounds[i] + kBounds[i + 1]) / 2).lit);
      each_column([&](int x) { fill_box(painter, {x + left, top, width, height}, colour); });
    }
  }

  void finish(QPainter& painter) const {
    if (style_.grid) dotted_grid(painter);
    painter.resetTransform();
    set_up(painter, grid_.scale);
    painter.translate(-area_.topLeft());
    paint_glass_shine(painter, well_);
  }

  void dotted_grid(QPainter& painter) const {
    const QColor silver = QColor::fromRgb(palette::kSilver);
    const int dot = std::max(1, px(1));
    const int width = grid_.half_width() - (grid_.pitch - grid_.width);
    const int top = grid_.baseline - grid_.height;
    for (const int left : grid_.left) {
      for (int i = 1; i < 4; ++i) {
        const int y = top + grid_.height * i / 4;
        for (int x = 0; x < width; x += 4 * dot) painter.fillRect(left + x, y, std::min(dot, width - x), dot, silver);
      }
      for (int i = 1; i < 8; ++i) {
        const int x = left + grid_.half_width() * i / 8 - dot;
        for (int y = 0; y < grid_.height; y += 4 * dot) painter.fillRect(x, top + y, dot, dot, silver);
      }
    }
  }

  SpectrumStyle style_;
  SpectrumGrid grid_;
  QRectF area_;
  QRectF well_;
};

SpectrumGrid make_grid(int columns, double scale) {
  SpectrumGrid grid;
  const auto px = [scale](double length) { return static_cast<int>(std::lround(length * scale)); };
  grid.scale = scale;
  grid.columns = columns;
  grid.pitch = std::max(1, static_cast<int>(kHalfRoom * scale) / columns);
  grid.width = grid.pitch - (grid.pitch > 2 * scale ? std::max(1, static_cast<int>(scale)) : 0);
  grid.spot_height = std::max(1, static_cast<int>(2 * scale));
  grid.baseline = px(kInnerTop + kColumnHeight);
  grid.height = grid.baseline - px(kInnerTop);
  const int room = px(kInnerWidth) - 2 * grid.half_width();
  const int between = std::min(px(kWidestGap), room);
  grid.left[0] = px(kInnerLeft) + (room - between) / 2;
  grid.left[1] = grid.left[0] + grid.half_width() + between;
  for (int row = 0; row < kSpectrumRows; ++row) {
    grid.row_top[static_cast<std::size_t>(row)] = px(kInnerTop + kColumnHeight - (row + 1) * kRowHeight);
  }
  return grid;
}

}  // namespace

int spectrum_columns(int bins) { return std::clamp(bins, 1, kHalfRoom); }

SpectrumBackdrop::SpectrumBackdrop(const SpectrumStyle& style, double scale, const QRectF& area, const QRectF& well)
    : style_(style),
      grid_(make_grid(spectrum_columns(style.columns), scale)),
      line_(palette::kLime, {{4 * scale, .15}, {1.3 * scale, 1}}) {
  const FacePainter painter(style_, grid_, area, well);
  dark_ = painter.dark();
  if (style_.kind == SpectrumKind::Roll) {
    lit_ = {painter.filled(palette::kLime), painter.filled(palette::kYellow), painter.filled(palette::kRed)};
  } else {
    lit_ = {painter.lit()};
  }
}

}  // namespace tandem
