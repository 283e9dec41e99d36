#include "playback/time_display.h"

#include <cstddef>
#include <utility>

#include "controls/panel_controls.h"
#include "playlist/list_lines.h"
#include "playlist/song_texts.h"

namespace tandem {

TimeDisplay::TimeDisplay(PanelControls& controls, SoundGraph& sound, RunState& state, const SongEntries& song_table,
                         UpperCase upper_case, TimeOfDay time_of_day)
    : controls_(controls),
      sound_(sound),
      state_(state),
      SongTable(song_table),
      upper_case_(std::move(upper_case)),
      time_of_day_(std::move(time_of_day)) {}

void TimeDisplay::ShowSongInfo(std::int32_t song) {
  const SongEntry& entry = SongTable.at(song);
  song_shown.raise(entry.SongFile);
  show_title(entry.SongFile);
  controls_.LblTempTot.Caption = SongTimeText(*sound_.Helper, entry.SongLength);
}

void TimeDisplay::show_title(const std::string& file) {
  state_.LoopIndex = last_separator(file);
  LedLabel& label = controls_.SongLabel;
  label.Caption = upper_case_(name_of(file));
  if (!is_long_title(label.Caption.get())) {
    label.Scrolling = false;
  } else if (!begins_blank(label.Caption.get())) {
    label.Caption = scroll_gap() + label.Caption.get();
    label.Scrolling = true;
  }
}

void TimeDisplay::refresh() {
  controls_.ClockLabel.Caption = std::string(first_characters(time_of_day_(), 5));
  if (state_.SeekDragging != kFalse) return;
  const std::int32_t p = sound_.AudioFile[static_cast<std::size_t>(state_.ActiveDeck)]->Position();
  if (p < 1) return;
  controls_.LblPosition.Caption = SongTimeText(*sound_.Helper, p);
  controls_.Slider1.Position = p;
}

}  // namespace tandem
