#include "paint/controls/knob.h"

#include <QConicalGradient>
#include <algorithm>
#include <cmath>
#include <numbers>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

using palette::kBlack;
using palette::kWhite;

namespace {

constexpr double kSweep = 270;

// Two bright lobes on grey, as light falls on turned metal.
QColor metal_at(double angle) {
  const double grey = .36 + .34 * std::pow(std::abs(std::cos(angle + std::numbers::pi * .30)), 7) +
                      .16 * std::pow(std::abs(std::cos(angle - std::numbers::pi * .18)), 14);
  const int level = std::clamp(static_cast<int>(std::lround(grey * 255)), 2, 250);
  return {level - 2, level + 1, level + 5};
}

QBrush turned_metal(const QPointF& centre) {
  constexpr int kWedges = 72;
  QConicalGradient gradient(centre, 0);
  for (int i = 0; i <= kWedges; ++i) {
    const double turn = static_cast<double>(i) / kWedges;
    gradient.setColorAt(1 - turn, metal_at((turn + .175 / kWedges) * 2 * std::numbers::pi));
  }
  return gradient;
}

void paint_skirt(QPainter& painter, const QPointF& centre, double radius, double degrees) {
  fill_disc(painter, centre + QPointF(0, 3.2), radius + 1.2, faded(kBlack, .14));
  fill_disc(painter, centre + QPointF(0, 2.2), radius + .8, faded(kBlack, .22));
  fill_disc(painter, centre + QPointF(0, 1.2), radius + .6, faded(kBlack, .35));
  fill_disc(painter, centre, radius + .5, QColor::fromRgb(palette::kWellRim));
  const QRectF box(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  fill_disc(painter, centre, radius, downward(box, {{0, 0xFF565C63}, {.5, 0xFF26292D}, {1, 0xFF141618}}));
  const auto teeth = static_cast<int>(std::lround(radius * 2.1));
  QPainterPath path;
  for (int i = 0; i < teeth; ++i) {
    const double angle = i * 360.0 / teeth + degrees;
    path.moveTo(on_circle(centre, radius - .3, angle));
    path.lineTo(on_circle(centre, radius - 2.4, angle));
  }
  stroke_path(painter, path, faded(kBlack, .6), .8);
}

void paint_cap(QPainter& painter, const QPointF& centre, double radius) {
  fill_disc(painter, centre, radius + .7, QColor::fromRgb(0xFF0B0C0E));
  fill_disc(painter, centre, radius, turned_metal(centre));
  draw_ring(painter, centre, radius - .4, faded(kWhite, .34), .8);
  const double hollow = radius * .62;
  const QRectF box(centre - QPointF(hollow, hollow), QSizeF(2 * hollow, 2 * hollow));
  fill_disc(painter, centre, hollow, glow(box, .5, .5, .5, {{0, kBlack, 0}, {.8, kBlack, .10}, {1, kBlack, 0}}));
}

}  // namespace

void paint_knob(QPainter& painter, const QPointF& centre, double radius, double degrees,
                const InteractionState& interaction) {
  paint_skirt(painter, centre, radius, degrees);
  paint_cap(painter, centre, radius - 3);
  const QPointF tip = on_circle(centre, radius - 1.2, degrees);
  const QPointF root = on_circle(centre, (radius - 3) * .34, degrees);
  draw_line(painter, root, tip, QColor::fromRgb(0xFF0A0B0C), 3.4, Qt::RoundCap);
  draw_line(painter, root, tip, QColor::fromRgb(kWhite), 1.7, Qt::RoundCap);
  if (interaction.hover > 0) fill_disc(painter, centre, radius, faded(kWhite, .07 * interaction.hover));
  if (interaction.focused) {
    draw_ring(painter, centre, radius + 2.5, faded(kBlack, .5), 3);
    draw_ring(painter, centre, radius + 2.5, QColor::fromRgb(palette::kFocus), 1.5);
  }
}

void paint_wheel_marks(QPainter& painter, const QRectF& box) {
  const QPointF centre(box.left() + 23, box.top() + 24.5);
  for (int i = 0; i <= 20; ++i) {
    const bool small = i % 2 != 0;
    const double angle = -kSweep / 2 + i * kSweep / 20;
    draw_line(painter, on_circle(centre, small ? 21.2 : 21, angle), on_circle(centre, small ? 22.4 : 23.4, angle),
              QColor::fromRgb(small ? palette::kMark : palette::kLegend), small ? .8 : 1.1);
  }
}

void paint_wheel(QPainter& painter, const QRectF& box, const WheelState& look) {
  paint_knob(painter, {box.left() + 23, box.top() + 24.5}, 18.5, -kSweep / 2 + kSweep * look.share, look.interaction);
}

}  // namespace tandem
