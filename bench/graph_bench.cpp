// The player's sound graph at full speed: the real engine in simulated time, its sound dropped or written to a file.
//   graph_bench [--print] [--pitch P] A B     two songs, the second 3.5 s before the end of the first, both at pitch
//                                             value P (fifths of a semitone), mixed, through an equalizer whose bands
//                                             all differ, and the limiter. --print: times real time for a second of CPU
//   graph_bench --shift P IN OUT.wav          one song at pitch value P, flat equalizer, into a WAV file
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/device/output_ring.h"
#include "engine/device/simulated_output.h"
#include "engine/engine.h"
#include "logged_graph/wav_recorder.h"
#include "shaping/band_table.h"
#include "simulation/simulated_workers.h"

namespace tandem {
namespace {

constexpr std::int32_t kOverlap = 3500;  // milliseconds
constexpr std::array<double, kBands> kGains{3, -2, 4, -3, 2, -4, 3, -2, 2, -3, 4, -2, 3, -3, 2};

struct Options {
  bool print = false;
  bool shift = false;
  float pitch = 0;
  std::vector<std::string> files;
};

Options read_options(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (word == "--print") {
      options.print = true;
    } else if ((word == "--pitch" || word == "--shift") && i + 1 < argc) {
      options.shift = word == "--shift";
      options.pitch = std::strtof(argv[++i], nullptr);
    } else {
      options.files.emplace_back(word);
    }
  }
  return options;
}

class Graph {
 public:
  explicit Graph(SimulatedOutput::Sink sink) : output_(ring_, std::move(sink)), engine_(output_, ring_, workers_) {
    engine_.fill(sound_, timers_);
    sound_.WaveMixer->put_Volume(32768);
    sound_.WaveOut->start();
  }

  void shape() {
    for (std::size_t band = 0; band < kBands; ++band)
      sound_.EQ->add_filter(kBandTable[band].low, kBandTable[band].high, kGains[band]);
  }
  bool load(std::size_t deck, const std::string& file, float pitch) {
    sound_.Pitch[deck]->put_Value(pitch);
    sound_.AudioFile[deck]->put_FileName(file);
    render();
    return !sound_.AudioFile[deck]->FileName().empty();
  }
  void play(int deck) { sound_.WaveMixer->put_Mute(deck, false); }
  void step() {
    render();
    output_.drain();
    ++steps_;
  }
  void run_to_the_end(int deck) {
    while (!sound_.WaveMixer->Mute(deck)) step();
  }
  std::int32_t left(std::size_t deck) const {
    return sound_.AudioFile[deck]->Length() - sound_.AudioFile[deck]->Position();
  }
  double seconds() const { return static_cast<double>(steps_) * kStepMilliseconds / 1000; }

 private:
  void render() {
    workers_.step();
    engine_.deliver();
  }

  OutputRing ring_;
  SimulatedOutput output_;
  SimulatedWorkers workers_;
  Engine engine_;
  TimerQueue timers_;
  SoundGraph sound_;
  long steps_ = 0;
};

int refuse(const std::string& file) {
  std::fprintf(stderr, "cannot play %s\n", file.c_str());
  return 1;
}

int shift(const Options& options) {
  WavRecorder recorder(options.files[1]);
  Graph graph(sink_of_16_bits([&recorder](std::span<const Sample16> frames) { recorder.write(frames); }));
  if (!graph.load(0, options.files[0], options.pitch)) return refuse(options.files[0]);
  graph.play(0);
  graph.run_to_the_end(0);
  return 0;
}

int overlap(const Options& options) {
  Graph graph([](std::span<const StereoFrame>) {});
  graph.shape();
  for (std::size_t deck = 0; deck < 2; ++deck)
    if (!graph.load(deck, options.files[deck], options.pitch)) return refuse(options.files[deck]);
  graph.play(0);
  while (graph.left(0) > kOverlap) graph.step();
  graph.play(1);
  graph.run_to_the_end(0);
  graph.run_to_the_end(1);
  timespec cpu{};
  clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &cpu);
  const double spent = static_cast<double>(cpu.tv_sec) + static_cast<double>(cpu.tv_nsec) * 1e-9;
  if (options.print)
    std::printf("graph, pitch value %+g: %.1f s of sound in %.3f s of CPU: %.0f times real time\n",
                static_cast<double>(options.pitch), graph.seconds(), spent, graph.seconds() / spent);
  return 0;
}

}  // namespace
}  // namespace tandem

int main(int argc, char** argv) {
  const tandem::Options options = tandem::read_options(argc, argv);
  if (options.files.size() != 2) {
    std::fprintf(stderr, "usage: graph_bench [--print] [--pitch P] A B | --shift P IN OUT.wav\n");
    return 2;
  }
  return options.shift ? tandem::shift(options) : tandem::overlap(options);
}
