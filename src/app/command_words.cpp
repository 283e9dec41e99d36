#include "app/command_words.h"

#include <string_view>

#include "desktop/version.h"

namespace tandem {

namespace {

constexpr const char* kHelp =
    "Usage: tandem\n"
    "Plays MP3 and WAV files and overlaps each song with the next.\n\n"
    "There is no command line: songs come by the panel's SONG and Open keys, by a drop on the window or by the\n"
    "desktop's \"Open with\". The settings are in the file TP.inf beside the program, or beside the link to it.\n\n"
    "  --version  print the version and end\n"
    "  --help     print this and end\n";

}  // namespace

std::optional<std::string> answer_to_words(int count, const char* const* words) {
  if (count != 2) return std::nullopt;
  const std::string_view word = words[1];
  if (word == "--version") return std::string("Tandem ") + kVersion + '\n';
  if (word == "--help") return kHelp;
  return std::nullopt;
}

}  // namespace tandem
