// The spectrum as an image at device resolution that is kept up to date by lines, and told from the analyser's numbers.
// UI thread.
#pragma once

#include <QImage>
#include <QPainter>
#include <memory>
#include <vector>

#include "displays/spectrum/spectrum_analyser.h"
#include "paint/displays/spectrum.h"
#include "paint/displays/spectrum_backdrop.h"
#include "widgets/display_area/changed_picture.h"

namespace tandem {

class SpectrumView {
 public:
  // Brings the image up to date for a screen of this scale (1 = 100 %).
  ChangedPicture update(SpectrumAnalyser& analyser, double scale);
  void draw_anew() { face_.reset(); }  // with the next update()
  void draw(QPainter& painter) const;

 private:
  bool fit(SpectrumAnalyser& analyser, double scale);
  SpectrumPicture look_of(const SpectrumReading& picture);
  void lay_out_marks(const SpectrumReading& picture, std::size_t side);
  RollHistory roll_of(const RollCells& roll);

  double scale_ = 0;
  std::unique_ptr<SpectrumBackdrop> face_;
  QImage image_;
  SpectrumTrace standing_;
  BothSides<std::vector<float>> marks_;
  std::size_t newest_step_ = 0;
  std::uint64_t steps_written_ = 0;
};

}  // namespace tandem
