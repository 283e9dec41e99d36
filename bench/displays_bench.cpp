// What the displays cost, and how alive the spectrum is with music.
// Usage: displays_bench [pictures, default 20000]: microseconds of CPU for one picture at 60 pictures a second.
//        displays_bench SONG [first second]: the spectrum over a minute of a WAV file of 16 bits, stereo, 44.1 kHz, in
//        the state in which the program starts for the first time, and in that of the board's "Default";
//        bench/spectrum_music makes such files of several kinds of music.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <span>
#include <string>
#include <vector>

#include "displays/meters/level_bar.h"
#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "displays/spectrum/spectrum_analyser.h"

namespace {

using namespace tandem;
using enum SpectrumSetting;

constexpr std::size_t kPerPicture = 735;
constexpr double kPicture = 1.0 / 60.0;

double cpu_microseconds() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

// Noise whose loudness changes, so that bars, marks and needles are always on the move.
std::vector<SoundFrame> restless_sound() {
  std::vector<SoundFrame> sound(kPerPicture * 64);
  std::mt19937 random(1);
  std::uniform_real_distribution<float> noise(-1.0F, 1.0F);
  for (std::size_t i = 0; i < sound.size(); ++i) {
    const float loudness = i / (kPerPicture * 8) % 2 == 0 ? 0.8F : 0.05F;
    sound[i] = {loudness * noise(random), loudness * noise(random)};
  }
  return sound;
}

[[gnu::noinline]] double measured_pictures(SoundDisplay& display, std::span<const SoundFrame> sound, int pictures) {
  const std::size_t lots = sound.size() / kPerPicture;
  const double before = cpu_microseconds();
  for (int i = 0; i < pictures; ++i) {
    display.feed(sound.subspan(static_cast<std::size_t>(i) % lots * kPerPicture, kPerPicture));
    display.advance(kPicture);
  }
  return (cpu_microseconds() - before) / pictures;
}

template <class Display>
void report(const char* name, Display& display, std::span<const SoundFrame> sound, int pictures) {
  const double cost = measured_pictures(display, sound, pictures);
  std::printf("%-28s %8.2f us  %6.3f %% of a core at 60 a second\n", name, cost, cost * 60.0 * 1e-4);
}

void spectrum(std::int32_t length, std::int32_t kind, std::span<const SoundFrame> sound, int pictures) {
  SpectrumAnalyser analyser;
  analyser.put_Enabled(true);
  analyser.put(FFTLength, length);
  analyser.put(Kind, kind);
  analyser.put(DrawPeaks, 1);
  analyser.put(PeakCount, 5);
  char name[64];
  std::snprintf(name, sizeof name, "spectrum %4d, %s", length, kind == 5 ? "roll" : "bars, 5 marks");
  report(name, analyser, sound, pictures);
}

int costs(int pictures) {
  const std::vector<SoundFrame> sound = restless_sound();
  const std::vector<SoundFrame> silence(kPerPicture * 4);
  for (const std::int32_t kind : {3, 5})
    for (const std::int32_t length : {8, 64, 4096}) spectrum(length, kind, sound, pictures);
  std::printf("in silence:\n");
  spectrum(64, 3, silence, pictures);
  NeedleMeter needle(0);
  LevelBar bar;
  Oscilloscope scope;
  needle.put_Enabled(true);
  bar.put_Enabled(true);
  scope.put_Enabled(true);
  report("needle meter", needle, sound, pictures);
  report("level bar", bar, sound, pictures);
  report("oscilloscope", scope, sound, pictures);
  return 0;
}

// The samples of a WAV file from a second on, a minute at most; empty if it cannot be read.
std::vector<SoundFrame> minute_of(const char* path, double second) {
  std::FILE* file = std::fopen(path, "rb");
  if (file == nullptr) return {};
  constexpr long kHeader = 44;
  std::fseek(file, kHeader + static_cast<long>(second * kHeardRate) * 4, SEEK_SET);
  std::vector<std::array<std::int16_t, 2>> samples(static_cast<std::size_t>(60.0 * kHeardRate));
  samples.resize(std::fread(samples.data(), sizeof samples[0], samples.size(), file));
  std::fclose(file);
  std::vector<SoundFrame> sound;
  for (const auto& [left, right] : samples)
    sound.push_back({static_cast<float>(left) / 32768.0F, static_cast<float>(right) / 32768.0F});
  return sound;
}

struct BoardState {
  const char* name;
  std::vector<std::pair<SpectrumSetting, int>> settings;
};

// At the first start the board's scales have not reached the analyser yet: it has its own 40.
const std::array<BoardState, 3> kStates{{
    {"first start",
     {{Window, 1}, {Gain, 1}, {LogAmp, 0}, {SolidBars, 1}, {DrawInactive, 0}, {ReferenceFrequency, 500}, {Decay, 7}}},
    {"the same, Y 20",
     {{Window, 1},
      {Gain, 1},
      {LogAmp, 0},
      {SolidBars, 1},
      {DrawInactive, 0},
      {ReferenceFrequency, 500},
      {Decay, 7},
      {VerticalScale, 20}}},
    {"Default", {{Window, 1}, {Gain, 1}}},
}};

struct Movement {
  double mean = 0.0;       // height of all columns, of both sides
  double weakest = 1.0;    // deviation of the column that moves least between 50 Hz and 14 kHz, of those with sound
  double median = 0.0;     // of these deviations
  double at_top = 0.0;     // share of readings
  int silent_columns = 0;  // between 50 Hz and 14 kHz
  bool rests = false;      // all of it at silence
};

constexpr double kTopHeight = 0.98;   // within a row of the top
constexpr double kSoundHeight = 0.1;  // mean height of a column in which the piece has sound

class MovementMeter {
 public:
  explicit MovementMeter(std::size_t columns) : sums_(columns), squares_(columns), tops_(columns) {}

