#include "tools/pictures/synthetic_music.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstddef>
#include <numbers>
#include <random>
#include <utility>

namespace tandem {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

// Of finite numbers: operator* looks for others, at three times the cost.
std::complex<double> product(const std::complex<double>& a, const std::complex<double>& b) {
  return {a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real()};
}

class Piece {
 public:
  explicit Piece(double seconds) : frames_(static_cast<std::size_t>(seconds * kHeardRate)) {}

  // Adds what `sample_at` gives for the seconds since `begin`; pan 0 is left, 1 right.
  template <class Sample>
  void add(double begin, double seconds, double pan, Sample sample_at) {
    const auto first = static_cast<std::size_t>(begin * kHeardRate);
    const auto count = static_cast<std::size_t>(seconds * kHeardRate);
    for (std::size_t i = 0; i < count && first + i < frames_.size(); ++i) {
      const double sample = sample_at(static_cast<double>(i) / kHeardRate);
      frames_[first + i].left += static_cast<float>((1.0 - pan) * sample);
      frames_[first + i].right += static_cast<float>(pan * sample);
    }
  }

  // A note of many harmonics, the higher ones weaker and sooner gone.
  void note(double begin, double hz, double loudness, double decay, double pan) {
    const int harmonics = std::min(24, static_cast<int>(16000.0 / hz));
    for (int k = 1; k <= harmonics; ++k) {
      const std::complex<double> turn =
          std::polar(std::exp(-(1.0 + 0.1 * k) / decay / kHeardRate), kTurn * k * hz / kHeardRate);
      std::complex<double> now(loudness / k, 0.0);
      add(begin, 4.0 * decay, pan, [&](double) { return (now = product(now, turn)).imag(); });
    }
  }

  // At half of full scale at most.
  std::vector<SoundFrame> mixed() {
    float peak = 0.0F;
    for (const SoundFrame& frame : frames_) peak = std::max({peak, std::abs(frame.left), std::abs(frame.right)});
    for (SoundFrame& frame : frames_) frame = {0.5F * frame.left / peak, 0.5F * frame.right / peak};
    return std::move(frames_);
  }

 private:
  std::vector<SoundFrame> frames_;
};

class Noise {
 public:
  double white() { return static_cast<double>(random_()) / 2147483648.0 - 1.0; }
  double high() {  // rises with the frequency
    const double now = white();
    return now - std::exchange(last_, now);
  }
  double pink() {  // nearly as much in every octave
    double sum = 0.0;
    for (std::size_t i = 0; i < kPoles.size(); ++i) {
      low_[i] += kPoles[i] * (white() - low_[i]);
      sum += low_[i] / std::sqrt(kPoles[i]);
    }
    return sum;
  }
  std::uint32_t any() { return static_cast<std::uint32_t>(random_()); }

 private:
  static constexpr std::array kPoles{0.004, 0.016, 0.064, 0.25, 0.9};
  std::mt19937 random_{1};
  std::array<double, kPoles.size()> low_{};
  double last_ = 0.0;
};

constexpr std::array kScale{261.6, 293.7, 329.6, 392.0, 440.0, 523.3, 587.3};

void add_drums(Piece& piece, Noise& noise, double beat, bool second) {
  piece.add(beat, 0.5, 0.5, [](double t) {
    return std::exp(-t / 0.1) * std::sin(kTurn * (50.0 * t + 3.0 * (1.0 - std::exp(-t / 0.03))));
  });
  if (second) piece.add(beat, 0.4, 0.5, [&noise](double t) { return 0.6 * std::exp(-t / 0.08) * noise.white(); });
  for (const double half : {0.0, 0.25}) {
    const double loudness = half > 0.0 ? 0.15 : 0.4;
    piece.add(beat + half, 0.2, 0.4, [&](double t) { return loudness * std::exp(-t / 0.04) * noise.high(); });
  }
}

}  // namespace

std::vector<SoundFrame> band_music(double seconds) {
  Piece piece(seconds);
  Noise noise;
  for (int beat = 0; beat * 0.5 < seconds; ++beat) {
    const double at = 0.5 * beat;
    add_drums(piece, noise, at, beat % 2 == 1);
    piece.note(at, kScale[noise.any() % 5] / 4.0, 0.7, 0.25, 0.5);
    const double root = kScale[static_cast<std::size_t>(beat / 4) % 4] / 2.0;
    for (const double third : {1.0, 1.26, 1.5})
      if (beat % 4 == 0) piece.note(at, root * third, 0.2, 0.8, 0.4);
    for (const double half : {0.0, 0.25})
      piece.note(at + half, 2.0 * kScale[noise.any() % kScale.size()], 0.25, 0.2, 0.6);
  }
  return piece.mixed();
}

std::vector<SoundFrame> dense_music(double seconds) {
  Piece piece(seconds);
  Noise noise;
  piece.add(0.0, seconds, 0.5,
            [&noise](double t) { return (0.5 + 1.2 * std::exp(-std::fmod(t, 0.5) / 0.15)) * noise.pink(); });
  for (int beat = 0; beat * 0.5 < seconds; ++beat)
    piece.note(0.5 * beat, kScale[noise.any() % kScale.size()] / 2.0, 0.5, 0.4, 0.5);
  return piece.mixed();
}

std::vector<SoundFrame> spoken_words(double seconds) {
  Piece piece(seconds);
  Noise noise;
  double at = 0.1;
  while (at < seconds) {
    const double length = 0.12 + 0.1 * (noise.any() % 100) / 100.0;
    const double pitch = 100.0 + 40.0 * (noise.any() % 100) / 100.0;
    const double open = 500.0 + 600.0 * (noise.any() % 100) / 100.0;
    const double bright = 1200.0 + 1600.0 * (noise.any() % 100) / 100.0;
    const auto formant = [](double hz, double centre, double width) {
      return 1.0 / (1.0 + (hz - centre) * (hz - centre) / (width * width));
    };
    for (int k = 1; k * pitch < 5000.0; ++k) {
      const double hz = k * pitch;
      const double loudness = 0.1 / k + formant(hz, open, 120.0) + 0.5 * formant(hz, bright, 200.0);
      piece.add(at, length, 0.5, [&](double t) {
        return loudness * std::sin(kTurn * hz * t) * std::sin(std::numbers::pi * t / length);
      });
    }
    piece.add(at + length, 0.08, 0.5, [&noise](double) { return 0.4 * noise.high(); });
    at += length + 0.1 + (noise.any() % 8 == 0 ? 0.5 : 0.0);
  }
  return piece.mixed();
}

}  // namespace tandem
