// What the displays cost, and how alive the spectrum is with music.
// Usage: displays_bench [pictures, default 20000]: microseconds of CPU for one picture at 60 pictures a second.
//        displays_bench SONG [first second]: the spectrum over a minute of a WAV file of 16 bits, stereo, 44.1 kHz, in
//        the state in which the program starts for the first time, and in that of the board's "Default";
//        bench/spectrum_music makes such files of several kinds of music.
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <random>
#include <span>
#include <vector>

#include "bench/spectrum_movement.h"
#include "displays/enabled_display.h"
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
  auto analyser = enabled<SpectrumAnalyser>();
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
  auto needle = enabled<NeedleMeter>(0U);
  auto bar = enabled<LevelBar>();
  auto scope = enabled<Oscilloscope>();
  report("needle meter", needle, sound, pictures);
  report("level bar", bar, sound, pictures);
  report("oscilloscope", scope, sound, pictures);
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc > 1 && std::strspn(argv[1], "0123456789") != std::strlen(argv[1]))
    return tandem::print_movement(argv[1], argc > 2 ? std::atof(argv[2]) : 0.0);
  return costs(std::max(100, argc > 1 ? std::atoi(argv[1]) : 20000));
}
