// How the spectrum display is drawn. A value; any thread.
#pragma once

#include "displays/spectrum/frequency_axis.h"
#include "displays/spectrum/spectrum_grid.h"
#include "displays/spectrum/spectrum_settings.h"

namespace tandem {

/// What the still parts depend on.
struct SpectrumStyle {
  AnalyserKind kind = AnalyserKind::Bar;
  bool solid = false;    ///< smooth bars in a gradient, else LED rows
  bool inactive = true;  ///< unlit rows show, or a ghost of the solid bars
  bool grid_lines = false;
  SpectrumGrid grid = spectrum_grid(64, 1);
  FrequencyAxis axis{};
  double reference_hz = 1000;
  bool operator==(const SpectrumStyle&) const = default;

  /// Whether heights are shown in whole rows.
  [[nodiscard]] bool in_rows() const { return !solid || kind == AnalyserKind::Picks; }
};

}  // namespace tandem
