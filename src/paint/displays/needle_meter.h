// A needle meter for one channel, 162 x 91 px. UI thread.
#pragma once

#include <QImage>
#include <QPainter>

#include "paint/strokes/distance_field.h"

namespace tandem {

struct NeedlePicture {
  double db = -100;    ///< reading of the scale -20..+3; beyond it the needle goes on as the scale would
  bool right = false;  ///< the right channel's meter
};

/// Degrees clockwise from 12 o'clock for a reading in dB; -43 at silence, +43 at +3 dB.
double needle_angle(double db);

/// The still part: scale, numbers, letters and the cover over the needle's root.
void paint_needle_face(QPainter& painter, const QRectF& box, bool right);

/// One meter in device pixels for one scale: its still picture, and room to draw the needle in. Keep one.
class NeedleBackdrop {
 public:
  /// `box` is the meter's box in px, `well` the glass round the display area.
  NeedleBackdrop(double scale, const QRectF& box, const QRectF& well, bool right);

  [[nodiscard]] QSize size() const { return still_.size(); }

  /// Draws the meter, its top left at `origin` in an RGB32 (or opaque premultiplied) image, and returns what it drew in
  /// image pixels: the whole meter if nothing stands yet, then the places where the needle stood and stands. `standing`
  /// keeps the needle's place in the image; give a fresh one with a new image. No allocation.
  QRect draw(QImage& image, const QPoint& origin, double db, QRect& standing);

 private:
  double scale_;
  QPointF pivot_;
  QImage still_;
  StrokeProfile shadow_profile_;
  StrokeProfile glow_profile_;
  StrokeProfile needle_profile_;
  DistanceField shadow_;
  DistanceField needle_;
};

}  // namespace tandem
