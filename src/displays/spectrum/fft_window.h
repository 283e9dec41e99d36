// The windows that the analyser can lay over a piece of sound, by the captions of the board's switch.
// Source: F. J. Harris, "On the use of windows for harmonic analysis with the discrete Fourier transform", 1978.
// Any thread, no state.
#pragma once

#include <span>

namespace tandem {

enum class FftWindow {
  Rectang,
  Hamming,    // 0.54 + 0.46 cos
  Hanning,    // 0.5 + 0.5 cos
  Blackman,   // 0.42 + 0.5 cos + 0.08 cos 2
  Gaussiano,  // a bell of standard deviation 0.4 of the half length
  Welch,      // a parabola
  Parzen,     // four cubic pieces
};

// The window's shape: x from -1 to 1, greatest (1) at 0.
double window_shape(FftWindow window, double x) noexcept;

// One period of the window, so that a sine of a whole number of periods falls into as few bins as possible.
void fill_window(FftWindow window, std::span<float> points) noexcept;

}  // namespace tandem
