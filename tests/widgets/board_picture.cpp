#include "widgets/board_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "displays/spectrum/spectrum_analyser.h"
#include "paint/displays/spectrum.h"
#include "paint/displays/spectrum_backdrop.h"

namespace tandem::test {

namespace {

constexpr double kFrame = 1.0 / 60;

QRect area() { return control_box("MMSpectrum1").box(); }

}  // namespace

bool is_lit(QRgb pixel) { return std::max(qRed(pixel), qGreen(pixel)) > 200 && qBlue(pixel) < 60; }
bool is_inactive(QRgb pixel) {
  const int most = std::max(qRed(pixel), qGreen(pixel));
  return most > 100 && most < 170 && qBlue(pixel) < 60;
}
bool is_white(QRgb pixel) { return qBlue(pixel) > 70; }
bool is_silver(QRgb pixel) {
  return std::abs(qRed(pixel) - qBlue(pixel)) < 8 && qBlue(pixel) > 140 && qBlue(pixel) < 215;
}

BoardPicture::BoardPicture(QImage image, const SpectrumGrid& grid) : image_(std::move(image)), grid_(grid) {}

std::vector<int> BoardPicture::rows_where(int column, const std::function<bool(QRgb)>& is_meant) const {
  std::vector<int> rows;
  const int x = grid_.column_x(0, column) + grid_.column_width() / 2;
  for (int row = 1; row <= grid_.rows; ++row) {
    if (is_meant(image_.pixel(x, grid_.row_top(row - 1)))) rows.push_back(row);
  }
  return rows;
}

int BoardPicture::rows(int column, std::size_t side) const {
  const int x = grid_.column_x(side, column) + grid_.column_width() / 2;
  int row = 0;
  while (row < grid_.rows && is_lit(image_.pixel(x, grid_.row_top(row)))) ++row;
  return row;
}

int BoardPicture::highest_column(std::size_t side) const {
  int highest = 0;
  for (int column = 1; column < grid_.columns; ++column) {
    if (rows(column, side) > rows(highest, side)) highest = column;
  }
  return highest;
}

int BoardPicture::count(const std::function<bool(QRgb)>& is_meant) const {
  int found = 0;
  for (int y = grid_.top(); y < grid_.baseline; ++y) {
    for (int x = 0; x < image_.width(); ++x) found += is_meant(image_.pixel(x, y)) ? 1 : 0;
  }
  return found;
}

BoardRig::BoardRig() {
  controls().MMSwitchX1.move(0);
  restore();
}

void BoardRig::restore() {
  controls().MMLEDX6.LEDColor = clOlive;
  controls().MMLEDX6.click.raise();
}

void BoardRig::hear(const std::vector<Tone>& tones, double seconds) {
  for (double passed = 0; passed < seconds - kFrame / 2; passed += kFrame) {
    std::vector<SoundFrame> sound(static_cast<std::size_t>(std::lround(kHeardRate * kFrame)));
    for (SoundFrame& frame : sound) {
      double sample = 0;
      for (const Tone& tone : tones)
        sample += std::pow(10, tone.db / 20) * std::sin(2 * std::numbers::pi * tone.hz * now_);
      frame = {static_cast<float>(sample), static_cast<float>(sample / 2)};
      now_ += 1 / kHeardRate;
    }
    window->visual().feed(sound);
    frame(kFrame);
  }
}

BoardPicture BoardRig::picture() {
  const auto& analyser = static_cast<SpectrumAnalyser&>(*player->program.sound.MMSpectrum1);
  return {window->grab(area()).toImage().convertToFormat(QImage::Format_RGB32), analyser.picture().grid};
}

BoardPicture BoardRig::picture_of(const std::vector<Tone>& tones) {
  hear_silence(3);
  hear(tones, .2);
  return picture();
}

}  // namespace tandem::test
