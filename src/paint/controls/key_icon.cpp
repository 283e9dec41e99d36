#include "paint/controls/key_icon.h"

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

QPainterPath play_triangle() { return polygon_path({{-5, -6.5}, {7, 0}, {-5, 6.5}}); }

QPainterPath pause_bars() {
  QPainterPath path;
  path.addRect(-5.5, -6, 4, 12);
  path.addRect(1.5, -6, 4, 12);
  return path;
}

QPainterPath stop_square() {
  QPainterPath path;
  path.addRect(-5.5, -5.5, 11, 11);
  return path;
}

QPainterPath next_arrows() {
  QPainterPath path = polygon_path({{-8, -6}, {0, 0}, {-8, 6}});
  path.addPath(polygon_path({{0, -6}, {8, 0}, {0, 6}}));
  path.addRect(7.2, -6, 2.2, 12);
  path.setFillRule(Qt::WindingFill);
  return path;
}

QPainterPath open_path(std::initializer_list<QPointF> points) {
  QPainterPath path(*points.begin());
  for (const QPointF* point = points.begin() + 1; point != points.end(); ++point) path.lineTo(*point);
  return path;
}

void paint_glowing(QPainter& painter, const QPainterPath& path, QRgb colour) {
  stroke_path(painter, path, faded(colour, .12), 5);
  stroke_path(painter, path, faded(colour, .28), 2.4);
  fill_path(painter, path, QColor::fromRgb(colour));
}

void paint_outlined(QPainter& painter, const QPainterPath& path, const QColor& colour, double width) {
  fill_path(painter, path, colour);
  stroke_path(painter, path, colour, width);
}

void paint_glint(QPainter& painter, std::initializer_list<QPointF> points, double opacity) {
  stroke_path(painter, open_path(points), faded(palette::kWhite, opacity), 1, Qt::RoundCap);
}

Icon at_rest(Icon icon) {
  switch (icon) {
    case Icon::PlayActive:
      return Icon::Play;
    case Icon::PauseActive:
      return Icon::Pause;
    case Icon::StopActive:
      return Icon::Stop;
    default:
      return icon;
  }
}

void paint_active(QPainter& painter, Icon icon) {
  if (icon == Icon::PlayActive) {
    paint_glowing(painter, play_triangle(), palette::kLime);
    paint_glint(painter, {{-4, -4.5}, {2, -1.2}}, .6);
  } else if (icon == Icon::PauseActive) {
    paint_glowing(painter, pause_bars(), palette::kYellow);
    paint_glint(painter, {{-4.6, -5}, {-4.6, 0}}, .7);
    paint_glint(painter, {{2.4, -5}, {2.4, 0}}, .7);
  } else if (icon == Icon::StopActive) {
    paint_glowing(painter, stop_square(), palette::kStopRed);
    paint_glint(painter, {{-4.5, -4.5}, {2, -4.5}}, .55);
  }
}

void paint_chevron(QPainter& painter, double direction, const QColor& colour) {
  stroke_path(painter, open_path({{-6, -3 * direction}, {0, 3 * direction}, {6, -3 * direction}}), colour, 2.2,
              Qt::FlatCap, Qt::MiterJoin);
}

void paint_resting(QPainter& painter, Icon icon, const QColor& colour) {
  switch (icon) {
    case Icon::Play:
      paint_outlined(painter, play_triangle(), colour, 1);
      break;
    case Icon::Pause:
      fill_path(painter, pause_bars(), colour);
      break;
    case Icon::Stop:
      fill_path(painter, stop_square(), colour);
      break;
    case Icon::Next:
      paint_outlined(painter, next_arrows(), colour, .6);
      break;
    case Icon::Up:
      paint_chevron(painter, -1, colour);
      break;
    case Icon::Down:
      paint_chevron(painter, 1, colour);
      break;
    case Icon::Minimise:
      draw_line(painter, {-3.5, 2.5}, {3.5, 2.5}, colour, 1.4);
      break;
    case Icon::Close:
      draw_line(painter, {-3, -3}, {3, 3}, colour, 1.4);
      draw_line(painter, {3, -3}, {-3, 3}, colour, 1.4);
      break;
    default:
      break;
  }
}

}  // namespace

Icon icone(int index) {
  constexpr Icon kFaces[] = {Icon::Play,        Icon::PlayActive, Icon::Pause,
                             Icon::PauseActive, Icon::Stop,       Icon::StopActive};
  return index >= 0 && index < 6 ? kFaces[index] : Icon::None;
}

void paint_icon(QPainter& painter, const QPointF& centre, Icon icon, bool enabled) {
  painter.save();
  painter.translate(centre);
  if (enabled && icon != at_rest(icon)) {
    paint_active(painter, icon);
  } else {
    paint_resting(painter, at_rest(icon), QColor::fromRgb(enabled ? palette::kLegend : palette::kDisabledFace));
  }
  painter.restore();
}

}  // namespace tandem
