// The 15 bands of the equalizer, low to high: contiguous, of unequal width, with two narrow ones between 470 and 630
// Hz. Constants; any thread.
#pragma once

#include <array>
#include <cstdint>

#include "controls/panel_controls.h"

namespace tandem {

struct Band {
  std::int16_t low;   // Hz
  std::int16_t high;  // Hz
};

inline constexpr std::array<Band, kBands> kBandTable{{{0, 32},
                                                      {32, 64},
                                                      {64, 130},
                                                      {130, 260},
                                                      {260, 470},
                                                      {470, 540},
                                                      {540, 630},
                                                      {630, 1200},
                                                      {1200, 2500},
                                                      {2500, 4000},
                                                      {4000, 5400},
                                                      {5400, 6300},
                                                      {6300, 8300},
                                                      {8300, 12000},
                                                      {12000, 20000}}};

}  // namespace tandem
