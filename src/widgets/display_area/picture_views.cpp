#include "widgets/display_area/picture_views.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "layout/panel_layout.h"

namespace tandem {

namespace {

constexpr double kScaleTop = 1.41254;  // amplitude at the end of the needle's scale, +3 dB

QRectF well() { return control_box("Display well").box(); }
QRectF scope_area() { return control_box("MMOscopeX1").box(); }

QImage image_for(QSize size, double scale) {
  QImage image(size, QImage::Format_RGB32);
  image.setDevicePixelRatio(scale);
  return image;
}

// The first value stands a part of a pixel left of the box: the values on the whole pixels lie between their
// neighbours.
std::array<float, kScopeValues> on_pixels(const ScopeReading::Trace& trace, float shift) {
  std::array<float, kScopeValues> values{};
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = trace[i] + shift * (trace[i + 1] - trace[i]);
  return values;
}

// The whole device pixel nearest to a point, px of the panel: pictures stand on one.
QPointF on_device_pixel(const QPointF& point, double scale) {
  return {std::floor(point.x() * scale + .5) / scale, std::floor(point.y() * scale + .5) / scale};
}

}  // namespace

double scale_db(double deflection) { return deflection > 1e-5 ? 20 * std::log10(deflection * kScaleTop) : -100.0; }

ChangedPicture NeedleView::update(const NeedleMeter& meter, double scale) {
  if (!fits(scale)) {
    scale_ = scale;
    face_ = std::make_unique<NeedleBackdrop>(scale, box_, well(), right_);
    image_ = image_for(face_->size(), scale);
    standing_ = {};
  }
  const QRect changed = face_->draw(image_, {0, 0}, scale_db(meter.deflection()), standing_);
  ChangedPicture picture{&image_, on_device_pixel(box_.topLeft(), scale), {}};
  picture.add(changed);
  return picture;
}

void NeedleView::draw(QPainter& painter) const {
  if (!image_.isNull()) painter.drawImage(on_device_pixel(box_.topLeft(), scale_), image_);
}

ChangedPicture ScopeView::update(const Oscilloscope& scope, double scale) {
  if (!fits(scale)) {
    scale_ = scale;
    face_ = std::make_unique<ScopeBackdrop>(scale, scope_area(), well());
    image_ = image_for(face_->size(), scale);
  }
  const ScopeReading& reading = scope.picture();
  const auto left = on_pixels(reading.left, reading.shift);
  const auto right = on_pixels(reading.right, reading.shift);
  const QRect changed = face_->draw(image_, {0, 0}, {left, right});
  ChangedPicture picture{&image_, scope_area().topLeft(), {}};
  picture.add(changed);
  return picture;
}

void ScopeView::draw(QPainter& painter) const {
  if (!image_.isNull()) painter.drawImage(scope_area().topLeft(), image_);
}

}  // namespace tandem
