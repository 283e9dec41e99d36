// What the pitch of a deck costs: ms of CPU for one second of sound, and the burst when it takes over from value 0.
// For comparison, in the same run, the pitch shift of SoundTouch at its usual and at its best settings for music.
// Usage: pitch_bench [seconds of sound, default 60]
//        pitch_bench --sound    how it sounds instead: tones, a chord, attacks, images, noise, at every few values
#include <SoundTouch.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <numbers>
#include <random>
#include <span>
#include <vector>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_measures.h"
#include "engine/pitch/pitch_signals.h"
#include "engine/pitch/pitch_songs.h"

namespace {

using namespace tandem;

double cpu_milliseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) * 1e-6;
}

// Chords, a beat of noise twice a second, different in the two channels.
Sound music(Frames frames) {
  Sound sound(static_cast<std::size_t>(frames));
  std::mt19937 random(1);
  std::uniform_real_distribution<float> noise(-0.3F, 0.3F);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const double t = static_cast<double>(i) / kSampleRate;
    const double root = 110.0 * std::exp2(std::floor(std::fmod(t, 4.0)) * 3.0 / 12.0);
    const auto tone = [&](double f) { return static_cast<float>(0.15 * std::sin(2.0 * std::numbers::pi * f * t)); };
    const float beat = noise(random) * static_cast<float>(std::exp(-20.0 * std::fmod(t, 0.5)));
    sound[i] = {tone(root) + tone(root * 1.5) + beat, tone(root * 1.26) + tone(root * 4.0) + beat};
  }
  return sound;
}

// The stage with its ring, refilled as it empties; only process() is timed.
class Deck {
 public:
  explicit Deck(const Sound& sound) : sound_(sound) { ring_->write(next()); }

  void start(float value) { stage_.clear(value, value == 0.0F ? nullptr : new PitchShifter); }
  void change(float value) {
    stage_.change(value, new PitchShifter);
    while (PitchShifter* shifter = stage_.take_retired()) delete shifter;
  }

  // ms of CPU for one step.
  double step() {
    if (ring_->readable() < 44100) ring_->write(next());
    const double before = cpu_milliseconds();
    stage_.process(*ring_, PitchStage::kEndUnknown, block_);
    return cpu_milliseconds() - before;
  }

 private:
  std::span<const StereoFrame> next() {
    at_ = at_ + kSampleRate > sound_.size() ? 0 : at_;
    at_ += kSampleRate;
    return std::span(sound_).subspan(at_ - kSampleRate, kSampleRate);
  }

  const Sound& sound_;
  std::size_t at_ = 0;
  std::unique_ptr<DeckRing> ring_ = std::make_unique<DeckRing>();
  PitchStage stage_;
  Sound block_ = Sound(kStepFrames);
};

constexpr int kStepsASecond = kSampleRate / kStepFrames;

double at_rest(const Sound& sound, float value, int seconds) {
  Deck deck(sound);
  deck.start(value);
  double cost = 0.0;
  for (int i = 0; i < seconds * kStepsASecond; ++i) cost += deck.step();
  return cost / seconds;
}

// A move in every step, through 0 and back, -4 to +4 semitones in two seconds.
double dragging(const Sound& sound, int seconds) {
  Deck deck(sound);
  deck.start(0.0F);
  double cost = 0.0;
  for (int i = 0; i < seconds * kStepsASecond; ++i) {
    deck.change(std::round(20.0F * std::sin(static_cast<float>(i) * 2.0F * std::numbers::pi_v<float> / 400.0F)));
    cost += deck.step();
  }
  return cost / seconds;
}

// The dearest step of those that start a pitch shifter: from value 0 and after a seek.
void bursts(const Sound& sound) {
  double from_dry = 0.0;
  double from_seek = 0.0;
  double least = 1e9;
  for (int round = 0; round < 20; ++round) {
    Deck deck(sound);
    deck.start(0.0F);
    for (int i = 0; i < 20; ++i) deck.step();
    deck.change(10.0F);
    double dearest = 0.0;
    for (int i = 0; i < 10; ++i) dearest = std::max(dearest, deck.step());
    from_dry = std::max(from_dry, dearest);
    least = std::min(least, dearest);
    deck.start(10.0F);
    from_seek = std::max(from_seek, deck.step());
  }
  std::printf("burst, from value 0       %6.3f ms (least of 20 rounds %.3f)\n", from_dry, least);
  std::printf("burst, after a seek       %6.3f ms\n", from_seek);
}

struct Settings {
  int sequence = 0;  // ms; 0: the library's own
  int seek = 0;
  int overlap = 0;
};

double other_shifter(const Sound& sound, double semitones, const Settings& settings, int seconds) {
  soundtouch::SoundTouch shifter;
  shifter.setSampleRate(kSampleRate);
  shifter.setChannels(2);
  shifter.setPitchSemiTones(semitones);
  if (settings.sequence > 0) {
    shifter.setSetting(SETTING_SEQUENCE_MS, settings.sequence);
    shifter.setSetting(SETTING_SEEKWINDOW_MS, settings.seek);
    shifter.setSetting(SETTING_OVERLAP_MS, settings.overlap);
    shifter.setSetting(SETTING_USE_QUICKSEEK, 1);
  }
  std::vector<float> block(2 * 4096);
  const double before = cpu_milliseconds();
  for (int i = 0; i < seconds * kStepsASecond; ++i) {
    const std::size_t at = (static_cast<std::size_t>(i) * kStepFrames) % (sound.size() - kStepFrames);
    shifter.putSamples(&sound[at].left, kStepFrames);
    while (shifter.receiveSamples(block.data(), 4096) > 0) {
    }
  }
  return (cpu_milliseconds() - before) / seconds;
}

