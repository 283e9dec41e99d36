// Quiet 24-bit sines through the player: as a device of 24 bits or more gets them, and as one of 16 bits does.
#include <array>
#include <cmath>
#include <cstdio>
#include <string>

#include "engine/device/quantizer16.h"
#include "engine/device/simulated_output.h"
#include "engine/engine.h"
#include "simulation/simulated_workers.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "support/temp_directory.h"

namespace tandem::report {

namespace {

constexpr double kHertz = 997.0;
constexpr double kSeconds = 3.0;

Sound played(const std::string& path) {
  Sound sound;
  OutputRing ring;
  SimulatedOutput output(
      ring, [&sound](std::span<const StereoFrame> frames) { sound.insert(sound.end(), frames.begin(), frames.end()); });
  SimulatedWorkers workers;
  Engine engine(output, ring, workers);
  TimerQueue timers;
  SoundGraph graph;
  engine.fill(graph, timers);
  graph.WaveMixer->put_Volume(32768);
  graph.WaveOut->start();
  graph.AudioFile[0]->put_FileName(path);
  graph.WaveMixer->put_Mute(0, false);
  for (int step = 0; step < static_cast<int>(kSeconds * 1000.0) / kStepMilliseconds; ++step) {
    workers.step();
    engine.deliver();
    output.drain();
  }
  return {sound.begin() + kSecond / 2, sound.begin() + kSecond / 2 + 2 * kSecond};
}

Sound in_16_bits(const Sound& sound) {
  std::vector<Sample16> samples(sound.size());
  Quantizer16().convert(sound, samples);
  return mono(sound.size(), [&](std::size_t n) { return samples[n].left / 32768.0; });
}

double highest_harmonic(const Sound& sound) {
  double highest = -300.0;
  for (int harmonic = 2; harmonic <= 9; ++harmonic) highest = greater(highest, level_db(sound, harmonic * kHertz));
  return highest;
}

void print(const char* name, const Sound& sound) {
  if (!sound.empty())
    std::printf("    %-34s level %7.1f   highest harmonic %7.1f dBFS\n", name, level_db(sound, kHertz),
                highest_harmonic(sound));
}

void print_ours(const char* name, const Sound& sound, double dbfs) {
  const double level = level_db(sound, kHertz);
  const double harmonic = highest_harmonic(sound);
  std::printf("    %-34s level %7.1f%s   highest harmonic %7.1f dBFS%s\n", name, level, about(dbfs, 0.1, level).c_str(),
              harmonic, at_most(-120.0, harmonic).c_str());
}

Sound middle(const Sound& sound) {
  return sound.size() < 3 * kSecond ? Sound{} : Sound(sound.begin() + kSecond / 2, sound.begin() + 5 * kSecond / 2);
}

}  // namespace

void report_depth() {
  std::printf("Depth: a 24-bit sine of %.0f Hz\n", kHertz);
  const test::TempDirectory directory;
  for (const double dbfs : {-60.0, -80.0, -90.0, -100.0}) {
    const Sound sine = tone(kHertz, dbfs, kSeconds + 0.1);
    write_wav(directory.file("sine.wav"), sine, kSampleRate, 24);
    const Sound floats = played(directory.file("sine.wav"));
    std::printf("  %.0f dBFS\n", dbfs);
    print_ours("Tandem, device of 24 bits", floats, dbfs);
    print_ours("Tandem, device of 16 bits", in_16_bits(floats), dbfs);
    print("plain rounding to 16 bits", mono(floats.size(), [&](std::size_t n) {
            return std::nearbyint(double{floats[n].left} * 32768.0) / 32768.0;
          }));
    print("sox to 16 bits, its dither", middle(through(sine, "sox IN -b 16 OUT")));
    print("ffmpeg to 16 bits, its defaults", middle(through(sine, "ffmpeg -i IN -c:a pcm_s16le OUT")));
  }
}

}  // namespace tandem::report
