// What a device of 48000 Hz is given, for tones of full scale: by our conversion and by a sound server's own, on
// private servers with null sinks of float samples.
//   rate_bench
// One row for each: the loudest of what is not the tone, in dBFS, and the tone's level; then what our conversion costs
// and how long it holds sound back at each rate.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <exception>
#include <fstream>
#include <functional>
#include <numbers>
#include <span>
#include <string>
#include <vector>

#include "platform/output/rate_converter.h"
#include "platform/output_test_server.h"
#include "platform/pipewire_test_server.h"
#include "platform/tone_spectrum.h"

namespace tandem {
namespace {

constexpr int kDeviceRate = 48000;
constexpr std::array kTones = {997.0, 10000.0, 19000.0};
using Sound = std::vector<StereoFrame>;
using Conversion = std::function<Sound(const Sound&)>;

Sound sine(double hz, double seconds) {
  Sound sound(static_cast<std::size_t>(seconds * kSampleRate));
  for (std::size_t n = 0; n < sound.size(); ++n) {
    const double angle = 2 * std::numbers::pi * hz * static_cast<double>(n) / kSampleRate;
    sound[n].left = sound[n].right = static_cast<float>(std::sin(angle));
  }
  return sound;
}

Sound convert(const Sound& song, int rate, double* most_held) {
  RateConverter converter(rate);
  Sound result;
  Sound piece(8192);
  for (std::size_t taken = 0; taken < song.size();) {
    const std::size_t offered = std::min<std::size_t>(kStepFrames, song.size() - taken);
    const RateConverter::Moved moved = converter.convert(std::span(song).subspan(taken, offered), piece);
    taken += moved.taken;
    result.insert(result.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(moved.made));
    if (most_held != nullptr && taken > kSampleRate / 10)
      *most_held = std::max(*most_held, static_cast<double>(taken) - static_cast<double>(result.size()) * kSampleRate /
                                                                         static_cast<double>(rate));
  }
  return result;
}

// As every player has it done that leaves the rate to the server.
void play_plainly(const std::filesystem::path& folder, const std::string& sink, const Sound& song) {
  std::ofstream(folder / "tone", std::ios::binary)
      .write(reinterpret_cast<const char*>(song.data()),
             static_cast<std::streamsize>(song.size() * sizeof(StereoFrame)));
  ChildProcess({"pacat", "-d", sink, "--raw", "--format=float32le", "--rate=44100", "--channels=2", folder / "tone"},
               folder / "pacat.out")
      .wait();
}

// The sound in a recording, without the silence around it.
Sound heard_in(Sound recording) {
  const auto sounds = [](const StereoFrame& frame) { return frame.left != 0.0F; };
  recording.erase(recording.begin(), std::find_if(recording.begin(), recording.end(), sounds));
  recording.erase(std::find_if(recording.rbegin(), recording.rend(), sounds).base(), recording.end());
  return recording;
}

void print_row(const char* who, const Conversion& converted) {
  std::printf("%-34s", who);
  for (const double hz : kTones) {
    const test::ToneSpectrum spectrum(converted(sine(hz, 4)), kDeviceRate, hz);
    std::printf("  %7.1f (%+.2f)", spectrum.worst(), spectrum.level());
    std::fflush(stdout);
  }
  std::printf("\n");
}

// A sink that another program plays to keeps its rate.
Sound through_pulseaudio(const Sound& song) {
  OutputTestServer server;
  server.start();
  server.load_sink("card", kDeviceRate, "float32le");
  const ChildProcess other({"pacat", "-d", "card", "--raw", "--rate=48000", "/dev/zero"}, server.directory() / "other");
  server.start_float_recording("card", kDeviceRate);
  play_plainly(server.directory(), "card", song);
  return heard_in(server.float_recording());
}

Sound through_pipewire(const Sound& song) {
  PipewireTestServer server;
  server.start_recording();
  play_plainly(server.directory(), "null0", song);
  return heard_in(server.recording());
}

double processor_seconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

void print_cost(int rate) {
  constexpr double kSeconds = 20;
  const Sound song = sine(997, kSeconds);
  double held = 0;
  const double before = processor_seconds();
  convert(song, rate, &held);
  std::printf("%6d Hz: %.2f ms of processor a second of sound, at most %.1f ms held back\n", rate,
              (processor_seconds() - before) * 1000 / kSeconds, held * 1000 / kSampleRate);
}

void print_all() {
  std::printf("unwanted in dBFS (level in dB)           997 Hz          10000 Hz          19000 Hz\n");
  print_row("Tandem", [](const Sound& song) { return convert(song, kDeviceRate, nullptr); });
  print_row("PulseAudio's own conversion", through_pulseaudio);
  if (PipewireTestServer::is_installed()) print_row("PipeWire's own conversion", through_pipewire);
  for (const int rate : {48000, 88200, 96000, 176400, 192000}) print_cost(rate);
}

}  // namespace
}  // namespace tandem

int main() {
  try {
    tandem::print_all();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "rate_bench: %s\n", error.what());
    return 1;
  }
  return 0;
}
