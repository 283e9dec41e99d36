// A needle meter for one channel, 162 x 91 px. UI thread. Cache what paint_needle_face() draws; the needle, and a glass
// shine after it, go over it at every frame.
#pragma once

#include <QPainter>

namespace tandem {

struct NeedlePicture {
  double db = -100;    ///< reading of the scale -20..+3; beyond it the needle goes on as the scale would
  bool right = false;  ///< the right channel's meter
};

/// Degrees clockwise from 12 o'clock for a reading in dB; -43 at silence, +43 at +3 dB.
double needle_angle(double db);

void paint_needle_face(QPainter& painter, const QRectF& box, bool right);
void paint_needle(QPainter& painter, const QRectF& box, double db);

}  // namespace tandem
