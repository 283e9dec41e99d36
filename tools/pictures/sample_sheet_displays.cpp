// The six kinds of spectrum with the settings that change their look, and needles at several readings.
#include <algorithm>
#include <array>
#include <cmath>

#include "layout/panel_layout.h"
#include "paint/displays/needle_meter.h"
#include "paint/displays/spectrum.h"
#include "paint/strokes/ink.h"
#include "paint/surfaces/faceplate.h"
#include "paint/surfaces/panels.h"
#include "paint/text/caption.h"
#include "tools/pictures/sample_sheets.h"
#include "tools/pictures/sample_signals.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

constexpr int kRollSteps = 90;
constexpr int kRows = 28;

/// A made-up roll: a beat in the low rows that fades upward.
std::vector<float> roll_values() {
  std::vector<float> values;
  for (int step = 0; step < kRollSteps; ++step) {
    const double beat = std::abs(std::sin(step * .17));
    for (int row = 0; row < kRows; ++row) {
      const double fall = std::exp(-row * .11);
      values.push_back(static_cast<float>(std::clamp(.15 + beat * fall, 0., 1.)));
    }
  }
  return values;
}

struct Signals {
  std::vector<float> left = sample_spectrum(33, 11, 1);
  std::vector<float> right = sample_spectrum(33, 23, 1.06);
  std::vector<float> left_marks = raised(left);
  std::vector<float> right_marks = raised(right);
  std::vector<float> roll = roll_values();

  static std::vector<float> raised(std::vector<float> heights) {
    for (float& height : heights) height = std::min(1.F, height + .06F);
    return heights;
  }
};

struct SpectrumSample {
  QString name;
  SpectrumStyle style;
  bool marks = false;
};

std::array<SpectrumSample, 8> spectrum_samples() {
  return {{
      {u"Points, grid"_s, {.kind = AnalyserKind::Points, .inactive = false, .grid_lines = true}},
      {u"Lines, grid"_s, {.kind = AnalyserKind::Lines, .inactive = false, .grid_lines = true}},
      {u"V.Lines"_s, {.kind = AnalyserKind::VLines, .inactive = false}},
      {u"Bar, peak marks, reference"_s, {.reference_hz = 440}, true},
      {u"Picks"_s, {.kind = AnalyserKind::Picks}},
      {u"Roll"_s, {.kind = AnalyserKind::Roll}},
      {u"Bar, solid"_s, {.solid = true}},
      {u"Bar, no inactive spots, grid"_s, {.inactive = false, .grid_lines = true}, true},
  }};
}

void draw_image(QPainter& painter, const QPointF& at, const QImage& image) {
  const DevicePixels pixels(painter);
  painter.drawImage(pixels.at(at), image);
}

void paint_spectrum_sample(QPainter& painter, const QRectF& well, const SpectrumSample& sample,
                           const Signals& made_up) {
  paint_glass(painter, well);
  const QRectF area = well.adjusted(2, 2, -2, -2);
  SpectrumStyle style = sample.style;
  style.grid = spectrum_grid(64, device_scale(painter));
  const SpectrumBackdrop face(style, area, well);
  SpectrumPicture picture;
  picture.left = made_up.left;
  picture.right = made_up.right;
  if (sample.marks) {
    picture.left_peaks = made_up.left_marks;
    picture.right_peaks = made_up.right_marks;
    picture.marks_per_column = 1;
  }
  picture.roll = {made_up.roll, made_up.roll, kRollSteps, kRows, kRollSteps};
  QImage image(face.size(), QImage::Format_RGB32);
  SpectrumTrace nothing;
  update_spectrum(image, {0, 0}, face, picture, nothing);
  draw_image(painter, area.topLeft(), image);
}

void paint_needle_sample(QPainter& painter, const QPointF& at, double db, bool right) {
  const QRectF box(at, QSizeF(162, 91));
  const QRectF well = box.adjusted(-2, -2, 2, 2);
  paint_glass(painter, well);
  NeedleBackdrop face(device_scale(painter), box, well, right);
  QImage image(face.size(), QImage::Format_RGB32);
  QRect nothing;
  face.draw(image, {0, 0}, db, nothing);
  draw_image(painter, at, image);
}

}  // namespace

void paint_displays_sheet(QPainter& painter) {
  paint_faceplate(painter, {kDisplaysSheetWidth, kDisplaysSheetHeight});
  const Signals made_up;
  const auto samples = spectrum_samples();
  for (std::size_t i = 0; i < samples.size(); ++i) {
    const std::size_t row = i / 2;
    const QPointF at(i % 2 == 0 ? 12. : 367., 26. + 113. * static_cast<double>(row));
    draw_caption(painter, at - QPointF(0, 6), samples[i].name, {.bold = true});
    paint_spectrum_sample(painter, {at, QSizeF(341, 95)}, samples[i], made_up);
  }
  constexpr double kReadings[] = {-40, -10, 0, 3};
  for (int i = 0; i < 4; ++i) paint_needle_sample(painter, {14. + 176 * i, 483.}, kReadings[i], i % 2 == 1);
}

}  // namespace tandem
