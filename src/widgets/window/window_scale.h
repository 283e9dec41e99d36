// The scales of the window: steps of 25 %. Any thread, no state.
#pragma once

#include <QSize>

namespace tandem {

inline constexpr double kScaleStep = 0.25;

// The greatest step at which the panel with its board takes at most `share` of a work area's width and height, in px;
// at least 1.
double greatest_scale(const QSize& work_area, double share);

// What suits a screen by itself.
inline double scale_that_suits(const QSize& work_area) { return greatest_scale(work_area, 0.65); }

}  // namespace tandem
