// An hour of list through the whole player in simulated time: 20 songs of 3 minutes (four files, five times), plain and
// with pitch and equalizer at work. Prints seconds of sound per second of CPU, the share of each stage (the stage alone
// on as much sound, beside the whole), and the peak memory of the process; the files are made by another one.
// usage: hour_bench [seconds of each song, instead of 180]
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "engine/equalizer/band_equalizer.h"
#include "engine/equalizer/filter_design.h"
#include "engine/pitch/pitch_stage.h"
#include "engine/read/song_source.h"
#include "engine/render/limiter.h"
#include "settings/settings_file.h"
#include "simulation/simulated_player.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

constexpr std::size_t kSongs = 20;
constexpr std::size_t kFiles = 4;
constexpr float kPitch = 10.0F;  // two semitones
constexpr double kGain = 6;      // dB, up and down in turn

double cpu_seconds() {
  timespec now{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

double cost_of(const std::function<void()>& work) {
  const double begin = cpu_seconds();
  work();
  return cpu_seconds() - begin;
}

std::vector<std::string> file_names(const TempDirectory& directory) {
  return {directory.file("cbr.mp3"), directory.file("vbr.mp3"), directory.file("high.mp3"), directory.file("pcm.wav")};
}

void make_files(const TempDirectory& directory, double seconds) {
  Signal signal = music(seconds);
  std::mt19937 random(1);
  std::normal_distribution<double> noise(0.0, 0.03);  // so that all of the spectrum is coded
  for (double& sample : signal.samples) sample += noise(random);
  const auto names = file_names(directory);
  write_file(names[0], make_mp3(signal, {"-b", "192"}));
  write_file(names[1], make_mp3(signal, {"-V2"}));
  write_file(names[2], make_mp3(signal, {"-b", "320"}));
  write_file(names[3], wav_file(signal, Encoding::kInt16));
  write_file(directory.file("TP.inf"), text_bytes(factory_settings()));
}

// The signals are large: they must not count as the player's memory.
bool make_files_elsewhere(const TempDirectory& directory, double seconds) {
  const pid_t child = fork();
  if (child == 0) {
    make_files(directory, seconds);
    _exit(0);
  }
  int status = 0;
  return child > 0 && waitpid(child, &status, 0) == child && status == 0;
}

struct Hour {
  double sound = 0;  // seconds
  double cpu = 0;
};

Hour play_hour(const TempDirectory& directory, bool shaped) {
  std::size_t frames = 0;
  SimulatedPlayer::Options options;
  options.directory = directory.path();
  options.sink = [&frames](std::span<const StereoFrame> sound) { frames += sound.size(); };
  SimulatedPlayer player(options);
  PanelControls& controls = player.program.controls;
  player.load();
  const auto names = file_names(directory);
  for (std::size_t song = 0; song < kSongs; ++song) {
    player.dialog.answers.push_back(names[song % kFiles]);
    controls.LoadSong.click.raise();
  }
  for (std::size_t band = 0; shaped && band < kBands; ++band)
    controls.sl0[band].move(static_cast<int>(band % 2 == 0 ? kGain : -kGain));
  for (const auto& pitch : player.program.sound.Pitch)  // the slider moves only the deck that is heard
    if (shaped) pitch->put_Value(kPitch);
  const double cpu = cost_of([&] {
    controls.PLAY.click.raise();
    while (controls.PLAY.Picture != 0) player.run(1000);
  });
  return {static_cast<double>(frames) / kSampleRate, cpu};
}

double decode_cost(const TempDirectory& directory) {
  const auto names = file_names(directory);
  return cost_of([&] {
    std::vector<StereoFrame> block(4096);
    for (std::size_t song = 0; song < kSongs; ++song) {
      const auto source = SongSource::open(names[song % kFiles]);
      while (source != nullptr && source->read(block) == block.size()) {
      }
    }
  });
}

using Step = std::array<StereoFrame, kStepFrames>;

// The first seconds of a song, in steps.
std::vector<Step> song_steps(const TempDirectory& directory) {
  constexpr std::size_t kSteps = 1000;
  std::vector<Step> steps(kSteps);
  const auto source = SongSource::open(file_names(directory).back());
  for (Step& step : steps) source->read(step);
  return steps;
}

// The cost of `work` on `sound` seconds.
double stage_cost(const std::vector<Step>& source, double sound,
                  const std::function<void(std::span<StereoFrame, kStepFrames>)>& work) {
  const auto steps = static_cast<std::size_t>(sound * kSampleRate / kStepFrames);
  return cost_of([&] {
    for (std::size_t i = 0; i < steps; ++i) {
      Step step = source[i % source.size()];
      work(step);
    }
  });
}

double equalizer_cost(const std::vector<Step>& source, double sound, bool in_circuit) {
  std::vector<EqualizerBand> bands;
  for (int i = 0; i < 15; ++i) bands.push_back({i * 1000.0, (i + 1) * 1000.0, i % 2 == 0 ? kGain : -kGain});
  const auto filter = design_filter(bands);
  BandEqualizer equalizer;
  if (in_circuit) equalizer.adopt(filter.get());
  return stage_cost(source, sound, [&](auto step) { equalizer.process(step); });
}

double limiter_cost(const std::vector<Step>& source, double sound) {
  Limiter limiter;
  return stage_cost(source, sound, [&](auto step) { limiter.process(step); });
}

double pitch_cost(const std::vector<Step>& source, double sound) {
  const auto ring = std::make_unique<DeckRing>();
  PitchStage stage;
  stage.clear(kPitch, new PitchShifter);
  return stage_cost(source, sound, [&](auto step) {
    ring->write(step);
    stage.process(*ring, PitchStage::kEndUnknown, step);
  });
}

void print_share(const char* stage, double cost, double whole) {
  std::printf("  %-12s %6.2f s  %5.1f %%\n", stage, cost, 100 * cost / whole);
}

void report(const char* name, const TempDirectory& directory, bool shaped) {
  const Hour hour = play_hour(directory, shaped);
  std::printf("%s: %.0f s of sound in %.2f s of CPU: %.0f times real time\n", name, hour.sound, hour.cpu,
              hour.sound / hour.cpu);
  const std::vector<Step> source = song_steps(directory);
  const double decode = decode_cost(directory);
  const double pitch = shaped ? pitch_cost(source, hour.sound) : 0;
  const double equalizer = equalizer_cost(source, hour.sound, shaped);
  const double limiter = limiter_cost(source, hour.sound);
  print_share("decode", decode, hour.cpu);
  print_share("pitch", pitch, hour.cpu);
  print_share("equalizer", equalizer, hour.cpu);
  print_share("limiter", limiter, hour.cpu);
  print_share("mix and rest", hour.cpu - decode - pitch - equalizer - limiter, hour.cpu);
}

}  // namespace
}  // namespace tandem::test

int main(int count, char** words) {
  using namespace tandem::test;
  const TempDirectory directory;
  if (!make_files_elsewhere(directory, count > 1 ? std::atof(words[1]) : 180.0)) return 1;
  report("an hour of list", directory, false);
  report("the same with pitch and equalizer", directory, true);
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  std::printf("peak memory: %.1f MB\n", static_cast<double>(usage.ru_maxrss) / 1024);
  return 0;
}
