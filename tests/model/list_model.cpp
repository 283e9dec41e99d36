// The list: lines, song table, song loading, playlist files.
#include <algorithm>

#include "model/panel_model.h"

namespace tandem::model {

namespace {
constexpr std::string_view kSongs = "MP3 and Wave Files (MP3 / WAV)|*.mp3;*.wav";
constexpr std::string_view kPlaylists = "PlayList Files (M3L)|*.m3l";
// The text before the last separator.
std::string folder_of(const std::string& path) {
  const std::size_t separator = path.rfind('/');
  if (separator == std::string::npos) throw Ended{};
  return path.substr(0, separator);
}
}  // namespace

void PanelModel::click_line(Number clicked) {
  look.ListIndex = clicked;
  look.SelectedEntry = clicked;
  std::string& caption = look.SongLabel.Caption;
  if (characters_of(caption).size() < 14) {
    look.SongLabel.Scrolling = false;
  } else if (!caption.starts_with("    ")) {
    caption += kBlanks;
    look.SongLabel.Scrolling = true;
  }
}

void PanelModel::double_click_line(Number clicked) {
  click_line(clicked);
  const Number number = look.SelectedEntry + 1;
  if (number == look.CurrentSong && look.MixTimer != 0) return;
  look.ListTimer = false;
  for (auto* list : {&look.PlayList, &look.ListAux2}) list->erase(list->begin() + look.SelectedEntry);
  look.ListIndex = -1;
  song(number) = {"*", 0};
  if (number < look.CurrentSong) --look.CurrentSong;
  renumber(look.PlayList, look.PlayList.size());
  renumber(look.ListAux2, look.PlayList.size());
  compact_table();
  --look.SongCount;
  start_list_timer();
}

void PanelModel::renumber(std::vector<std::string>& list, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i)
    list.at(i) = line_text(static_cast<Number>(i) + 1, trim(without_first(list.at(i), 5)));
}

void PanelModel::compact_table() {
  std::size_t shift = 0;
  for (std::size_t k = 1; k <= 199; ++k) {
    if (SongTable.at(k).SongFile == "*") ++shift;
    const Song& from = song(static_cast<Number>(k + shift));
    SongTableCopy_.at(k) = {trim(from.SongFile), from.SongLength};
  }
  for (std::size_t k = 1; k <= 200; ++k)
    SongTable.at(k) = {trim(SongTableCopy_.at(k).SongFile), SongTableCopy_.at(k).SongLength};
}

void PanelModel::rebuild_list() {
  look.PlayList.clear();
  look.ListIndex = -1;
  for (std::size_t i = 0; i < look.ListAux2.size(); ++i)
    look.PlayList.push_back(
        line_text(static_cast<Number>(i) + 1, trim(without_first(look.ListAux2[i], i <= 8 ? 5 : 4))));
}

void PanelModel::swap_songs(Number number) {
  Song& second = song(number + 1);
  std::swap(song(number), second);
}

void PanelModel::move_up() {
  look.NextBtn.Enabled = false;
  look.ListTimer = false;
  Number moved = 0;
  if (look.ListIndex > 0) {
    moved = look.ListIndex;
    std::swap(look.ListAux2.at(static_cast<std::size_t>(moved) - 1), look.ListAux2.at(static_cast<std::size_t>(moved)));
    rebuild_list();
    put_index(moved - 1);
  }
  swap_songs(moved);  // at the top too: entries 0 and 1
  look.NextSongLoaded = 0;
  start_list_timer();
}

void PanelModel::move_down() {
  look.ListTimer = false;
  look.NextBtn.Enabled = false;
  Number moved = 0;
  if (look.ListIndex >= 0 && look.ListIndex < static_cast<Number>(look.PlayList.size()) - 1) {
    moved = look.ListIndex;
    std::swap(look.ListAux2.at(static_cast<std::size_t>(moved)), look.ListAux2.at(static_cast<std::size_t>(moved) + 1));
    rebuild_list();
    put_index(moved + 1);
  }
  swap_songs(moved + 1);  // at the bottom too: entries 1 and 2
  look.NextSongLoaded = 0;
  start_list_timer();
}

void PanelModel::toggle_list() {
  const bool show = look.ShowPlayList.Colour == 0xFF0000;
  look.PlayListVisible = show;
  for (Box* key : {&look.LoadList, &look.SaveList, &look.UpList, &look.DownList}) key->Visible = show;
  look.EqualizerVisible = !show;
  look.ShowPlayList.Colour = show ? 0xFFFF00 : 0xFF0000;
}

PanelModel::Probe PanelModel::probe(const std::string& name) const {
  const auto known = files_.lengths.find(name);
  return known == files_.lengths.end() ? Probe{} : Probe{name, known->second};
}

