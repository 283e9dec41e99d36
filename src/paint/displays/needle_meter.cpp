#include "paint/displays/needle_meter.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "displays/meters/needle_meter.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "paint/text/caption.h"
#include "paint/text/decibel_letters.h"

namespace tandem {

namespace {

constexpr double kScaleRadius = 92;
constexpr double kLineWidth = 1.1;
constexpr double kNeedleRadius = 95.5;
constexpr double kRimRadius = 43.2;  // of the cover, with the needle's round end
constexpr double kMostAngle = 47;    // a stop just beyond the scale

QPointF pivot(const QRectF& box) { return {box.center().x(), box.bottom() + 30}; }

QPainterPath arc(const QPointF& centre, double radius, double from, double to) {
  const QRectF circle(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  QPainterPath path;
  path.arcMoveTo(circle, 90 - from);
  path.arcTo(circle, 90 - from, from - to);
  return path;
}

// The scale's line stands on whole pixel rows where it runs level: between two rows it would be two dim ones.
double line_radius(const QPainter& painter) {
  const double scale = device_scale(painter);
  const double half_row = std::lround(kLineWidth * scale) % 2 == 0 ? 0 : .5;
  return (std::floor(kScaleRadius * scale - half_row) + half_row) / scale;
}

// The zone above 0 that a song should only touch.
void paint_red_zone(QPainter& painter, const QPointF& centre) {
  const QPainterPath zone = arc(centre, kScaleRadius - 2.6, needle_angle(0), kNeedleSwing);
  stroke_path(painter, zone, faded(palette::kRedZoneGlow, .10), 9);
  stroke_path(painter, zone, QColor::fromRgb(palette::kRedZone), 4.4);
}

void paint_scale(QPainter& painter, const QPointF& centre) {
  const QColor lime = QColor::fromRgb(palette::kLime);
  stroke_path(painter, arc(centre, line_radius(painter), -kNeedleSwing, kNeedleSwing), lime, kLineWidth);
  constexpr std::pair<double, bool> kMarks[] = {{-20, true}, {-10, true}, {-7, false}, {-5, true},
                                                {-3, true},  {-2, false}, {-1, false}, {0, true},
                                                {1, false},  {2, false},  {3, true}};
  for (const auto& [db, numbered] : kMarks) {
    const double angle = needle_angle(db);
    draw_line(painter, on_circle(centre, kScaleRadius, angle),
              on_circle(centre, kScaleRadius + (numbered ? 6 : 4), angle), lime, numbered ? 1.3 : .9);
  }
}

void paint_numbers(QPainter& painter, const QPointF& centre) {
  constexpr std::pair<double, const char16_t*> kNumbers[] = {{-20, u"\u221220"}, {-10, u"\u221210"}, {-5, u"\u22125"},
                                                             {-3, u"\u22123"},   {0, u"0"},          {3, u"+3"}};
  for (const auto& [db, text] : kNumbers) {
    draw_caption(painter, on_circle(centre, kScaleRadius + 12.2, needle_angle(db)) + QPointF(0, 3.4),
                 QString::fromUtf16(text), {.size = 10, .colour = palette::kLime}, Anchor::Middle);
  }
}

void paint_fine_marks(QPainter& painter, const QPointF& centre) {
  QPainterPath path;
  for (int i = 0; i < 10; ++i) {  // tenths of the deflection of 0 dB, where the red zone begins
    const double angle = deflection_angle(needle_deflection(0) * i / 10);
    path.moveTo(on_circle(centre, kScaleRadius - 3, angle));
    path.lineTo(on_circle(centre, kScaleRadius - (i % 5 == 0 ? 7 : 5.5), angle));
  }
  stroke_path(painter, path, faded(palette::kLime, .55), .8);
}

void paint_cover(QPainter& painter, const QPointF& centre) {
  fill_disc(painter, centre, 43.5, faded(palette::kBlack, .5));
  const QRectF disc(centre - QPointF(42, 42), QSizeF(84, 84));
  fill_disc(painter, centre, 42, downward(disc, {{0, 0xFF4A3A2A}, {.10, 0xFF1F1A16}, {1, 0xFF0B0A09}}));
  draw_ring(painter, centre, 41.4, faded(0xFFE0B070, .55), .8);
}

// A warm lamp below the lower edge shines through the face. Snapped, because the last column may be half a device
// pixel, which nothing else would paint.
void paint_backlight(QPainter& painter, const QRectF& box) {
  const QRectF face = snapped(painter, box);
  fill_box(painter, face, QColor::fromRgb(0xFF0A0705));
  fill_box(painter, face,
           glow(box, .5, 1.08, .98,
                {{0, 0xFF8A4A12},
                 {.30, 0xFF5E300C, .95},
                 {.58, 0xFF2E1808, .85},
                 {.82, 0xFF150B05, .7},
                 {1, 0xFF0A0705, 0}}));
  fill_box(painter, face, glow(box, .5, 1.02, .52, {{0, 0xFFFFC878, .34}, {.55, 0xFFFF9A3C, .07}, {1, 0xFFFF9A3C, 0}}));
}

QImage still_picture(double scale, const QRectF& box, const QRectF& well, bool right) {
  QImage image(static_cast<int>(std::lround(box.width() * scale)), static_cast<int>(std::lround(box.height() * scale)),
               QImage::Format_RGB32);
  QPainter painter(&image);
  set_up(painter, scale);
  painter.translate(-box.topLeft());
  paint_needle_face(painter, box, right);
  paint_glass_shine(painter, well);
  return image;
}

}  // namespace

double needle_angle(double db) { return deflection_angle(needle_deflection(db)); }

void paint_needle_face(QPainter& painter, const QRectF& box, bool right) {
  const QPointF centre = pivot(box);
  paint_backlight(painter, box);
  paint_red_zone(painter, centre);
  paint_scale(painter, centre);
  paint_numbers(painter, centre);
  paint_fine_marks(painter, centre);
  const double baseline = box.bottom() - 8;
  draw_decibel_letters(painter, {box.right() - 9, baseline}, palette::kSilver);
  draw_caption(painter, {box.left() + 9, baseline}, right ? QStringLiteral("R") : QStringLiteral("L"),
               {.colour = palette::kSilver, .bold = true});
  painter.save();
  painter.setClipRect(box, Qt::IntersectClip);
  paint_cover(painter, centre);
  painter.restore();
}

NeedleBackdrop::NeedleBackdrop(double scale, const QRectF& box, const QRectF& well, bool right)
    : scale_(scale),
      pivot_((pivot(box) - box.topLeft()) * scale),
      still_(still_picture(scale, box, well, right)),
      shadow_profile_(palette::kBlack, {{2.4 * scale, .5}}),
      glow_profile_(palette::kNeedleGlow, {{3.6 * scale, .16}}),
      needle_profile_(palette::kNeedle, {{1.5 * scale, 1}}),
      shadow_(still_.size(), shadow_profile_.reach()),
      needle_(still_.size(), glow_profile_.reach()) {}

QRect NeedleBackdrop::draw(QImage& image, const QPoint& origin, double db, QRect& standing) {
  const double angle = std::clamp(needle_angle(db), -kNeedleSwing, kMostAngle);
  const QPointF tip = on_circle(pivot_, kNeedleRadius * scale_, angle);
  // The cover is part of the still picture, so the needle begins at its rim.
  const QPointF root = on_circle(pivot_, kRimRadius * scale_, angle);
  const QPointF offset(1.6 * scale_, 1.6 * scale_);
  shadow_.clear();
  shadow_.add_line(on_circle(pivot_, (kRimRadius + 2) * scale_, angle) + offset, tip + offset);
  needle_.clear();
  needle_.add_line(root, tip);

  const QRect whole(QPoint(0, 0), still_.size());
  const QRect stands = (shadow_.touched() | needle_.touched()) & whole;
  const QRect drawn = standing.isEmpty() ? whole : standing | stands;
  for (int y = drawn.top(); y <= drawn.bottom(); ++y) {
    QRgb* pixels = reinterpret_cast<QRgb*>(image.scanLine(y + origin.y())) + origin.x();
    std::memcpy(pixels + drawn.left(), reinterpret_cast<const QRgb*>(still_.constScanLine(y)) + drawn.left(),
                static_cast<std::size_t>(drawn.width()) * sizeof(QRgb));
  }
  shadow_.blend(image, origin, shadow_profile_);
  needle_.blend(image, origin, glow_profile_);
  needle_.blend(image, origin, needle_profile_);
  standing = stands;
  return drawn.translated(origin);
}

}  // namespace tandem
