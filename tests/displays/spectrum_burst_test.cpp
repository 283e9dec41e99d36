// What a short burst makes of the bars, at every length of the transform and every rate of pictures.
#include <gtest/gtest.h>

#include <algorithm>

#include "displays/spectrum/spectrum_analyser.h"
#include "displays/tones.h"

namespace tandem {
namespace {

// The greatest height of any bar, of which 1 is the whole glass, while a burst of 1 ms at -6 dBFS passes.
double burst_height(int length, double pictures, std::size_t begin) {
  SpectrumAnalyser analyser;
  analyser.put_Enabled(true);
  analyser.put(SpectrumSetting::FFTLength, length);
  Sound sound(frames_in(0.2));
  const Sound burst = sine(frames_in(0.001), 5000.0, amplitude_of(-6.0));
  std::copy(burst.begin(), burst.end(), sound.begin() + static_cast<std::ptrdiff_t>(begin));
  Screen screen(analyser, sound);
  double greatest = 0.0;
  while (screen.now() < 0.19) {
    screen.picture(1.0 / pictures);
    const auto& heights = analyser.picture().heights[0];
    greatest = std::max(greatest, double{*std::max_element(heights.begin(), heights.end())});
  }
  return greatest;
}

TEST(SpectrumBurst, OfAMillisecondIsShownWhereverItFalls) {
  for (const int length : {4, 64, 4096})
    for (const double pictures : {30.0, 60.0})
      for (std::size_t begin = 2000; begin < 4000; begin += 97)
        EXPECT_GT(burst_height(length, pictures, begin), 0.6) << length << " " << pictures << " " << begin;
}

}  // namespace
}  // namespace tandem
