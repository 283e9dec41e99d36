#include "base/text.h"

#include <cctype>

#include <algorithm>

namespace tandem {

namespace {

bool continues(char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U; }

// How many bytes a lead byte announces; 1 for what cannot lead.
std::size_t announced(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return 2;
  if (lead >= 0xE0 && lead <= 0xEF) return 3;
  if (lead >= 0xF0 && lead <= 0xF4) return 4;
  return 1;
}

// Overlong forms, surrogates and what lies above U+10FFFF are recognised by the second byte.
bool second_byte_fits(unsigned char lead, unsigned char second) {
  switch (lead) {
    case 0xE0:
      return second >= 0xA0;
    case 0xED:
      return second <= 0x9F;
    case 0xF0:
      return second >= 0x90;
    case 0xF4:
      return second <= 0x8F;
    default:
      return true;
  }
}

// Bytes of the character at the front of a non-empty text; an invalid byte is a character of its own.
std::size_t character_bytes(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t bytes = announced(lead);
  if (bytes == 1 || text.size() < bytes) return 1;
  const std::string_view rest = text.substr(1, bytes - 1);
  if (!std::all_of(rest.begin(), rest.end(), continues)) return 1;
  return second_byte_fits(lead, static_cast<unsigned char>(rest.front())) ? bytes : 1;
}

std::size_t bytes_of_first(std::string_view text, std::size_t count) {
  std::size_t bytes = 0;
  for (; count > 0 && bytes < text.size(); --count) bytes += character_bytes(text.substr(bytes));
  return bytes;
}

}  // namespace

std::size_t character_count(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(character_bytes(text));
  return count;
}

std::string_view first_characters(std::string_view text, std::size_t count) {
  return text.substr(0, bytes_of_first(text, count));
}

std::string_view without_first(std::string_view text, std::size_t count) {
  return text.substr(bytes_of_first(text, count));
}

std::string_view trimmed(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::string number_text(std::int64_t value) { return (value < 0 ? "" : " ") + std::to_string(value); }

std::string song_number_text(std::int64_t number) { return (number < 10 ? "0" : "") + std::to_string(number); }

std::size_t name_begin(std::string_view path) {
  const std::size_t last = path.rfind(kPathSeparator);
  return last == std::string_view::npos ? 0 : last + 1;
}

std::string any_case(std::string_view patterns) {
  std::string result;
  for (const char c : patterns) {
    const auto letter = static_cast<unsigned char>(c);
    if (letter >= 0x80 || std::isalpha(letter) == 0) {
      result += c;
    } else {
      result += {'[', static_cast<char>(std::tolower(letter)), static_cast<char>(std::toupper(letter)), ']'};
    }
  }
  return result;
}

}  // namespace tandem
