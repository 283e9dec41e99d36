#include "widgets/display_area/spectrum_view.h"

#include "layout/panel_layout.h"

namespace tandem {

namespace {

SpectrumStyle style_of(const SpectrumReading& picture) {
  return {.kind = picture.kind,
          .solid = picture.solid_bars,
          .inactive = picture.inactive,
          .grid_lines = picture.grid_lines,
          .grid = picture.grid,
          .axis = picture.axis,
          .reference_hz = picture.reference_hz};
}

}  // namespace

SpectrumView::SpectrumView(SpectrumAnalyser& analyser)
    : ViewOf(analyser, "MMSpectrum1", control_box("MMSpectrum1").box()) {}

void SpectrumView::reset() {
  ViewOf::reset();
  backdrop_.reset();  // all of it is drawn again
}

// A new backdrop, and with it a new image, for another scale or style.
bool SpectrumView::fit(double scale) {
  if (scale != scale_) {
    scale_ = scale;
    display().fit(scale);
    backdrop_.reset();
  }
  const SpectrumStyle style = style_of(display().picture());
  if (backdrop_ && backdrop_->style() == style) return false;
  backdrop_ = std::make_unique<SpectrumBackdrop>(style, area(), QRectF(control_box("Display well").box()));
  image_ = QImage(backdrop_->size(), QImage::Format_RGB32);
  previous_ = {};
  return true;
}

// From "the newest of all columns, then the next" to "all of a column, the newest first"; 0 is no mark.
void SpectrumView::lay_out_marks(const SpectrumReading& picture, std::size_t side) {
  const std::vector<float>& from = picture.peaks[side];
  std::vector<float>& to = marks_[side];
  to.assign(from.size(), -1.0F);
  const std::size_t columns = picture.peak_count == 0 ? 0 : from.size() / picture.peak_count;
  for (std::size_t mark = 0; mark < picture.peak_count; ++mark)
    for (std::size_t column = 0; column < columns; ++column)
      if (const float height = from[mark * columns + column]; height > 0)
        to[column * picture.peak_count + mark] = height;
}

RollHistory SpectrumView::roll_of(const RollCells& roll) {
  if (roll.steps == 0) return {};
  steps_written_ += (roll.newest + roll.steps - newest_step_) % roll.steps;
  newest_step_ = roll.newest;
  // The painter takes the newest step to lie at (written - 1) modulo the ring's size.
  const std::uint64_t off = (roll.newest + 1 + roll.steps - steps_written_ % roll.steps) % roll.steps;
  steps_written_ += off;
  return {roll.cells[0], roll.cells[1], static_cast<int>(roll.steps), static_cast<int>(roll.rows), steps_written_};
}

SpectrumPicture SpectrumView::look_of(const SpectrumReading& picture) {
  lay_out_marks(picture, 0);
  lay_out_marks(picture, 1);
  return {picture.heights[0],   picture.heights[1], marks_[0], marks_[1], static_cast<int>(picture.peak_count),
          roll_of(picture.roll)};
}

ChangedPicture SpectrumView::update(double scale) {
  const bool fresh = fit(scale);
  const ChangedRects changed = update_spectrum(image_, {0, 0}, *backdrop_, look_of(display().picture()), previous_);
  ChangedPicture picture{&image_, area().topLeft(), {}};
  if (fresh) {
    picture.boxes.append(image_.rect());
  } else {
    for (const QRect& rect : changed) picture.boxes.append(rect);
  }
  return picture;
}

}  // namespace tandem
