// The endings of the names of songs and of saved lists. Letter case does not matter (ASCII). Any thread; nothing fails.
#pragma once

#include <array>
#include <string_view>

namespace tandem {

inline constexpr std::array<std::string_view, 2> kSongEndings{".mp3", ".wav"};
inline constexpr std::string_view kListEnding = ".m3l";

bool ends_in(std::string_view path, std::string_view ending);  // the ending in lower case
bool ends_as_song(std::string_view path);
inline bool ends_as_list(std::string_view path) { return ends_in(path, kListEnding); }

}  // namespace tandem
