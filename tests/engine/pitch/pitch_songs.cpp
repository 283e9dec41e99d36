#include "engine/pitch/pitch_songs.h"

#include <array>
#include <cmath>
#include <numbers>
#include <random>

namespace tandem {
namespace {

constexpr double kSongSeconds = 6.5;
constexpr double kLastAttack = 6.0;

std::size_t frame_at(double seconds) { return static_cast<std::size_t>(seconds * kSampleRate); }

void add(StereoFrame& frame, double left, double right) {
  frame.left += static_cast<float>(left);
  frame.right += static_cast<float>(right);
}

// pan: -1 left .. 1 right.
void add_tone(std::vector<StereoFrame>& sound, double hz, double level, double pan, double phase) {
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double value = level * std::sin(kTurn * hz / kSampleRate * static_cast<double>(i) + phase);
    add(sound[i], value * (1.0 - pan), value * (1.0 + pan));
  }
}

class Noise {
 public:
  explicit Noise(unsigned seed) : random_(seed) {}
  double next() { return value_(random_); }

 private:
  std::mt19937 random_;
  std::uniform_real_distribution<double> value_{-1.0, 1.0};
};

// Noise that rises by 12 dB an octave and falls by 60 dB in 110 ms.
void add_hat(std::vector<StereoFrame>& sound, std::size_t from, Noise& noise) {
  double last = 0.0;
  double last_but_one = 0.0;
  for (std::size_t i = 0; i < 2646; ++i) {
    const double now = noise.next();
    const double value = 0.06 * (now - 2.0 * last + last_but_one) * std::exp(-static_cast<double>(i) / 700.0);
    last_but_one = last;
    last = now;
    add(sound[from + i], value, 0.8 * value);
  }
}

double bass_drum(double t, double noise) {
  const double turns = 50.0 * t + 6.0 * (1.0 - std::exp(-t * 40.0));
  return 0.5 * std::sin(kTurn * turns) * std::exp(-t * 12.0) + 0.1 * noise * std::exp(-t * 400.0);
}

double snare(double t, double noise) {
  return 0.3 * noise * std::exp(-t * 30.0) + 0.2 * std::sin(kTurn * 190.0 * t) * std::exp(-t * 25.0);
}

}  // namespace

std::vector<StereoFrame> one_tone(double hz, double seconds) {
  std::vector<StereoFrame> sound(frame_at(seconds));
  add_tone(sound, hz, 0.5, 0.0, 0.3);
  return sound;
}

std::vector<double> chord_partials() {
  std::vector<double> partials;
  for (const double root : {220.0, 277.18, 329.63, 440.7}) {
    for (int i = 1; i <= 4; ++i) partials.push_back(root * i);
  }
  return partials;
}

std::vector<StereoFrame> chord(double seconds) {
  constexpr std::array<double, 4> kPans{-0.4, 0.3, 0.0, 0.5};
  std::vector<StereoFrame> sound(frame_at(seconds));
  const std::vector<double> partials = chord_partials();
  for (std::size_t i = 0; i < partials.size(); ++i) {
    add_tone(sound, partials[i], 0.1 / static_cast<double>(i % 4 + 1), kPans[i / 4], static_cast<double>(i * i));
  }
  return sound;
}

AttackSong impulses(float level) {
  AttackSong song{std::vector<StereoFrame>(frame_at(kSongSeconds)), {}};
  for (int i = 0; i < 30; ++i) {
    song.times.push_back(0.5 + 0.19137 * i);
    song.sound[frame_at(song.times.back())] = {level, level};
  }
  return song;
}

AttackSong impulses_in_chord(float level) {
  AttackSong song = impulses(level);
  const std::vector<StereoFrame> notes = chord(kSongSeconds);
  for (std::size_t i = 0; i < notes.size(); ++i)
    add(song.sound[i], static_cast<double>(notes[i].left), static_cast<double>(notes[i].right));
  return song;
}

AttackSong hats_in_music() {
  AttackSong song{chord(kSongSeconds), {}};
  Noise noise(3);
  for (std::size_t i = 0; i < song.sound.size(); ++i) {
    const double t = static_cast<double>(i) / kSampleRate;
    const double hz = 55.0 * std::exp2(std::floor(std::fmod(t, 2.0) * 2.0) / 12.0);
    const double bass = 0.2 * std::sin(kTurn * hz * t);
    add(song.sound[i], bass + 0.005 * noise.next(), bass + 0.005 * noise.next());
  }
  for (double t = 0.5; t < kLastAttack; t += 0.125) {
    song.times.push_back(t);
    add_hat(song.sound, frame_at(t), noise);
  }
  return song;
}

AttackSong drums_in_music() {
  AttackSong song{chord(kSongSeconds), {}};
  Noise noise(5);
  for (double start = 0.5; start < kLastAttack; start += 0.25) {
    const bool bass = song.times.size() % 2 == 0;
    song.times.push_back(start);
    for (std::size_t i = 0; i < 8820; ++i) {
      const double t = static_cast<double>(i) / kSampleRate;
      const double value = bass ? bass_drum(t, noise.next()) : snare(t, noise.next());
      add(song.sound[frame_at(start) + i], value, value);
    }
  }
  return song;
}

}  // namespace tandem
