// What a burst of 1 ms at -6 dBFS makes of the spectrum's bars. One thread.
#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "displays/spectrum/spectrum_analyser.h"
#include "displays/tones.h"

namespace tandem {

// The greatest height of any bar while it passes, of which 1 is the whole glass; no number if one bar has none. It
// begins at that frame, at most 0.1 s after the first picture.
inline double burst_height(int fft_length, double pictures_a_second, std::size_t begin) {
  SpectrumAnalyser analyser;
  analyser.put_Enabled(true);
  analyser.put(SpectrumSetting::FFTLength, fft_length);
  Sound sound(frames_in(0.2));
  const Sound burst = sine(frames_in(0.001), 5000.0, amplitude_of(-6.0));
  std::copy(burst.begin(), burst.end(), sound.begin() + static_cast<std::ptrdiff_t>(begin));
  Screen screen(analyser, sound);
  double greatest = 0.0;
  while (screen.now() < 0.19) {
    screen.picture(1.0 / pictures_a_second);
    for (const float height : analyser.picture().heights[0]) {
      if (std::isnan(height)) return double{height};
      greatest = std::max(greatest, double{height});
    }
  }
  return greatest;
}

}  // namespace tandem
