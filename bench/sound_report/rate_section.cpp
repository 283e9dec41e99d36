// Full-scale tones at 44.1 kHz on a device of 48 kHz: what the conversion adds to them, by us, by the sound servers on
// private null sinks, by other programs; then what ours costs and how long it holds sound back.
#include <soxr.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <exception>
#include <fstream>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/output/rate_converter.h"
#include "platform/output_test_server.h"
#include "platform/tone_spectrum.h"
#include "sound_report/limits.h"
#include "sound_report/processor_time.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "sound_report/svg_plot.h"

namespace tandem::report {

namespace {

constexpr int kDeviceRate = 48000;
constexpr double kSeconds = 4.0;
constexpr double kUnwanted = -110.0;  // dBFS
constexpr double kTopTone = 19000.0;  // the plot's
constexpr std::array kTones = {997.0, 10000.0, kTopTone};

struct Converter {
  std::string name;
  std::function<Sound(const Sound&)> convert;
  bool ours = false;
};

// In steps of the chain; `most_held`: frames taken whose sound was still to come.
Sound converted_by_us(const Sound& sound, int rate, double* most_held) {
  RateConverter converter(rate);
  Sound result;
  Sound piece(8192);
  for (std::size_t taken = 0; taken < sound.size();) {
    const std::size_t offered = std::min<std::size_t>(kStepFrames, sound.size() - taken);
    const RateConverter::Moved moved = converter.convert(std::span(sound).subspan(taken, offered), piece);
    if (moved.failed) throw std::runtime_error("our conversion has failed");
    taken += moved.taken;
    result.insert(result.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(moved.made));
    if (most_held != nullptr && taken > kSampleRate / 10)
      *most_held = std::max(*most_held, static_cast<double>(taken) - static_cast<double>(result.size()) * kSampleRate /
                                                                         static_cast<double>(rate));
  }
  return result;
}

// As a player has it done that leaves the rate to the server.
void play_plainly(const std::filesystem::path& folder, const std::string& sink, const Sound& sound) {
  std::ofstream(folder / "tone", std::ios::binary)
      .write(reinterpret_cast<const char*>(sound.data()),
             static_cast<std::streamsize>(sound.size() * sizeof(StereoFrame)));
  ChildProcess({"pacat", "-d", sink, "--raw", "--format=float32le", "--rate=44100", "--channels=2", folder / "tone"},
               folder / "pacat.out")
      .wait();
}

// A sink that another program plays to keeps its rate.
Sound through_pulseaudio(const Sound& sound) {
  OutputTestServer server(SoundServer::kPulseaudio);
  server.start();
  server.load_sink("card", kDeviceRate, "float32le");
  const ChildProcess other({"pacat", "-d", "card", "--raw", "--rate=48000", "/dev/zero"}, server.directory() / "other");
  server.start_float_recording("card", kDeviceRate);
  play_plainly(server.directory(), "card", sound);
  return server.float_recording();
}

Sound through_pipewire(const Sound& sound) {
  OutputTestServer server(SoundServer::kPipewire);
  server.start();
  server.load_sink("card", kDeviceRate, "float32le");
  server.start_float_recording("card", kDeviceRate);
  play_plainly(server.directory(), "card", sound);
  return server.float_recording();
}

std::vector<Converter> converters() {
  std::vector<Converter> list{
      {"Tandem", [](const Sound& sound) { return converted_by_us(sound, kDeviceRate, nullptr); }, true}};
  if (has("pulseaudio") && has("pacat")) list.push_back({"PulseAudio's own", through_pulseaudio});
  if (is_installed(SoundServer::kPipewire) && has("pacat")) list.push_back({"PipeWire's own", through_pipewire});
  if (has("sox"))
    list.push_back({"sox rate", [](const Sound& sound) { return through(sound, "sox IN OUT rate 48000"); }});
  if (has("ffmpeg"))
    list.push_back({"ffmpeg aresample",
                    [](const Sound& sound) { return through(sound, "ffmpeg -i IN -c:a pcm_f32le -ar 48000 OUT"); }});
  return list;
}

// Without the silence around it; empty if it is shorter than it should be.
Sound heard_in(Sound recording) {
  const auto sounds = [](const StereoFrame& frame) { return frame.left != 0.0F; };
  recording.erase(std::find_if(recording.rbegin(), recording.rend(), sounds).base(), recording.end());
  recording.erase(recording.begin(), std::find_if(recording.begin(), recording.end(), sounds));
  return recording.size() < static_cast<std::size_t>(0.9 * kSeconds * kDeviceRate) ? Sound{} : recording;
}

Line line_of(const std::string& name, const Sound& sound) {
  const auto middle = sound.begin() + static_cast<std::ptrdiff_t>(sound.size() / 2);
  const Spectrum spectrum = spectrum_of(Sound(middle - 65536, middle + 65536), kDeviceRate);
  constexpr std::size_t kShown = 64;  // bins for a point: the greatest of them
  Line line{name, {}};
  for (std::size_t k = 0; k + kShown <= spectrum.level_db.size(); k += kShown) {
    const auto from = spectrum.level_db.begin() + static_cast<std::ptrdiff_t>(k);
    line.points.emplace_back(spectrum.spacing_hz * static_cast<double>(k), *std::max_element(from, from + kShown));
  }
  return line;
}

void print(const Converter& converter, std::vector<Line>& lines) {
  std::printf("  %-18s", converter.name.c_str());
  double worst = -300.0;
  double changed = 0.0;
  for (const double hz : kTones) {
    const Sound out = heard_in(converter.convert(tone(hz, 0.0, kSeconds)));
    if (out.empty()) {
      std::printf("  %6.0f Hz           none", hz);
      worst = changed = std::numeric_limits<double>::quiet_NaN();
      continue;
    }
    const test::ToneSpectrum spectrum(out, kDeviceRate, hz);
    std::printf("  %6.0f Hz %7.1f (%+5.2f)", hz, spectrum.worst(), spectrum.level());
    std::fflush(stdout);
    worst = greater(worst, spectrum.worst());
    changed = greater(changed, std::abs(spectrum.level()));
    if (hz == kTopTone) lines.push_back(line_of(converter.name, out));
  }
  if (converter.ours) std::printf("%s%s", at_most(kUnwanted, worst).c_str(), at_most(0.1, changed, 1).c_str());
  std::printf("\n");
}

// What the song has above half the rate of a slower device is not there at all.
double unwanted_at(int rate) {
  double worst = -300.0;
  for (const double hz : kTones) {
    const Sound out = converted_by_us(tone(hz, 0.0, 70000.0 / rate), rate, nullptr);
    worst = greater(worst, test::ToneSpectrum(out, rate, hz).worst());
  }
  return worst;
}

// Milliseconds of processor for a second of sound, in which `convert` takes `sound`: the least of some runs, those in
// which other work disturbed the least.
double cost_of(const Sound& sound, const std::function<void()>& convert) {
  constexpr int kRuns = 5;
  double least = 1e9;
  for (int run = 0; run < kRuns; ++run) {
    const double before = processor_milliseconds();
    convert();
    least = std::min(least, processor_milliseconds() - before);
  }
  return least * kSampleRate / static_cast<double>(sound.size());
}

struct RateLimit {
  int rate;
  double held_ms;
};
// libsoxr takes a stage more for the slowest devices, and two for 8 kHz.
constexpr std::array<RateLimit, 12> kRateLimits{{{8000, 20.0},
                                                 {16000, 10.0},
                                                 {22050, 5.0},
                                                 {32000, 5.0},
                                                 {37800, 5.0},
                                                 {44000, 5.0},
                                                 {48000, 5.0},
                                                 {88200, 5.0},
                                                 {96000, 5.0},
                                                 {176400, 5.0},
                                                 {192000, 5.0},
                                                 {384000, 5.0}}};

void print(const RateLimit& limit) {
  const Sound sound = tone(997.0, 0.0, 5.0);
  double held = 0.0;
  const double cost = cost_of(sound, [&] { converted_by_us(sound, limit.rate, &held); });
  const double held_ms = held * 1000.0 / kSampleRate;
  const double unwanted = unwanted_at(limit.rate);
  std::printf(
      "  %6d Hz: unwanted %.1f dBFS%s, at most %.1f ms held back%s, %.2f ms of processor for a second of sound\n",
      limit.rate, unwanted, at_most(kUnwanted, unwanted).c_str(), held_ms, at_most(limit.held_ms, held_ms).c_str(),
      cost);
  std::fflush(stdout);
}

// libsoxr by itself at 20 bits, minimum phase, in steps of the chain.
void convert_plainly(const Sound& sound) {
  const soxr_io_spec_t floats = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
  const soxr_quality_spec_t quality = soxr_quality_spec(SOXR_20_BITQ | SOXR_MINIMUM_PHASE, 0);
  const auto soxr = std::unique_ptr<::soxr, void (*)(soxr_t)>(
      soxr_create(kSampleRate, kDeviceRate, 2, nullptr, &floats, &quality, nullptr), soxr_delete);
  Sound piece(8192);
  for (std::size_t at = 0; at + kStepFrames <= sound.size(); at += kStepFrames)
    soxr_process(soxr.get(), &sound[at], kStepFrames, nullptr, piece.data(), piece.size(), nullptr);
}

// On an idle machine libsoxr's own choice takes 0.083 % of a core, and 0.15 % is what ours may take.
void print_share() {
  constexpr double kMost = 0.15 / 0.083;
  const Sound sound = tone(997.0, 0.0, 20.0);
  const double plain = cost_of(sound, [&] { convert_plainly(sound); });
  const double ours = cost_of(sound, [&] { converted_by_us(sound, kDeviceRate, nullptr); });
  std::printf("  %6d Hz: %.2f ms, and %.2f ms by libsoxr's own choice at 20 bits, minimum phase: %.2f times%s\n",
              kDeviceRate, ours, plain, ours / plain, at_most(kMost, ours / plain, 1).c_str());
}

void print_conversions(std::vector<Line>& lines) {
  for (const Converter& converter : converters()) {
    try {
      print(converter, lines);
    } catch (const std::exception& error) {  // a server that cannot be started
      std::printf("  %s%s\n", error.what(), converter.ours ? not_measured().c_str() : "");
    }
  }
}

void print_rates() {
  try {
    for (const RateLimit& limit : kRateLimits) print(limit);
    print_share();
  } catch (const std::exception& error) {
    std::printf("  %s%s\n", error.what(), not_measured().c_str());
  }
}

}  // namespace

void report_rate(const std::string& folder) {
  std::printf(
      "Rate: full-scale tones on a device of 48 kHz: the highest of anything else in dBFS (level of the tone)\n");
  std::vector<Line> lines;
  print_conversions(lines);
  print_rates();
  Axis x{"Hz", 0.0, 24000.0, {}, false};
  for (int khz = 0; khz <= 24; khz += 4) x.marks.emplace_back(khz * 1000, std::to_string(khz) + "k");
  Axis y{"dBFS", -180.0, 0.0, {}, false};
  for (int db = -160; db <= 0; db += 40) y.marks.emplace_back(db, std::to_string(db));
  write_plot(folder + "/rate_19k.svg", "A tone of 19 kHz on a device of 48 kHz", x, y, lines);
}

}  // namespace tandem::report
