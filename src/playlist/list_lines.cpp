#include "playlist/list_lines.h"

#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

std::string LineText(std::int32_t number, std::string_view path) {
  return song_number_text(number).append(" - ").append(path);
}

std::string_view line_rest(std::string_view line, std::size_t cut) { return trimmed(without_first(line, cut)); }

std::size_t number_cut_when_moving(std::int32_t line) { return line <= 8 ? 5 : 4; }

std::int16_t last_separator(std::string_view path) {
  to_int16(static_cast<std::int64_t>(character_count(path)));  // the search begins at the end, with the same counter
  return to_int16(static_cast<std::int64_t>(character_count(path.substr(0, name_begin(path)))));
}

std::string folder_of(std::string_view path) {
  const std::size_t name = name_begin(path);
  if (name == 0) throw RuntimeError(RuntimeErrorKind::InvalidValue);
  return std::string(path.substr(0, name - 1));
}

std::string_view name_of(std::string_view path) { return path.substr(name_begin(path)); }

}  // namespace tandem
