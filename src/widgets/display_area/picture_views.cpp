#include "widgets/display_area/picture_views.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>

#include "layout/panel_layout.h"

namespace tandem {

namespace {

constexpr double kScaleBegin = -20;  // dB

QRectF well() { return control_box("Display well").box(); }

// The first value stands a part of a pixel left of the box: the values on the whole pixels lie between their
// neighbours.
std::array<float, kScopeValues> on_pixels(const ScopeReading::Trace& trace, float shift) {
  std::array<float, kScopeValues> values{};
  for (std::size_t i = 0; i < values.size(); ++i) values[i] = trace[i] + shift * (trace[i + 1] - trace[i]);
  return values;
}

}  // namespace

double scale_db(double deflection) { return deflection > 1e-5 ? needle_reading(deflection) : -100.0; }

ChangedPicture NeedleView::update(double scale) {
  if (scale != scale_) {
    scale_ = scale;
    backdrop_ = std::make_unique<NeedleBackdrop>(scale, area(), well(), right_);
    image_ = QImage(backdrop_->size(), QImage::Format_RGB32);
    previous_ = {};
  }
  const QRect changed = backdrop_->draw(image_, {0, 0}, scale_db(display().deflection()), previous_);
  return {&image_, area().topLeft(), {changed}};
}

std::optional<ItemValue> NeedleView::value() const {
  const double level = std::clamp(scale_db(display().deflection()), kScaleBegin, kNeedleTop);
  return ItemValue{std::round(level), kScaleBegin, kNeedleTop, 1};
}

QString NeedleView::value_text() const { return QString::number(value()->value) + " dB"; }

ScopeView::ScopeView(Oscilloscope& scope) : ViewOf(scope, "MMOscopeX1", control_box("MMOscopeX1").box()) {}

ChangedPicture ScopeView::update(double scale) {
  if (scale != scale_) {
    scale_ = scale;
    backdrop_ = std::make_unique<ScopeBackdrop>(scale, area(), well());
    image_ = QImage(backdrop_->size(), QImage::Format_RGB32);
  }
  const ScopeReading& reading = display().picture();
  const auto left = on_pixels(reading.left, reading.shift);
  const auto right = on_pixels(reading.right, reading.shift);
  const QRect changed = backdrop_->draw(image_, {0, 0}, {left, right});
  return {&image_, area().topLeft(), {changed}};
}

}  // namespace tandem
