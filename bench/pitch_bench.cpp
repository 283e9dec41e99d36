// What the pitch of a deck costs: ms of CPU for one second of sound, and the burst when it takes over from value 0.
// For comparison, in the same run, the pitch shift of SoundTouch at its usual and at its best settings for music.
// Usage: pitch_bench [seconds of sound, default 60]
#include <SoundTouch.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <numbers>
#include <random>
#include <span>
#include <vector>

#include "engine/pitch/pitch_stage.h"

namespace {

using namespace tandem;
using Sound = std::vector<StereoFrame>;

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

  void start(float value) { stage_.clear(value, value == 0.0F ? nullptr : make_pitch_engine().release()); }
  void change(float value) {
    stage_.change(value, make_pitch_engine().release());
    while (PitchShifter* engine = stage_.take_retired()) delete engine;
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

// The dearest step of those that start an engine: from value 0 and after a seek.
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

}  // namespace

int main(int argc, char** argv) {
  const int seconds = std::max(1, argc > 1 ? std::atoi(argv[1]) : 60);
  const Sound sound = music(frames_of(20000));
  const double before = cpu_milliseconds();
  make_pitch_engine();
  const double first = cpu_milliseconds();
  make_pitch_engine();
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
