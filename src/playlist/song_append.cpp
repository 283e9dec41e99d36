#include "playlist/song_append.h"

#include "controls/panel_controls.h"
#include "playlist/list_lines.h"

namespace tandem {

void SongAppender::append_accepted(const std::string& path) { append(path, std::nullopt); }
void SongAppender::append_as_given(const std::string& path) { append(path, path); }

void SongAppender::append(const std::string& path, const std::optional<std::string>& shown) {
  MMAudioFileX& probe = *sound_.TempFile;
  probe.put_FileName(path);
  const std::string accepted = probe.FileName();
  if (!accepted.empty()) state_.SongCount = to_int16(state_.SongCount + 1);

  const std::string line = LineText(state_.SongCount, shown.value_or(accepted));
  controls_.PlayList.AddItem(line);
  controls_.ListAux2.AddItem(line);

  SongEntry& entry = SongTable.at(state_.SongCount);
  entry.SongFile = accepted;
  entry.SongLength = probe.Length();
}

}  // namespace tandem
