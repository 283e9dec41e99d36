// The spectrum as an image at device resolution, drawn from the analyser's numbers; only what has changed is drawn
// again. UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <memory>
#include <vector>

#include "displays/spectrum/spectrum_analyser.h"
#include "paint/displays/spectrum.h"
#include "paint/displays/spectrum_backdrop.h"
#include "widgets/display_area/display_view.h"

namespace tandem {

class SpectrumView final : public ViewOf<SpectrumAnalyser> {
 public:
  explicit SpectrumView(SpectrumAnalyser& analyser);
  void reset() override;
  ChangedPicture update(double scale) override;
  void draw(QPainter& painter) const override { draw_picture(painter, area().topLeft(), image_); }

 private:
  bool fit(double scale);
  SpectrumPicture look_of(const SpectrumReading& picture);
  void lay_out_marks(const SpectrumReading& picture, std::size_t side);
  RollHistory roll_of(const RollCells& roll);

  std::unique_ptr<SpectrumBackdrop> backdrop_;
  QImage image_;
  double scale_ = 0;
  SpectrumTrace previous_;
  BothSides<std::vector<float>> marks_;
  std::size_t newest_step_ = 0;
  std::uint64_t steps_written_ = 0;
};

}  // namespace tandem
