// The needle meters and the oscilloscope as images at device resolution, kept up to date from the displays' numbers.
// Each is made anew for another scale. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <memory>

#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/oscilloscope.h"
#include "widgets/display_area/changed_picture.h"

namespace tandem {

// Reading of the scale in dB for a deflection of 0 .. 1.
double scale_db(double deflection);

class NeedleView {
 public:
  NeedleView(const QRectF& box, bool right) : box_(box), right_(right) {}

  // Draws the needle where it stands now.
  ChangedPicture update(const NeedleMeter& meter, double scale);
  void draw(QPainter& painter) const;
  bool fits(double scale) const { return scale == scale_; }

 private:
  QRectF box_;
  bool right_;
  double scale_ = 0;
  std::unique_ptr<NeedleBackdrop> face_;
  QImage image_;
  QRect standing_;
};

class ScopeView {
 public:
  ChangedPicture update(const Oscilloscope& scope, double scale);
  void draw(QPainter& painter) const;
  bool fits(double scale) const { return scale == scale_; }

 private:
  double scale_ = 0;
  std::unique_ptr<ScopeBackdrop> face_;
  QImage image_;
};

}  // namespace tandem
