#include "support/signal.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <complex>
#include <numbers>
#include <vector>

#include "engine/equalizer/real_fft.h"

namespace tandem::test {
namespace {

constexpr double kTurn = 2 * std::numbers::pi;

double energy(std::span<const StereoFrame> sound) {
  double sum = 0;
  for (const auto& frame : sound) sum += double{frame.left} * frame.left + double{frame.right} * frame.right;
  return sum;
}

double mono(const StereoFrame& frame) { return double{frame.left} + double{frame.right}; }

template <typename Voice>
Signal make(double seconds, int rate, int channels, Voice voice) {
  Signal signal{rate, channels, {}};
  const auto frames = static_cast<Frames>(std::llround(seconds * rate));
  signal.samples.reserve(static_cast<std::size_t>(frames * channels));
  for (Frames frame = 0; frame < frames; ++frame) {
    const double time = static_cast<double>(frame) / rate;
    for (int channel = 0; channel < channels; ++channel) signal.samples.push_back(voice(time, channel));
  }
  return signal;
}

// Mono; 0 outside the sound.
float mono_at(std::span<const StereoFrame> sound, Frames at) {
  return at < 0 || at >= static_cast<Frames>(sound.size())
             ? 0.0F
             : static_cast<float>(mono(sound[static_cast<std::size_t>(at)]));
}

double correlation(std::span<const StereoFrame> reference, std::span<const StereoFrame> later, Frames from,
                   Frames frames, Frames shift) {
  double sum = 0;
  for (Frames at = from; at < from + frames; ++at)
    sum += double{mono_at(reference, at)} * double{mono_at(later, at + shift)};
  return sum;
}

// Of the shifts -reach to reach, by the product of the spectra.
std::vector<float> correlations(std::span<const StereoFrame> reference, std::span<const StereoFrame> later, Frames from,
                                Frames frames, Frames reach) {
  const RealFft fft(std::bit_ceil(static_cast<std::size_t>(2 * frames + 2 * reach)));
  std::vector<float> piece(fft.points());
  std::vector<float> about(fft.points());
  for (Frames at = 0; at < frames; ++at) piece[static_cast<std::size_t>(at)] = mono_at(reference, from + at);
  for (Frames at = 0; at < frames + 2 * reach; ++at)
    about[static_cast<std::size_t>(at)] = mono_at(later, from - reach + at);
  std::vector<RealFft::Complex> product(fft.bins());
  std::vector<RealFft::Complex> other(fft.bins());
  fft.forward(about, product);
  fft.forward(piece, other);
  for (std::size_t bin = 0; bin < product.size(); ++bin) product[bin] *= std::conj(other[bin]);
  fft.back(product, about);
  about.resize(static_cast<std::size_t>(2 * reach + 1));
  return about;
}

}  // namespace

Signal music(double seconds, int rate, int channels) {
  return make(seconds, rate, channels, [](double time, int channel) {
    const double low = std::sin(kTurn * (110.0 + 37.0 * channel) * time);
    const double glide = std::sin(kTurn * (300.0 * time + 150.0 * time * time / (1.0 + 0.1 * time)) + channel);
    const double high = std::sin(kTurn * 2500.0 * time + 8.0 * std::sin(kTurn * 0.7 * time + 2.0 * channel));
    const double beat = std::exp(-6.0 * std::fmod(time * 2.3, 1.0));
    return 0.2 * low + 0.2 * glide + 0.25 * beat * high;
  });
}

Signal tones(double seconds, double hertz, double amplitude, int rate, int channels) {
  return make(seconds, rate, channels,
              [=](double time, int channel) { return amplitude * std::sin(kTurn * hertz * (channel + 1) * time); });
}

Sound to_stereo(const Signal& signal) {
  Sound sound;
  const auto channels = static_cast<std::size_t>(signal.channels);
  for (std::size_t at = 0; at < signal.samples.size(); at += channels) {
    const auto left = static_cast<float>(signal.samples[at]);
    sound.push_back({left, channels == 1 ? left : static_cast<float>(signal.samples[at + 1])});
  }
  return sound;
}

// Of all shifts by a transform, of those about the best once more in double precision.
Frames lag(std::span<const StereoFrame> reference, std::span<const StereoFrame> later, Frames from, Frames frames,
           Frames reach) {
  constexpr Frames kUnsure = 8;
  const std::vector<float> all = correlations(reference, later, from, frames, reach);
  const Frames about = std::max_element(all.begin(), all.end()) - all.begin() - reach;
  double best = -1.0;
  Frames best_lag = -reach;
  for (Frames shift = std::max(about - kUnsure, -reach); shift <= std::min(about + kUnsure, reach); ++shift) {
    const double sum = correlation(reference, later, from, frames, shift);
    if (sum > best) {
      best = sum;
      best_lag = shift;
    }
  }
  return best_lag;
}

double snr_db(std::span<const StereoFrame> reference, std::span<const StereoFrame> sound) {
  const std::size_t count = std::min(reference.size(), sound.size());
  Sound difference(count);
  for (std::size_t i = 0; i < count; ++i) {
    difference[i] = {reference[i].left - sound[i].left, reference[i].right - sound[i].right};
  }
  const double noise = energy(difference);
  return noise == 0.0 ? 300.0 : 10.0 * std::log10(energy(reference.first(count)) / noise);
}

float greatest_difference(std::span<const StereoFrame> a, std::span<const StereoFrame> b) {
  float greatest = 0.0F;
  for (std::size_t i = 0; i < std::min(a.size(), b.size()); ++i) {
    greatest = std::max({greatest, std::abs(a[i].left - b[i].left), std::abs(a[i].right - b[i].right)});
  }
  return greatest;
}

double rms(std::span<const StereoFrame> sound) {
  return sound.empty() ? 0.0 : std::sqrt(energy(sound) / (2.0 * static_cast<double>(sound.size())));
}

double tone_amplitude(std::span<const StereoFrame> sound, int channel, double hertz) {
  double in_phase = 0;
  double quadrature = 0;
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double angle = kTurn * hertz * static_cast<double>(i) / kSampleRate;
    const double sample = channel == 0 ? double{sound[i].left} : double{sound[i].right};
    in_phase += sample * std::cos(angle);
    quadrature += sample * std::sin(angle);
  }
  return 2.0 * std::hypot(in_phase, quadrature) / static_cast<double>(sound.size());
}

}  // namespace tandem::test
