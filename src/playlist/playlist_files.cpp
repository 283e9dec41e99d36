#include "playlist/playlist_files.h"

#include "base/field_text.h"
#include "base/text.h"
#include "base/whole_file.h"
#include "controls/panel_controls.h"
#include "playlist/list_lines.h"

namespace tandem {

namespace {

constexpr const char* kFilter = "PlayList Files (M3L)|*.m3l";

// Up to the first line that is empty or does not exist.
std::string file_text(const ListBox& list) {
  std::string text;
  for (std::int32_t i = 0; i < SongEntries::kLastSong && !list.List(i).empty(); ++i)
    text += text_line(without_first(list.List(i), kSavedCut));
  return text;
}

}  // namespace

void PlaylistFiles::save() {
  FileDialog& dialog = controls_.CommonDialog;
  dialog.Filter = kFilter;
  dialog.ShowSave();
  replace_whole_file(dialog.FileName, file_text(controls_.PlayList));
}

void PlaylistFiles::open() {
  FileDialog& dialog = controls_.CommonDialog;
  dialog.InitDir = state_.LastFolder;
  dialog.Filter = kFilter;
  dialog.ShowOpen();
  open_list(dialog.FileName);
}

void PlaylistFiles::open_list(const std::string& path) {
  state_.LastFolder = folder_of(path);
  const std::size_t n = read_fields(path);
  controls_.PlayList.Clear();
  state_.SongCount = 0;
  for (std::size_t k = 0; k < n; ++k) appender_.append_as_given(ListFileLines[k]);
}

std::size_t PlaylistFiles::read_fields(const std::string& path) {
  const std::string text = read_whole_file(path);
  std::size_t n = 0;
  for (FieldReader fields(text); !fields.at_end(); ++n) {
    if (n >= ListFileLines.size()) throw RuntimeError(RuntimeErrorKind::Range);
    ListFileLines[n] = fields.read_text();
  }
  return n;
}

}  // namespace tandem
