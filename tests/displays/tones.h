// Sounds and simulated screens for the displays' tests.
#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <functional>
#include <numbers>
#include <span>
#include <vector>

#include "displays/core/sound_display.h"
#include "displays/core/sound_frame.h"
#include "displays/spectrum/fft_window.h"

namespace tandem {

inline constexpr std::array kWindows{FftWindow::Rectang,   FftWindow::Hamming, FftWindow::Hanning, FftWindow::Blackman,
                                     FftWindow::Gaussiano, FftWindow::Welch,   FftWindow::Parzen};

using Sound = std::vector<SoundFrame>;

// The same on both sides.
inline Sound both(std::size_t frames, const std::function<double(double)>& sample_at_second) {
  Sound sound(frames);
  for (std::size_t i = 0; i < frames; ++i) {
    const auto x = static_cast<float>(sample_at_second(static_cast<double>(i) / kHeardRate));
    sound[i] = {x, x};
  }
  return sound;
}

inline Sound sine(std::size_t frames, double hz, double amplitude = 1.0, double phase = 0.0) {
  return both(frames, [=](double t) { return amplitude * std::sin(2.0 * std::numbers::pi * hz * t + phase); });
}

inline double amplitude_of(double db) { return std::pow(10.0, db / 20.0); }

// A screen that shows pictures while a sound is heard.
class Screen {
 public:
  Screen(SoundDisplay& display, std::span<const SoundFrame> sound) : display_(display), sound_(sound) {}

  // One picture after `seconds`, with the frames heard in that time; whether anything changed.
  bool picture(double seconds) {
    now_ += seconds;
    const auto end = std::min(sound_.size(), static_cast<std::size_t>(now_ * kHeardRate + 0.5));
    display_.feed(sound_.subspan(heard_, end - heard_));
    heard_ = end;
    return display_.advance(seconds);
  }

  // Pictures at a steady rate until `until` seconds.
  void run(double until, double rate = 60.0) {
    while (now_ < until - 1e-9) picture(std::min(1.0 / rate, until - now_));
  }

  double now() const { return now_; }

 private:
  SoundDisplay& display_;
  std::span<const SoundFrame> sound_;
  std::size_t heard_ = 0;
  double now_ = 0.0;
};

inline std::size_t frames_in(double seconds) { return static_cast<std::size_t>(seconds * kHeardRate + 0.5); }

}  // namespace tandem
