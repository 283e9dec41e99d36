#include "base/natural_order.h"

#include <algorithm>
#include <cstddef>

namespace tandem {

namespace {

bool is_digit(char c) { return c >= '0' && c <= '9'; }

int fold(char c) {
  const int byte = static_cast<unsigned char>(c);
  return c >= 'A' && c <= 'Z' ? byte + ('a' - 'A') : byte;
}

// Takes the run of digits at the front, without its leading zeros.
std::string_view take_number(std::string_view& text) {
  std::size_t length = 0;
  while (length < text.size() && is_digit(text[length])) ++length;
  std::string_view digits = text.substr(0, length);
  text.remove_prefix(length);
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

int compare_numbers(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
  return a.compare(b);
}

int compare_next(std::string_view& a, std::string_view& b) {
  if (is_digit(a.front()) && is_digit(b.front())) return compare_numbers(take_number(a), take_number(b));
  const int difference = fold(a.front()) - fold(b.front());
  a.remove_prefix(1);
  b.remove_prefix(1);
  return difference;
}

}  // namespace

bool natural_less(std::string_view a, std::string_view b) {
  std::string_view rest_a = a;
  std::string_view rest_b = b;
  while (!rest_a.empty() && !rest_b.empty())
    if (const int order = compare_next(rest_a, rest_b); order != 0) return order < 0;
  if (rest_a.empty() != rest_b.empty()) return rest_a.empty();
  return a < b;
}

}  // namespace tandem