constexpr std::array<int, 15> kValues{-20, -15, -10, -7, -5, -3, -1, 1, 3, 5, 7, 10, 13, 15, 20};

double ratio_of(int value) { return std::exp2(value / 60.0); }

// dB outside the tones, the worst of some.
double worst_tone(std::span<const double> frequencies, int value) {
  double worst = -200.0;
  for (const double hz : frequencies) {
    const std::vector<double> given{hz * ratio_of(value)};
    worst = std::max(worst, off_tone_db(shifted(one_tone(hz, 2.5), static_cast<float>(value)), given));
  }
  return worst;
}

void purity() {
  constexpr std::array kLow{110.5, 157.3, 220.1, 311.0, 440.7};
  constexpr std::array kHigh{1063.0, 1687.0, 2411.0, 3467.0, 5303.0, 7901.0};
  const Sound notes = chord(2.5);
  std::printf("energy off the tones, dB, the worst of some\nvalue   110-440 Hz   1-8 kHz   chord of 16 partials\n");
  for (const int value : kValues) {
    std::vector<double> partials = chord_partials();
    for (double& hz : partials) hz *= ratio_of(value);
    std::printf("%+5d  %10.1f  %8.1f  %21.1f\n", value, worst_tone(kLow, value), worst_tone(kHigh, value),
                off_tone_db(shifted(notes, static_cast<float>(value)), partials));
  }
}

void attacks(const char* name, const AttackSong& song, const AttackBand& band) {
  std::printf("%s: %zu\nvalue   lost  doubled  worst level  off in time, mean  worst\n", name, song.times.size());
  for (const int value : kValues) {
    const Sound out = shifted(song.sound, static_cast<float>(value));
    const AttackReport report = compare_attacks(song, out, ratio_of(value), band);
    std::printf("%+5d  %5d  %7d  %8.1f dB  %14.1f ms  %3.1f ms\n", value, report.lost, report.doubled,
                report.worst_loss_db, report.mean_error_ms, report.worst_error_ms);
  }
}

void images() {
  constexpr std::array kTop{20000.0, 20500.0, 21000.0, 21500.0, 21900.0};
  std::printf("images of 20 to 21.9 kHz below 20 kHz, dB, the worst\n");
  for (const int value : {-20, -15, -10}) {
    double worst = -200.0;
    for (const double hz : kTop) {
      const Sound out = shifted(one_tone(hz, 0.7), static_cast<float>(value));
      worst = std::max(worst, tone_db(out, (kSampleRate - hz) * ratio_of(value)));
    }
    std::printf("%+5d  %6.1f\n", value, worst);
  }
}

void noise_levels() {
  const Sound hiss = noise(frames_of(3000));
  std::printf("10 ms of noise against its mean level, dB\n");
  for (const int value : kValues) {
    const LevelRange range = levels_db(shifted(hiss, static_cast<float>(value)), hiss);
    std::printf("%+5d  %+5.1f to %+4.1f\n", value, range.least, range.greatest);
  }
}

int print_sound() {
  purity();
  attacks("impulses in silence", impulses(0.5F), kImpulseBand);
  attacks("impulses in a chord", impulses_in_chord(0.5F), kImpulseBand);
  attacks("hi-hats in music", hats_in_music(), kHatBand);
  attacks("drums in music", drums_in_music(), kDrumBand);
  images();
  noise_levels();
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strcmp(argv[1], "--sound") == 0) return print_sound();
  const int seconds = std::max(1, argc > 1 ? std::atoi(argv[1]) : 60);
  const Sound sound = music(frames_of(20000));
  const double before = cpu_milliseconds();
  static_cast<void>(std::make_unique<PitchShifter>());
  const double first = cpu_milliseconds();
  static_cast<void>(std::make_unique<PitchShifter>());
  std::printf("engine, first and next    %6.3f %.3f ms\n", first - before, cpu_milliseconds() - first);
  std::printf("ms of CPU for one second of sound\n");
  std::printf("bypass                    %6.3f\n", at_rest(sound, 0.0F, seconds));
  for (const float value : {10.0F, -10.0F, 20.0F, -20.0F}) {
    std::printf("%+.0f semitones at rest     %6.3f\n", static_cast<double>(value) / 5.0,
                at_rest(sound, value, seconds));
  }
  std::printf("dragging                  %6.3f\n", dragging(sound, seconds));
  for (const double semitones : {2.0, -2.0, 4.0, -4.0}) {
    std::printf("SoundTouch %+.0f, as it is   %6.3f\n", semitones, other_shifter(sound, semitones, {}, seconds));
    std::printf("SoundTouch %+.0f, 60/25/20   %6.3f\n", semitones,
                other_shifter(sound, semitones, {60, 25, 20}, seconds));
  }
  bursts(sound);
  return 0;
}
