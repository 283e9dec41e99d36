// The spectrum as the window shows it, read spot by spot, while the board's controls are moved as a user moves them.
#pragma once

#include <QImage>
#include <functional>
#include <vector>

#include "displays/core/sound_frame.h"
#include "paint/displays/spectrum_backdrop.h"
#include "widgets/window_rig.h"

namespace tandem::test {

struct Tone {
  double hz;
  double db;  // of a full-scale sine
};

// A picture of the display area at 100 %.
class BoardPicture {
 public:
  BoardPicture(QImage image, const SpectrumGrid& grid);
  const QImage& image() const { return image_; }
  int columns() const { return grid_.columns; }
  // The column of a frequency at the horizontal scale 1.
  int column_of(double hz) const { return static_cast<int>(FrequencyAxis{}.position(hz) * columns()); }
  // Lit rows of a column, from the lowest up without a gap.
  int rows(int column, std::size_t side = 0) const;
  // The rows of a column, from the lowest up from 1, whose spots the condition takes.
  std::vector<int> rows_where(int column, const std::function<bool(QRgb)>& is_meant) const;
  int highest_column(std::size_t side = 0) const;
  // Pixels that the condition takes, in the columns of both halves.
  int count(const std::function<bool(QRgb)>& is_meant) const;
  const SpectrumGrid& grid() const { return grid_; }

 private:
  QImage image_;
  SpectrumGrid grid_;
};

// Colours under the glass's shine, which adds at most some twenty levels.
bool is_lit(QRgb pixel);       // lime, yellow or red
bool is_inactive(QRgb pixel);  // green, olive or maroon
bool is_white(QRgb pixel);     // a peak mark, also an older one
bool is_silver(QRgb pixel);    // a dot of the grid

class BoardRig : public WindowRig {
 public:
  BoardRig();
  // The settings of the "Default" lamp.
  void restore();
  void hear(const std::vector<Tone>& tones, double seconds);
  void hear_silence(double seconds) { hear({}, seconds); }
  BoardPicture picture();
  // The same sound with other settings, from rest.
  BoardPicture picture_of(const std::vector<Tone>& tones);

 private:
  double now_ = 0;
};

}  // namespace tandem::test
