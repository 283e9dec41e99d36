#include "playlist/song_loading.h"

#include <utility>

#include "base/song_endings.h"
#include "controls/panel_controls.h"
#include "playlist/list_lines.h"
#include "playlist/song_texts.h"

namespace tandem {

namespace {

std::string filter() {
  std::string patterns;
  for (const std::string_view ending : kSongEndings) patterns.append(patterns.empty() ? "*" : ";*").append(ending);
  return "MP3 and Wave Files (MP3 / WAV)|" + patterns;
}

}  // namespace

SongLoading::SongLoading(PanelControls& controls, SoundGraph& sound, RunState& state, SongEntries& song_table,
                         UpperCase upper_case)
    : controls_(controls),
      sound_(sound),
      state_(state),
      SongTable(song_table),
      appender_(controls, sound, state, song_table),
      upper_case_(std::move(upper_case)) {}

void SongLoading::choose_songs() {
  FileDialog& dialog = controls_.CommonDialog;
  dialog.InitDir = state_.LastFolder;
  dialog.Filter = filter();
  dialog.ShowOpen();
  add_songs(dialog.FileName);
}

void SongLoading::add_songs(const std::string& result) {
  state_.LastFolder = folder_of(result);
  split(result);
  const std::int32_t first_nul = next_nul(1);
  if (first_nul >= controls_.ListAux.ListCount()) {
    add_one(result);
  } else {
    add_several(first_nul);
  }
  state_.NextSongLoaded = kFalse;
}

// One line of ListAux for each character; a NUL is an empty line.
void SongLoading::split(std::string_view result) {
  controls_.ListAux.Clear();
  while (!result.empty()) {
    const std::string_view character = first_characters(result, 1);
    controls_.ListAux.AddItem(character.front() == '\0' ? std::string() : std::string(character));
    result.remove_prefix(character.size());
  }
}

// The first empty line of ListAux from a line on; the line count if there is none.
std::int32_t SongLoading::next_nul(std::int32_t from) const {
  const std::int32_t count = controls_.ListAux.ListCount();
  while (from < count && !controls_.ListAux.List(from).empty()) ++from;
  return from;
}

std::string SongLoading::characters(std::int32_t from, std::int32_t to) const {
  std::string text;
  for (std::int32_t line = from; line < to; ++line) text += controls_.ListAux.List(line);
  return text;
}

// The names after the first NUL, in the order given. A last name of a single character is passed over: positions count
// from 1 and the end is tested with "less than".
std::size_t SongLoading::parse_names(std::int32_t first_nul) {
  std::size_t n = 0;
  std::int32_t start = first_nul + 2;
  while (start < controls_.ListAux.ListCount()) {
    const std::int32_t end = next_nul(start - 1);
    if (n >= PickedNames.size()) throw RuntimeError(RuntimeErrorKind::Range);
    PickedNames[n] = characters(start - 1, end);
    start = end + 2;
    ++n;
  }
  return n;
}

void SongLoading::add_one(const std::string& path) {
  appender_.append_accepted(path);
  if (state_.SongCount == 1) show_title(name_of(SongTable.at(1).SongFile));
}

void SongLoading::add_several(std::int32_t first_nul) {
  state_.LastFolder = characters(0, first_nul);
  const std::size_t n = parse_names(first_nul);
  for (std::size_t i = n; i > 0; --i)
    appender_.append_accepted(state_.LastFolder + kPathSeparator + PickedNames[i - 1]);
  show_title(PickedNames[0]);
}

// The total time is that of song 1, whatever the title.
void SongLoading::show_title(std::string_view name) {
  LedLabel& label = controls_.SongLabel;
  label.Caption = upper_case_(name);
  if (is_long_title(label.Caption.get()) && !begins_blank(label.Caption.get())) {
    label.Caption = label.Caption.get() + scroll_gap();
    label.Scrolling = true;
  }
  controls_.LblTempTot.Caption = SongTimeText(*sound_.Helper, SongTable.at(1).SongLength);
}

void SongLoading::press() { controls_.LoadSong.BackColor = 0xE0E0E0; }
void SongLoading::release() { controls_.LoadSong.BackColor = clGrey; }

}  // namespace tandem
