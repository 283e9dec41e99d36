// How alive the spectrum is with a piece of music, in the states in which a user first sees it.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "displays/core/sound_frame.h"

namespace tandem {

// Shares of the full height, over the whole piece and both sides.
struct SpectrumMovement {
  // What is asked of every kind of music in every state.
  static constexpr double kLeastMean = 0.25;
  static constexpr double kGreatestMean = 0.6;
  static constexpr double kLeastMove = 0.08;
  static constexpr double kMostAtTop = 0.03;

  const char* state = "";
  double mean = 0.0;     // height of all columns
  double at_top = 0.0;   // share of the readings within a row of the top
  double weakest = 1.0;  // standard deviation of the column with sound, between 50 Hz and 14 kHz, that moves least
  double weakest_hz = 0.0;
  double median = 0.0;      // of these deviations
  std::size_t columns = 0;  // that many have sound: within 25 dB of the loudest one, with the tilt
  bool rests = false;       // all of it after the sound has become silence

  bool alive() const;
};

// At 60 pictures a second, in the state of the first start, the same after Y Scale was moved to 20, and "Default".
std::vector<SpectrumMovement> spectrum_movement(std::span<const SoundFrame> sound);

}  // namespace tandem
