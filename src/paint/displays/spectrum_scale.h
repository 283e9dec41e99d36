// The scale strip below the spectrum and the grid over it, in device pixels of the display area. UI thread.
#pragma once

#include <QPainter>

#include "paint/displays/spectrum_style.h"

namespace tandem {

/// Teal, notched at the octaves of the reference frequency, which is marked itself; of the roll notched every second.
void paint_spectrum_strip(QPainter& painter, const SpectrumStyle& style);

/// Dotted lines at the same places and at the quarters of the height.
void paint_spectrum_grid(QPainter& painter, const SpectrumStyle& style);

}  // namespace tandem
