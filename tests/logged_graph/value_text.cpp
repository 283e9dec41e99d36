#include "logged_graph/value_text.h"

#include <array>
#include <charconv>

namespace tandem {

std::string number_word(double value) {
  std::array<char, 400> digits{};
  const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value, std::chars_format::fixed).ptr;
  return {digits.data(), end};
}

std::string boolean_word(bool value) { return value ? "True" : "False"; }

std::string quoted_text(std::string_view text) {
  std::string quoted = "\"";
  for (const char letter : text) {
    if (letter == '"' || letter == '\\') quoted += '\\';
    quoted += letter;
  }
  return quoted + '"';
}

}  // namespace tandem
