// Example states of the panel for pictures and tests, and the made-up signals that its displays show in them.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "tools/pictures/panel_painter.h"

namespace tandem {

/// A look and the values that its displays point into.
struct PanelSpecimen {
  PanelState look;
  std::vector<float> left;
  std::vector<float> right;
  std::vector<float> left_trace;
  std::vector<float> right_trace;
};

std::vector<std::string_view> specimen_names();

/// A state by its name; none if there is no such state.
std::unique_ptr<PanelSpecimen> sample_panel(std::string_view name);

/// A typical falling spectrum of `columns` heights; the same seed gives the same heights.
std::vector<float> specimen_spectrum(int columns, std::uint32_t seed, double tilt);
/// A typical trace of kScopeValues values.
std::vector<float> specimen_trace(double phase, double amplitude, std::uint32_t seed);

}  // namespace tandem
