#include "paint/needle_meter.h"

#include <cmath>
#include <utility>

#include "paint/caption.h"
#include "paint/ink.h"
#include "paint/palette.h"

namespace tandem {

namespace {

constexpr double kScaleRadius = 92;
constexpr double kSpan = 43;
constexpr double kFullScale = 1.41254;  // +3 dB as an amplitude

QPointF pivot(const QRectF& box) { return {box.center().x(), box.bottom() + 30}; }

QPainterPath arc(const QPointF& centre, double radius, double from, double to) {
  const QRectF circle(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
  QPainterPath path;
  path.arcMoveTo(circle, 90 - from);
  path.arcTo(circle, 90 - from, from - to);
  return path;
}

void paint_scale(QPainter& painter, const QPointF& centre) {
  const QColor lime = QColor::fromRgb(palette::kLime);
  stroke_path(painter, arc(centre, kScaleRadius, -kSpan, kSpan), lime, 1.1);
  stroke_path(painter, arc(centre, kScaleRadius - 2.4, needle_angle(0), kSpan), lime, 4.4);
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
  for (int i = 0; i <= 10; ++i) {
    const double angle = -kSpan + 2 * kSpan * i / 10 / kFullScale;
    path.moveTo(on_circle(centre, kScaleRadius - 3, angle));
    path.lineTo(on_circle(centre, kScaleRadius - (i % 5 == 0 ? 7 : 5.5), angle));
  }
  stroke_path(painter, path, faded(palette::kLime, .55), .8);
}

void paint_cover(QPainter& painter, const QPointF& centre) {
  fill_disc(painter, centre, 43.5, faded(palette::kBlack, .5));
  const QRectF disc(centre - QPointF(42, 42), QSizeF(84, 84));
  fill_disc(painter, centre, 42, downward(disc, {{0, 0xFF3A4046}, {.12, 0xFF1B1E21}, {1, 0xFF0B0C0D}}));
  draw_ring(painter, centre, 41.4, faded(palette::kMark, .55), .8);
}

}  // namespace

double needle_angle(double db) { return -kSpan + 2 * kSpan * std::pow(10, db / 20) / kFullScale; }

void paint_needle_face(QPainter& painter, const QRectF& box, bool right) {
  const QPointF centre = pivot(box);
  fill_box(painter, box,
           glow(box, .5, 1.02, .82, {{0, 0xFF1C4632}, {.45, 0xFF0D2118}, {.8, 0xFF050B08}, {1, 0xFF020403}}));
  paint_scale(painter, centre);
  paint_numbers(painter, centre);
  paint_fine_marks(painter, centre);
  const double baseline = box.bottom() - 8;
  draw_arial_bold(painter, {box.right() - 9, baseline}, QStringLiteral("dB"), 11.5, palette::kSilver);
  draw_caption(painter, {box.left() + 9, baseline}, right ? QStringLiteral("R") : QStringLiteral("L"),
               {.colour = palette::kSilver, .bold = true});
}

void paint_needle(QPainter& painter, const QRectF& box, double db) {
  const QPointF centre = pivot(box);
  const QPointF tip = on_circle(centre, kScaleRadius + 3.5, needle_angle(db));
  const QPointF root = on_circle(centre, 20, needle_angle(db));
  const QPointF shadow(1.6, 1.6);
  painter.save();
  painter.setClipRect(box, Qt::IntersectClip);
  draw_line(painter, root + shadow, tip + shadow, faded(palette::kBlack, .55), 2.2);
  draw_line(painter, root, tip, faded(0xFFFF5A1F, .18), 3.6);
  draw_line(painter, root, tip, QColor::fromRgb(palette::kNeedle), 1.5, Qt::RoundCap);
  paint_cover(painter, centre);
  painter.restore();
}

}  // namespace tandem
