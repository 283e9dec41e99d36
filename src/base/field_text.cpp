#include "base/field_text.h"

#include <algorithm>
#include <charconv>
#include <limits>

#include "base/rounding.h"
#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The power of ten after the "e" of a number, 0 without one, limited to what any text can outweigh.
std::int64_t exponent_of(std::string_view number) {
  constexpr std::int64_t kLimit = std::int64_t{1} << 60U;
  std::size_t begin = std::min(number.find_first_of("eE"), number.size());
  begin = std::min(begin + 1, number.size());
  if (number.substr(begin).starts_with('+')) ++begin;
  std::int64_t exponent = 0;
  const auto result = std::from_chars(number.data() + begin, number.data() + number.size(), exponent);
  if (result.ec == std::errc::result_out_of_range) return number[begin] == '-' ? -kLimit : kLimit;
  return std::clamp(exponent, -kLimit, kLimit);
}

// Of a number that is outside a double's range: whether it is too large, and not too near to zero.
bool is_too_large(std::string_view number) {
  const std::string_view digits = number.substr(0, number.find_first_of("eE"));
  const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
  const auto first = static_cast<std::int64_t>(digits.find_first_not_of("-0."));
  return point - first + exponent_of(number) > 0;
}

// The number at the front of a text, 0 if there is none (a word such as "inf" is none); what is too large for a double
// is infinite.
double leading_number(std::string_view text) {
  if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
  const std::size_t digits = std::min(text.find_first_not_of("-."), text.size());
  if (digits == text.size() || text[digits] < '0' || text[digits] > '9') return 0.0;
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error == std::errc{}) return value;
  const bool too_large = error == std::errc::result_out_of_range && is_too_large({text.data(), end});
  return too_large ? std::numeric_limits<double>::infinity() : 0.0;
}

template <class Narrow>
Narrow narrowed(double value) {
  if (!(value >= std::numeric_limits<Narrow>::min() && value <= std::numeric_limits<Narrow>::max()))
    throw RuntimeError(RuntimeErrorKind::Overflow);
  return static_cast<Narrow>(value);
}

void skip_blanks(std::string_view& text) { text.remove_prefix(std::min(text.find_first_not_of(' '), text.size())); }

}  // namespace

FieldReader::FieldReader(std::string_view text) : text_(text), rest_(text) {
  if (rest_.starts_with(kByteOrderMark)) rest_.remove_prefix(kByteOrderMark.size());
}

std::int64_t FieldReader::line() const {
  std::int64_t line = 1;
  for (std::size_t i = 0; i < field_; ++i) {
    const bool half_of_two = text_[i] == '\r' && i + 1 < text_.size() && text_[i + 1] == '\n';
    if (text_[i] == '\n' || (text_[i] == '\r' && !half_of_two)) ++line;
  }
  return line;
}

void FieldReader::begin_field() {
  field_ = text_.size() - rest_.size();
  if (at_end()) throw RuntimeError(RuntimeErrorKind::InputPastEnd);
  skip_blanks(rest_);
}

// The comma or line end at the front, if one is there.
void FieldReader::take_separator() {
  if (rest_.starts_with("\r\n")) {
    rest_.remove_prefix(2);
  } else if (rest_.starts_with(',') || rest_.starts_with('\n') || rest_.starts_with('\r')) {
    rest_.remove_prefix(1);
  }
}

// Up to the comma or the line end, which is taken too.
std::string_view FieldReader::take_field() {
  const std::string_view field = rest_.substr(0, rest_.find_first_of(",\r\n"));
  rest_.remove_prefix(field.size());
  take_separator();
  return field;
}

// A number also ends at a blank; a comma or line end after the blanks belongs to it.
double FieldReader::read_number() {
  begin_field();
  const std::string_view number = rest_.substr(0, rest_.find_first_of(" ,\r\n"));
  rest_.remove_prefix(number.size());
  skip_blanks(rest_);
  take_separator();
  return rounded_half_to_even(leading_number(number));
}

std::int16_t FieldReader::read_int16() { return narrowed<std::int16_t>(read_number()); }
std::int32_t FieldReader::read_int32() { return narrowed<std::int32_t>(read_number()); }

std::string FieldReader::read_plain_text() {
  begin_field();
  return std::string(take_field());
}

std::string FieldReader::read_text() {
  begin_field();
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
