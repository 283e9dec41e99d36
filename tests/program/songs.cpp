#include "program/songs.h"

#include <algorithm>
#include <functional>
#include <limits>

#include "program/signatures.h"
#include "support/wav_writer.h"

namespace tandem::test {

AddedSong make_song(const PlayerRig& rig, const std::string& name, const Signal& signal) {
  return {rig.make_file(name, wav_file(signal, Encoding::kInt16)), to_stereo(signal)};
}

AddedSong add_song(PlayerRig& rig, const std::string& name, const Signal& signal) {
  AddedSong song = make_song(rig, name, signal);
  rig.add(song.path);
  return song;
}

AddedSong add_noise(PlayerRig& rig, const std::string& name, std::int64_t milliseconds) {
  constexpr double kPeak = 0.2;
  unsigned seed = 0;
  for (const char letter : name) seed = 31 * seed + static_cast<unsigned char>(letter);
  return add_song(rig, name, full_noise(seed, frames_of(milliseconds), kPeak));
}

Signal constant(double value, std::int64_t milliseconds) {
  return {kSampleRate, 2, Samples(2 * static_cast<std::size_t>(frames_of(milliseconds)), value)};
}

PanelLog::PanelLog(PlayerRig& rig) {
  const auto keep = [this, &rig](std::string event) {
    events.push_back(std::move(event));
    times.push_back(rig.player().now());
  };
  rig.hooks.before_finished.emplace_back(
      [&rig, keep](int input) { keep("finished " + std::to_string(input) + (rig.mixer().Mute(input) ? "" : "!")); });
  rig.hooks.after_mix_tick.emplace_back([&rig, keep] {
    const auto text = [&rig](std::size_t deck) {
      return rig.deck(deck).Position() == std::numeric_limits<std::int32_t>::max() ? std::string(" end") : " -";
    };
    const std::string positions = text(0) + text(1);
    if (positions != " - -") keep("tick" + positions);
  });
}

std::size_t PanelLog::count(const std::string& event) const {
  return static_cast<std::size_t>(std::count(events.begin(), events.end(), event));
}

}  // namespace tandem::test
