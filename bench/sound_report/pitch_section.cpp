// How clean tones stay when the pitch is shifted: the energy further than 12 Hz from the tone.
#include <array>
#include <cmath>
#include <cstdio>

#include "engine/pitch_deck.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"
#include "sound_report/svg_plot.h"

namespace tandem::report {

namespace {

constexpr std::array<double, 6> kTones{1050.0, 1480.0, 2210.0, 3320.0, 5310.0, 7900.0};
constexpr std::array<int, 10> kValues{-20, -15, -10, -5, -2, 2, 5, 10, 15, 20};
constexpr std::size_t kLength = 3 * kSecond;  // of each tone; the middle second is looked at

Sound tones_in_turn() {
  return mono(kTones.size() * kLength, [](std::size_t n) {
    const double hz = kTones.at(n / kLength);
    return 0.5 * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n % kLength) / kSampleRate);
  });
}

Sound shifted_by_us(const Sound& sound, int value) {
  PitchDeck deck(sound);
  deck.clear(static_cast<float>(value));
  deck.run_to_end();
  return deck.out;
}

struct Purity {
  double mean = 0.0;
  double worst = -300.0;
};

Purity purity_of(const Sound& sound, int value) {
  Purity purity;
  for (std::size_t i = 0; i < kTones.size(); ++i) {
    const auto from = static_cast<std::ptrdiff_t>(i * kLength + kSecond);
    if (static_cast<std::size_t>(from) + 65536 > sound.size()) return {};
    const Sound part(sound.begin() + from, sound.begin() + from + 65536);
    const double off = off_tone_db(part, kTones.at(i) * std::exp2(value / 60.0), 12.0);
    purity.mean += off / static_cast<double>(kTones.size());
    purity.worst = std::max(purity.worst, off);
  }
  return purity;
}

struct Peer {
  std::string name;
  std::string program;
  std::string command;  // SEMITONES and CENTS are filled in
};

const std::vector<Peer>& peers() {
  static const std::vector<Peer> list{
      {"SoundTouch", "soundstretch", "sox -D IN -b 16 IN.16.wav && soundstretch IN.16.wav OUT -pitch=SEMITONES"},
      {"Rubber Band R2", "rubberband", "rubberband -2 -p SEMITONES IN OUT"},
      {"Rubber Band R3", "rubberband", "rubberband -3 -p SEMITONES IN OUT"},
      {"sox", "sox", "sox IN OUT pitch CENTS"},
  };
  return list;
}

std::string filled_in(std::string command, int value) {
  const auto put = [&command](const std::string& what, const std::string& by) {
    if (const std::size_t at = command.find(what); at != std::string::npos) command.replace(at, what.size(), by);
  };
  put("SEMITONES", std::to_string(value / 5.0));
  put("CENTS", std::to_string(value * 20));
  return command;
}

Line print(const std::string& name, const std::function<Sound(int)>& shift) {
  std::printf("  %-16s", name.c_str());
  Line line{name, {}};
  for (const int value : kValues) {
    const Purity purity = purity_of(shift(value), value);
    std::printf(" %6.1f (%5.1f)", purity.mean, purity.worst);
    line.points.emplace_back(value, purity.mean);
  }
  std::printf("\n");
  return line;
}

}  // namespace

void report_pitch(const std::string& folder) {
  std::printf("Pitch: off-tone energy of six tones, 1.05 to 7.9 kHz: mean (worst) in dB\n  %-16s", "pitch value");
  for (const int value : kValues) std::printf(" %14d", value);
  std::printf("\n");
  const Sound sound = tones_in_turn();
  std::vector<Line> lines{print("Tandem", [&](int value) { return shifted_by_us(sound, value); })};
  for (const Peer& peer : peers())
    if (has(peer.program))
      lines.push_back(print(peer.name, [&](int value) { return through(sound, filled_in(peer.command, value)); }));
  const Axis x{"pitch value (fifths of a semitone)", -20.0, 20.0, {}, false};
  Axis marked = x;
  for (int value = -20; value <= 20; value += 5) marked.marks.emplace_back(value, std::to_string(value));
  Axis y{"off-tone energy, dB", -90.0, 0.0, {}, false};
  for (int db = -80; db <= 0; db += 20) y.marks.emplace_back(db, std::to_string(db));
  write_plot(folder + "/pitch_purity.svg", "Purity of shifted tones, mean of six (lower is cleaner)", marked, y, lines);
}

}  // namespace tandem::report
