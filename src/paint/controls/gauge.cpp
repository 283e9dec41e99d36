#include "paint/controls/gauge.h"

#include <algorithm>
#include <cmath>

#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr double kSegmentPitch = 4;
constexpr double kSegmentWidth = 3;

int segment_count(const QRectF& box) { return static_cast<int>((box.width() + 1) / kSegmentPitch); }

void fill_segments(QPainter& painter, const QRectF& box, int first, int last, QRgb colour) {
  for (int i = first; i < last; ++i) {
    const QRectF segment(box.left() + i * kSegmentPitch, box.top(), kSegmentWidth, box.height());
    fill_box(painter, snapped(painter, segment), QColor::fromRgb(colour));
  }
}

}  // namespace

void paint_gauge(QPainter& painter, const QRectF& box, double percent) {
  const int count = segment_count(box);
  const auto lit = static_cast<int>(std::lround(percent * count / 100));
  const int high = std::min(lit, count * 3 / 4);
  fill_segments(painter, box.adjusted(0, box.height() - 2, 0, 0), lit, count, palette::kOlive);
  if (lit > 0) {
    // The glow of neighbouring segments runs together: one strip, 1 px wider than the lit ones.
    const double width = lit * kSegmentPitch - (kSegmentPitch - kSegmentWidth);
    fill_box(painter, {box.left() - 1, box.top() - 1, width + 2, box.height() + 2}, faded(palette::kGauge, .16));
  }
  fill_segments(painter, box, 0, high, palette::kGauge);
  fill_segments(painter, box, high, lit, palette::kYellow);
}

void paint_pitch_lamp(QPainter& painter, const QRectF& box, QRgb colour, bool lit) {
  if (!lit) {
    const QRectF line = box.adjusted(0, 1.5, 0, -1.5);
    fill_box(painter, line, QColor::fromRgb(colour), line.height() / 2);
    return;
  }
  fill_box(painter, box.adjusted(-3, -3, 3, 3), faded(colour, .10), 6);
  fill_box(painter, box.adjusted(-1.5, -1.5, 1.5, 1.5), faded(colour, .24), 4.5);
  fill_box(painter, box, QColor::fromRgb(colour), box.height() / 2);
  fill_box(painter, {box.left() + 3, box.top() + 1, box.width() - 6, 1.5}, faded(palette::kWhite, .7), .75);
}

void paint_lamp_link(QPainter& painter, const QRectF& left_lamp, const QRectF& right_lamp) {
  const QRectF link(left_lamp.right(), left_lamp.top() + 2.5, right_lamp.left() - left_lamp.right(), 1);
  fill_box(painter, link, faded(palette::kWhite, .16));
}

}  // namespace tandem
