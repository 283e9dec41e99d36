// What the spectrum analyser shows: plain numbers for the painter. Values; any thread.
#pragma once

#include <cstddef>
#include <vector>

#include "displays/core/sound_frame.h"
#include "displays/spectrum/frequency_axis.h"
#include "displays/spectrum/roll_recorder.h"
#include "displays/spectrum/spectrum_grid.h"
#include "displays/spectrum/spectrum_settings.h"

namespace tandem {

struct SpectrumReading {
  AnalyserKind kind = AnalyserKind::Bar;
  bool grid_lines = false;
  bool inactive = true;     // unlit rows are drawn
  bool solid_bars = false;  // without LED rows

  SpectrumGrid grid;
  FrequencyAxis axis;
  double reference_hz = 1000.0;

  // One for each column. Empty for the kind Roll.
  BothSides<std::vector<float>> heights;
  // peak_count marks for each column: the newest of all columns, then the next older ones; 0 = no mark. None unless
  // peak marks are drawn.
  std::size_t peak_count = 0;
  BothSides<std::vector<float>> peaks;
  // Without steps unless the kind is Roll.
  RollCells roll;
};

}  // namespace tandem
