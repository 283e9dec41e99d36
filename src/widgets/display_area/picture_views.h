// The needle meters and the oscilloscope as images in device pixels, kept up to date from the displays' numbers. Each
// is made again for another scale. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <memory>

#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/oscilloscope.h"
#include "widgets/display_area/display_view.h"

namespace tandem {

// Reading of the scale in dB for a deflection of 0 .. 1.
double scale_db(double deflection);

class NeedleView final : public ViewOf<NeedleMeter> {
 public:
  NeedleView(NeedleMeter& meter, std::string_view name, const QRectF& box, bool right)
      : ViewOf(meter, name, box), right_(right) {}
  ChangedPicture update(double scale) override;
  void draw(QPainter& painter) const override { draw_picture(painter, area().topLeft(), image_); }
  bool is_beside() const override { return right_; }
  std::optional<ItemValue> value() const override;  // whole dB of the scale
  QString value_text() const override;

 private:
  bool right_;
  double scale_ = 0;
  std::unique_ptr<NeedleBackdrop> backdrop_;
  QImage image_;
  QRect previous_;
};

class ScopeView final : public ViewOf<Oscilloscope> {
 public:
  explicit ScopeView(Oscilloscope& scope);
  ChangedPicture update(double scale) override;
  void draw(QPainter& painter) const override { draw_picture(painter, area().topLeft(), image_); }

 private:
  double scale_ = 0;
  std::unique_ptr<ScopeBackdrop> backdrop_;
  QImage image_;
};

}  // namespace tandem
