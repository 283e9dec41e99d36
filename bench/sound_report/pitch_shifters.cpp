#include "sound_report/pitch_shifters.h"

#include <array>

#include "engine/pitch/pitch_deck.h"

namespace tandem::report {

namespace {

struct Peer {
  const char* name;
  const char* program;
  const char* command;  // SEMITONES and CENTS are filled in
};

constexpr std::array<Peer, 4> kPeers{{
    {"SoundTouch", "soundstretch", "sox -D IN -b 16 IN.16.wav && soundstretch IN.16.wav OUT -pitch=SEMITONES"},
    {"Rubber Band R2", "rubberband", "rubberband -2 -p SEMITONES IN OUT"},
    {"Rubber Band R3", "rubberband", "rubberband -3 -p SEMITONES IN OUT"},
    {"sox", "sox", "sox IN OUT pitch CENTS"},
}};

std::string filled_in(std::string command, int value) {
  const auto put = [&command](const std::string& what, const std::string& by) {
    if (const std::size_t at = command.find(what); at != std::string::npos) command.replace(at, what.size(), by);
  };
  put("SEMITONES", std::to_string(value / 5.0));
  put("CENTS", std::to_string(value * 20));
  return command;
}

Sound shifted_by_us(const Sound& sound, int value) { return tandem::shifted(sound, static_cast<float>(value)); }

}  // namespace

std::vector<Shifter> pitch_shifters() {
  std::vector<Shifter> list{{"Tandem", shifted_by_us, true}};
  for (const Peer& peer : kPeers) {
    if (!has(peer.program)) continue;
    list.push_back({peer.name, [command = std::string(peer.command)](const Sound& sound, int value) {
                      return through(sound, filled_in(command, value));
                    }});
  }
  return list;
}

}  // namespace tandem::report
