#include "base/field_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "base/rounding.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

namespace {

// The number at the front of a text, 0 if there is none (a word such as "inf" is none); what is too large for a double
// is infinite.
double leading_number(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const std::size_t digits = std::min(text.find_first_not_of("-."), text.size());
  if (digits == text.size() || text[digits] < '0' || text[digits] > '9') return 0.0;
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc::result_out_of_range) return std::numeric_limits<double>::infinity();
  return error == std::errc{} ? value : 0.0;
}

template <class Narrow>
Narrow narrowed(double value) {
  if (!(value >= std::numeric_limits<Narrow>::min() && value <= std::numeric_limits<Narrow>::max()))
    throw RuntimeError(RuntimeErrorKind::Overflow);
  return static_cast<Narrow>(value);
}

}  // namespace

void FieldReader::skip_blanks() { rest_.remove_prefix(std::min(rest_.find_first_not_of(' '), rest_.size())); }

// Up to the comma or the line end, which is taken too. A CR belongs to the line end only in front of its LF.
std::string_view FieldReader::take_field() {
  const std::size_t length = std::min(rest_.find_first_of(",\n"), rest_.size());
  std::string_view field = rest_.substr(0, length);
  if (length < rest_.size() && rest_[length] == '\n' && field.ends_with('\r')) field.remove_suffix(1);
  rest_.remove_prefix(std::min(length + 1, rest_.size()));
  return field;
}

// A number also ends at a blank; a comma or line end behind the blanks belongs to it.
double FieldReader::read_number() {
  if (at_end()) throw RuntimeError(RuntimeErrorKind::InputPastEnd);
  skip_blanks();
  const std::size_t length = std::min(rest_.find_first_of(" ,\r\n"), rest_.size());
  const double value = leading_number(rest_.substr(0, length));
  rest_.remove_prefix(length);
  skip_blanks();
  if (rest_.starts_with(',') || rest_.starts_with('\n') || rest_.starts_with("\r\n")) take_field();
  return rounded_half_to_even(value);
}

std::int16_t FieldReader::read_int16() { return narrowed<std::int16_t>(read_number()); }
std::int32_t FieldReader::read_int32() { return narrowed<std::int32_t>(read_number()); }

std::string FieldReader::read_plain_text() {
  if (at_end()) throw RuntimeError(RuntimeErrorKind::InputPastEnd);
  skip_blanks();
  return std::string(take_field());
}

std::string FieldReader::read_text() {
  if (at_end()) throw RuntimeError(RuntimeErrorKind::InputPastEnd);
  skip_blanks();
  if (!rest_.starts_with('"')) return std::string(trimmed(take_field()));
  rest_.remove_prefix(1);
  const std::size_t length = std::min(rest_.find('"'), rest_.size());
  std::string text(rest_.substr(0, length));
  rest_.remove_prefix(std::min(length + 1, rest_.size()));
  take_field();  // what stands between the closing quote and the field's end
  return text;
}

std::string number_line(std::int64_t value) { return number_text(value) + " \r\n"; }
std::string text_line(std::string_view text) { return std::string(text) + "\r\n"; }

}  // namespace tandem
