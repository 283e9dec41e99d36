#include "tools/panel_script/script_words.h"

#include <cstddef>

#include "script/unknown_word.h"

namespace tandem {

namespace {

bool is_blank(char c) { return c == ' ' || c == '\t' || c == '\r'; }

// Reads what stands between quotes, from after the opening one to after the closing one.
std::string take_quoted(std::string_view line, std::size_t& at) {
  std::string text;
  for (; at < line.size(); ++at) {
    if (line[at] == '"') {
      ++at;
      return text;
    }
    const bool escaped = line[at] == '\\' && at + 1 < line.size() && (line[at + 1] == '"' || line[at + 1] == '\\');
    if (escaped) ++at;
    text += line[at];
  }
  throw UnknownWord("\"" + text);
}

std::string take_word(std::string_view line, std::size_t& at) {
  std::string word;
  while (at < line.size() && !is_blank(line[at])) {
    if (line[at] == '"') {
      word += take_quoted(line, ++at);
    } else {
      word += line[at++];
    }
  }
  return word;
}

}  // namespace

std::vector<std::string> script_words(std::string_view line) {
  std::vector<std::string> words;
  for (std::size_t at = 0; at < line.size();) {
    if (is_blank(line[at])) {
      ++at;
    } else if (line[at] == '#') {
      break;
    } else {
      words.push_back(take_word(line, at));
    }
  }
  return words;
}

}  // namespace tandem
