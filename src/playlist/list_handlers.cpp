#include "playlist/list_handlers.h"

#include <string>
#include <utility>

#include "base/text.h"
#include "controls/panel_controls.h"
#include "playlist/list_lines.h"
#include "playlist/song_texts.h"

namespace tandem {

void ListHandlers::click_line() {
  const ListBox& list = controls_.PlayList;
  state_.SelectedEntry = to_int16(list.ListIndex());
  state_.LoopIndex = last_separator(list.List(list.ListIndex()));

  LedLabel& label = controls_.SongLabel;
  if (!is_long_title(label.Caption.get())) {
    label.Scrolling = false;
  } else if (!begins_blank(label.Caption.get())) {
    label.Caption = label.Caption.get() + scroll_gap();
    label.Scrolling = true;
  }
}

bool ListHandlers::is_playing(std::int32_t song) const {
  return song == state_.CurrentSong && sound_.MixTimer->Interval() != 0;
}

void ListHandlers::remove_line() {
  const std::int32_t line = state_.SelectedEntry;
  if (is_playing(line + 1)) return;
  sound_.ListTimer->put_Enabled(false);
  controls_.PlayList.RemoveItem(line);
  controls_.ListAux2.RemoveItem(line);
  SongTable.mark_removed(line + 1);
  if (line + 1 < state_.CurrentSong) --state_.CurrentSong;
  renumber();
  SongTable.compact();
  state_.SongCount = to_int16(state_.SongCount - 1);
  sound_.ListTimer->put_Enabled(true);
}

void ListHandlers::renumber() {
  const std::int32_t count = controls_.PlayList.ListCount();
  for (ListBox* list : {&controls_.PlayList, &controls_.ListAux2})
    for (std::int32_t i = 0; i < count; ++i) list->put_List(i, LineText(i + 1, line_rest(list->List(i), kNumberCut)));
}

void ListHandlers::move_up() {
  controls_.NextBtn.Enabled = false;
  if (sound_.ListTimer->Enabled()) sound_.ListTimer->put_Enabled(false);
  std::int32_t s = 0;
  if (controls_.PlayList.ListIndex() > 0) {
    s = controls_.PlayList.ListIndex();
    exchange_lines(s, s - 1);
  }
  SongTable.swap(s, s + 1);
  end_move();
}

void ListHandlers::move_down() {
  sound_.ListTimer->put_Enabled(false);
  controls_.NextBtn.Enabled = false;
  std::int32_t s = 0;
  const std::int32_t selected = controls_.PlayList.ListIndex();
  if (selected >= 0 && selected < controls_.PlayList.ListCount() - 1) {
    s = selected;
    exchange_lines(s, s + 1);
  }
  SongTable.swap(s + 1, s + 2);
  end_move();
}

// ListAux2 keeps its old numbers; the visible list gets new ones.
void ListHandlers::exchange_lines(std::int32_t line, std::int32_t with) {
  ListBox& twin = controls_.ListAux2;
  std::string moved = twin.List(line);
  twin.put_List(line, twin.List(with));
  twin.put_List(with, std::move(moved));
  rebuild_list();
  controls_.PlayList.put_Selected(line, false);
  controls_.PlayList.put_Selected(with, true);
}

void ListHandlers::rebuild_list() {
  const ListBox& twin = controls_.ListAux2;
  controls_.PlayList.Clear();
  for (std::int32_t i = 0; i < twin.ListCount(); ++i)
    controls_.PlayList.AddItem(LineText(i + 1, line_rest(twin.List(i), number_cut_when_moving(i))));
}

void ListHandlers::end_move() {
  state_.NextSongLoaded = kFalse;
  sound_.ListTimer->put_Enabled(true);
}

void ListHandlers::show_or_hide_list() {
  const bool show = controls_.ShowPlayList.BackColor == clBlue;
  controls_.PlayList.Visible = show;
  for (Button* button : {&controls_.LoadList, &controls_.SaveList, &controls_.UpList, &controls_.DownList})
    button->Visible = show;
  controls_.MMPanelX1[0].Visible = !show;
  controls_.ShowPlayList.BackColor = show ? clAqua : clBlue;
}

}  // namespace tandem