void PanelModel::append_line(const std::string& path) {
  for (auto* list : {&look.PlayList, &look.ListAux2}) list->push_back(line_text(look.SongCount, path));
}

// A refused file gets a line and takes the table entry of the song before it.
void PanelModel::add_one(const std::string& name) {
  const Probe probed = probe(name);
  if (!probed.FileName.empty()) ++look.SongCount;
  append_line(probed.FileName);
  song(look.SongCount) = {probed.FileName, probed.Length};
}

void PanelModel::label_first(const std::string& title) {
  look.SongLabel.Caption = title;
  if (characters_of(title).size() >= 14 && !title.starts_with("    ")) {
    look.SongLabel.Caption += kBlanks;
    look.SongLabel.Scrolling = true;
  }
  look.LblTempTot.Caption = song_time_text(song(1).SongLength);
}

void PanelModel::load_song(const std::string& answer) {
  look.InitDir = look.LastFolder;
  look.Filter = kSongs;
  if (answer.empty()) throw Ended{};
  add_songs(answer);
}

void PanelModel::add_songs(const std::string& names) {
  look.LastFolder = folder_of(names);
  const std::vector<std::string> characters = characters_of(names);
  look.ListAux = characters;
  for (std::string& one : look.ListAux)
    if (one == std::string(1, '\0')) one.clear();
  const auto empty = std::find(look.ListAux.begin() + 1, look.ListAux.end(), "");
  if (empty != look.ListAux.end()) {
    add_many(characters, static_cast<std::size_t>(empty - look.ListAux.begin()));
  } else {
    add_one(names);
    if (look.SongCount == 1) {
      const std::string& file = song(1).SongFile;
      label_first(capitals(file.substr(file.rfind('/') + 1)));
    }
  }
  look.NextSongLoaded = 0;
}

void PanelModel::add_many(const std::vector<std::string>& characters, std::size_t folder_length) {
  look.LastFolder.clear();
  for (std::size_t i = 0; i < folder_length; ++i) look.LastFolder += characters[i];
  const std::size_t count = characters.size();
  std::size_t start = folder_length + 2;  // counted from 1; a last name of one letter is passed over
  std::size_t names = 0;
  while (start < count) {
    std::string name;
    for (; start <= count && !look.ListAux[start - 1].empty(); ++start) name += characters[start - 1];
    if (names > 200) throw Ended{};
    PickedNames_.at(names++) = name;
    ++start;
  }
  for (std::size_t i = names; i-- > 0;) add_one(look.LastFolder + "/" + PickedNames_.at(i));
  label_first(capitals(PickedNames_.at(0)));
}

void PanelModel::save(const std::string& answer) {
  look.Filter = kPlaylists;
  if (answer.empty()) throw Ended{};
  std::string bytes;
  for (Number i = 0; i <= 199 && !line(i).empty(); ++i) bytes += without_first(line(i), 4) + "\r\n";
  disk[answer] = bytes;
}

void PanelModel::open(const std::string& answer) {
  look.InitDir = look.LastFolder;
  look.Filter = kPlaylists;
  if (answer.empty()) throw Ended{};
  look.LastFolder = folder_of(answer);
  if (!disk.contains(answer)) throw Ended{};
  const std::vector<std::string> fields = fields_of(disk.at(answer));
  if (fields.size() > 201) throw Ended{};
  look.PlayList.clear();  // but not ListAux2
  look.ListIndex = -1;
  look.SongCount = 0;
  for (const std::string& field : fields) {
    const Probe probed = probe(field);
    if (!probed.FileName.empty()) ++look.SongCount;
    append_line(field);
    song(look.SongCount) = {probed.FileName, probed.Length};
  }
}

std::vector<std::string> fields_of(const std::string& bytes) {
  std::vector<std::string> fields;
  std::size_t at = 0;
  const auto ends = [&bytes](std::size_t i) { return bytes[i] == ',' || bytes[i] == '\n' || bytes[i] == '\r'; };
  while (at < bytes.size()) {
    while (at < bytes.size() && bytes[at] == ' ') ++at;
    const bool quoted = at < bytes.size() && bytes[at] == '"';
    const std::size_t from = quoted ? at + 1 : at;
    std::size_t to = from;
    while (to < bytes.size() && (quoted ? bytes[to] != '"' : !ends(to))) ++to;
    const std::string text = bytes.substr(from, to - from);
    fields.push_back(quoted ? text : trim(text));
    for (at = to; at < bytes.size() && !ends(at);) ++at;
    if (at < bytes.size() && bytes[at] == '\r') ++at;
    if (at < bytes.size() && (bytes[at] == '\n' || bytes[at] == ',')) ++at;
  }
  return fields;
}

}  // namespace tandem::model
