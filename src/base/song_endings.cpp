#include "base/song_endings.h"

#include <algorithm>

namespace tandem {

namespace {

char lower(char letter) { return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter; }

}  // namespace

bool ends_in(std::string_view path, std::string_view ending) {
  if (path.size() < ending.size()) return false;
  path.remove_prefix(path.size() - ending.size());
  return std::equal(path.begin(), path.end(), ending.begin(), [](char a, char b) { return lower(a) == b; });
}

bool ends_as_song(std::string_view path) {
  return std::any_of(kSongEndings.begin(), kSongEndings.end(),
                     [path](std::string_view ending) { return ends_in(path, ending); });
}

}  // namespace tandem