  void add(const std::vector<float>& heights) {
    ++pictures_;
    for (std::size_t i = 0; i < heights.size(); ++i) {
      const auto height = static_cast<double>(heights[i]);
      sums_[i] += height;
      squares_[i] += height * height;
      tops_[i] += height >= kTopHeight ? 1.0 : 0.0;
    }
  }

  Movement result(const FrequencyAxis& axis) const {
    Movement movement;
    std::vector<double> deviations;
    const auto count = static_cast<double>(sums_.size());
    for (std::size_t i = 0; i < sums_.size(); ++i) {
      const double mean = sums_[i] / pictures_;
      movement.mean += mean / count;
      movement.at_top += tops_[i] / pictures_ / count;
      const double hz = axis.hz((static_cast<double>(i) + 0.5) / count);
      if (hz < 50.0 || hz > 14000.0) continue;
      if (mean < kSoundHeight) {
        ++movement.silent_columns;
      } else {
        deviations.push_back(std::sqrt(std::max(0.0, squares_[i] / pictures_ - mean * mean)));
      }
    }
    std::sort(deviations.begin(), deviations.end());
    if (deviations.empty()) return movement;
    movement.weakest = deviations.front();
    movement.median = deviations[deviations.size() / 2];
    return movement;
  }

 private:
  std::vector<double> sums_;
  std::vector<double> squares_;
  std::vector<double> tops_;
  double pictures_ = 0.0;
};

Movement movement_of(const BoardState& state, std::span<const SoundFrame> sound) {
  SpectrumAnalyser analyser;
  analyser.put_Enabled(true);
  for (const auto& [setting, value] : state.settings) analyser.put(setting, value);
  MovementMeter meter(analyser.picture().heights[0].size());
  for (std::size_t at = 0; at + kPerPicture <= sound.size(); at += kPerPicture) {
    analyser.feed(sound.subspan(at, kPerPicture));
    analyser.advance(kPicture);
    meter.add(analyser.picture().heights[0]);
  }
  Movement movement = meter.result(analyser.picture().axis);
  for (int i = 0; i < 240; ++i) analyser.advance(kPicture);
  movement.rests = analyser.at_rest();
  return movement;
}

int criteria(const char* path, double second) {
  const std::vector<SoundFrame> sound = minute_of(path, second);
  if (sound.size() < kPerPicture) {
    std::fprintf(stderr, "%s: no WAV file of 16 bits, stereo, 44.1 kHz\n", path);
    return 1;
  }
  std::printf("%-15s %10s %22s %14s %8s %8s\n", "", "mean", "weakest / median move", "without sound", "at top",
              "silence");
  for (const BoardState& state : kStates) {
    const Movement movement = movement_of(state, sound);
    std::printf("%-15s %8.1f %% %12.1f / %5.1f %% %14d %6.2f %% %8s\n", state.name, 100.0 * movement.mean,
                100.0 * movement.weakest, 100.0 * movement.median, movement.silent_columns, 100.0 * movement.at_top,
                movement.rests ? "rests" : "MOVES");
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strspn(argv[1], "0123456789") != std::strlen(argv[1]))
    return criteria(argv[1], argc > 2 ? std::atof(argv[2]) : 0.0);
  return costs(std::max(100, argc > 1 ? std::atoi(argv[1]) : 20000));
}
