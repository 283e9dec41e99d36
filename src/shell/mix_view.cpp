#include "shell/mix_view.h"

#include <algorithm>

#include "base/text.h"
#include "controls/pause_state.h"
#include "playlist/list_lines.h"

namespace tandem {

namespace {

bool has_entry(std::int32_t number) { return number >= 1 && number <= SongEntries::kLastSong; }

std::string_view path_of(std::string_view line) {
  const std::size_t dash = line.find(" - ");
  return dash == std::string_view::npos ? line : trimmed(line.substr(dash + 3));
}

std::int32_t length_of(const Program& program, std::int32_t line) {
  return has_entry(line + 1) ? program.SongTable.at(line + 1).SongLength : 0;
}

// A song may be in the list several times: of its lines the one nearest to where it is expected.
int line_of(const Program& program, const std::string& file, int expected) {
  const ListBox& list = program.controls.PlayList;
  const std::string_view path = trimmed(file);
  const auto is_it = [&](int line) { return path_of(list.List(line)) == path; };
  for (int away = 0; away <= list.ListCount(); ++away)
    for (const int line : {expected + away, expected - away})
      if (line >= 0 && line < list.ListCount() && is_it(line)) return line;
  return -1;
}

// The length is the list's: a deck would have to look into its file, which may be slow, or hang.
std::optional<SoundingSong> song_on(const Program& program, int deck, int expected) {
  const MMAudioFileX& reader = *program.sound.AudioFile[static_cast<std::size_t>(deck)];
  const std::string file = reader.FileName();
  if (program.sound.WaveMixer->Mute(deck) || file.empty()) return std::nullopt;
  const int line = line_of(program, file, expected);
  return SoundingSong{line, std::string(name_of(file)), reader.Position(), length_of(program, line)};
}

// As the mix ticks will have it: the last line has no next song.
std::optional<std::int32_t> mix_point(const Program& program, const SoundingSong& counted) {
  const ListBox& list = program.controls.PlayList;
  if (program.sound.MixTimer->Interval() == 0 || counted.line < 0) return std::nullopt;
  if (program.state.MixStarted == kFalse && list.ListIndex() + 1 == list.ListCount()) return std::nullopt;
  return std::max(0, counted.length - program.state.MixTimeMs);
}

void add_lengths(const Program& program, MixView& view) {
  const int count = program.controls.PlayList.ListCount();
  view.lengths.reserve(static_cast<std::size_t>(count));
  for (int line = 0; line < count; ++line) view.lengths.push_back(length_of(program, line));
}

void add_rest(MixView& view) {
  if (!view.counted || view.counted->line < 0) return;
  const auto first = view.lengths.begin() + view.counted->line;
  view.songs_left = static_cast<int>(view.lengths.end() - first);
  for (auto length = first + 1; length < view.lengths.end(); ++length) view.left += *length;
  view.left += std::max(0, view.counted->length - view.counted->position);
}

}  // namespace

// While two songs overlap the panel's current song is already the incoming one; the counter stays with the outgoing.
MixView mix_view(const Program& program) {
  MixView view;
  const RunState& state = program.state;
  const int current = state.CurrentSong - 1;
  const bool both = !program.sound.WaveMixer->Mute(0) && !program.sound.WaveMixer->Mute(1);
  view.counted = song_on(program, state.ActiveDeck, both ? current - 1 : current);
  view.other = song_on(program, state.idle_deck(), current);
  if (view.counted) view.mix_at = mix_point(program, *view.counted);
  view.paused = is_paused(program.controls);
  view.skipped = view.counted && view.other && !program.controls.NextBtn.Enabled;
  add_lengths(program, view);
  add_rest(view);
  return view;
}

}  // namespace tandem
