// A full-scale tone at 44.1 kHz on a device of 48 kHz: what the conversion adds to it.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/output/rate_converter.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "sound_report/svg_plot.h"

namespace tandem::report {

namespace {

constexpr int kDeviceRate = 48000;
constexpr double kSeconds = 5.0;
constexpr std::size_t kLooked = 131072;  // frames

// A private PulseAudio with a null sink of 48 kHz, as it is set up without any configuration; recorded at the sink.
constexpr const char* kServer =
    "d=$(dirname IN); export HOME=$d XDG_RUNTIME_DIR=$d PULSE_SERVER=unix:$d/socket; sox IN -t f32 $d/raw; "
    "pulseaudio -n --daemonize=no --use-pid-file=no --exit-idle-time=-1 "
    "-L \"module-native-protocol-unix socket=$d/socket auth-anonymous=1\" "
    "-L \"module-null-sink sink_name=sink rate=48000 format=float32le\" & server=$!; "
    "for i in $(seq 100); do pactl info && break; sleep 0.1; done; "
    "parec -d sink.monitor --format=float32le --rate=48000 --channels=2 --raw > $d/recorded & recorder=$!; "
    "sleep 0.5; pacat -p -d sink --format=float32le --rate=44100 --channels=2 --raw $d/raw; "
    "kill $recorder; kill $server; wait; sox -t f32 -r 48000 -c 2 $d/recorded OUT";

struct Converter {
  std::string name;
  std::string program;  // empty: our own
  std::string command;
};

const std::vector<Converter>& converters() {
  static const std::vector<Converter> list{
      {"Tandem", "", ""},
      {"PulseAudio's own", "pulseaudio", kServer},
      {"sox rate", "sox", "sox IN OUT rate 48000"},
      {"ffmpeg aresample", "ffmpeg", "ffmpeg -i IN -c:a pcm_f32le -ar 48000 OUT"},
  };
  return list;
}

// From the middle of where it sounds.
Sound middle(const Sound& sound) {
  const auto sounds = [](const StereoFrame& frame) { return std::abs(frame.left) > 0.1F; };
  const auto first = std::find_if(sound.begin(), sound.end(), sounds);
  const auto last = std::find_if(sound.rbegin(), sound.rend(), sounds).base();
  if (last - first < static_cast<std::ptrdiff_t>(kLooked) + kDeviceRate / 2) return {};
  const auto from = first + (last - first - static_cast<std::ptrdiff_t>(kLooked)) / 2;
  return {from, from + static_cast<std::ptrdiff_t>(kLooked)};
}

Sound converted_by_us(const Sound& sound) {
  RateConverter converter(kDeviceRate);
  Sound result;
  Sound piece(8192);
  for (std::size_t taken = 0; taken < sound.size();) {
    const std::size_t offered = std::min<std::size_t>(kStepFrames, sound.size() - taken);
    const auto moved = converter.convert(std::span(sound).subspan(taken, offered), piece);
    taken += moved.taken;
    result.insert(result.end(), piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(moved.made));
  }
  return result;
}

// A server under load may miss the tone: a second try then.
Sound converted(const Converter& converter, double hz) {
  const Sound sound = tone(hz, -0.1, kSeconds);
  if (converter.command.empty()) return middle(converted_by_us(sound));
  Sound out = middle(through(sound, converter.command));
  return out.empty() ? middle(through(sound, converter.command)) : out;
}

Line line_of(const std::string& name, const Spectrum& spectrum) {
  constexpr std::size_t kShown = 64;  // bins for a point: the greatest of them
  Line line{name, {}};
  for (std::size_t k = 0; k + kShown <= spectrum.level_db.size(); k += kShown) {
    const auto from = spectrum.level_db.begin() + static_cast<std::ptrdiff_t>(k);
    line.points.emplace_back(spectrum.spacing_hz * static_cast<double>(k), *std::max_element(from, from + kShown));
  }
  return line;
}

}  // namespace

void report_rate(const std::string& folder) {
  std::printf("Rate: full-scale tones at 44.1 kHz on a device of 48 kHz, the highest level beside the tone in dB\n");
  std::vector<Line> lines;
  for (const Converter& converter : converters()) {
    if (!converter.program.empty() && !has(converter.program)) continue;
    std::printf("  %-18s", converter.name.c_str());
    for (const double hz : {997.0, 10000.0, 19000.0}) {
      const Sound out = converted(converter, hz);
      if (out.empty()) {
        std::printf(" %6.0f Hz    none", hz);
        continue;
      }
      const Spectrum spectrum = spectrum_of(out, kDeviceRate);
      std::printf(" %6.0f Hz %7.1f", hz, highest_spur_db(spectrum, hz, 20.0));
      if (hz == 19000.0) lines.push_back(line_of(converter.name, spectrum));
    }
    std::printf("\n");
  }
  Axis x{"Hz", 0.0, 24000.0, {}, false};
  for (int khz = 0; khz <= 24; khz += 4) x.marks.emplace_back(khz * 1000, std::to_string(khz) + "k");
  Axis y{"dBFS", -180.0, 0.0, {}, false};
  for (int db = -160; db <= 0; db += 40) y.marks.emplace_back(db, std::to_string(db));
  write_plot(folder + "/rate_19k.svg", "A tone of 19 kHz on a device of 48 kHz", x, y, lines);
}

}  // namespace tandem::report
