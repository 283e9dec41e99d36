#include "base/field_text.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "support/runtime_error_kind.h"

namespace tandem {
namespace {

using test::error_of;

std::vector<std::string> text_fields(std::string_view text) {
  std::vector<std::string> fields;
  for (FieldReader reader(text); !reader.at_end();) fields.push_back(reader.read_text());
  return fields;
}

std::int16_t read_one(std::string_view text) { return FieldReader(text).read_int16(); }

TEST(NumberField, BlanksAroundANumberAreSkipped) {
  FieldReader reader(" 7 \r\n-12 \r\n  300\n");
  EXPECT_EQ(reader.read_int16(), 7);
  EXPECT_EQ(reader.read_int16(), -12);
  EXPECT_EQ(reader.read_int16(), 300);
  EXPECT_TRUE(reader.at_end());
}

TEST(NumberField, EndsAtBlankCommaOrLineEnd) {
  FieldReader reader("1 2,3\n4\r\n5");
  for (const int expected : {1, 2, 3, 4, 5}) EXPECT_EQ(reader.read_int16(), expected);
  EXPECT_TRUE(reader.at_end());
}

TEST(NumberField, ACommaAfterBlanksBelongsToTheNumber) {
  FieldReader reader("1 , 2");
  EXPECT_EQ(reader.read_int16(), 1);
  EXPECT_EQ(reader.read_int16(), 2);
}

TEST(NumberField, TextThatIsNoNumberReadsZero) {
  for (const char* text : {"abc", "/music", "-", "+", ".", "inf", "nan", "+-5", "-inf", " "})
    EXPECT_EQ(read_one(text), 0) << text;
}

TEST(NumberField, AnEmptyLineReadsZero) {
  FieldReader reader("\r\n8\r\n");
  EXPECT_EQ(reader.read_int16(), 0);
  EXPECT_EQ(reader.read_int16(), 8);
}

TEST(NumberField, OnlyTheFrontOfAFieldCounts) { EXPECT_EQ(read_one("12abc"), 12); }

TEST(NumberField, MayHaveSignAndExponent) {
  EXPECT_EQ(read_one("+5"), 5);
  EXPECT_EQ(read_one("1e3"), 1000);
  EXPECT_EQ(read_one("-.5e1"), -5);
}

TEST(NumberField, AFractionIsRoundedHalfToEven) {
  EXPECT_EQ(read_one("0.5"), 0);
  EXPECT_EQ(read_one("1.5"), 2);
  EXPECT_EQ(read_one("2.5"), 2);
  EXPECT_EQ(read_one("-1.5"), -2);
  EXPECT_EQ(read_one("-2.5"), -2);
  EXPECT_EQ(read_one("2.6"), 3);
}

TEST(NumberField, TheWidthIsSixteenOrThirtyTwoBits) {
  EXPECT_EQ(read_one("32767"), 32767);
  EXPECT_EQ(read_one("-32768"), -32768);
  EXPECT_EQ(FieldReader("2147483647").read_int32(), 2147483647);
  EXPECT_EQ(error_of([] { read_one("32768"); }), RuntimeErrorKind::Overflow);
  EXPECT_EQ(error_of([] { read_one("-32769"); }), RuntimeErrorKind::Overflow);
  EXPECT_EQ(error_of([] { FieldReader("2147483648").read_int32(); }), RuntimeErrorKind::Overflow);
  EXPECT_EQ(error_of([] { FieldReader("1e999").read_int32(); }), RuntimeErrorKind::Overflow);
}

TEST(NumberField, ANumberTooNearToZeroIsZero) {
  for (const char* text : {"1e-999", "-1e-999", "0.00001e-400", "1e-99999999999999999999", "12345e-600abc", "0e999"})
    EXPECT_EQ(read_one(text), 0) << text;
  EXPECT_EQ(read_one("0." + std::string(400, '0') + "1"), 0);
  EXPECT_EQ(read_one("0." + std::string(400, '0') + "7e401"), 7);
}

TEST(NumberField, ANumberTooLargeForADoubleIsAnOverflow) {
  const std::string long_number(400, '9');
  for (const std::string& text : {std::string("1e+999"), std::string("-1e999"), std::string("0.0001e400"),
                                  std::string("1e99999999999999999999"), long_number, long_number + "e-5"})
    EXPECT_EQ(error_of([&] { read_one(text); }), RuntimeErrorKind::Overflow) << text;
}

TEST(NumberField, ALoneCarriageReturnEndsALine) {
  FieldReader reader("1\r 2 \r\r\n3");
  for (const int expected : {1, 2, 0, 3}) EXPECT_EQ(reader.read_int16(), expected);
}

TEST(NumberField, AByteOrderMarkAtTheFrontIsPassedOver) { EXPECT_EQ(read_one("\xEF\xBB\xBF 7 \r\n"), 7); }

TEST(FieldLine, IsThatOfTheFieldReadLast) {
  FieldReader reader(
      "\xEF\xBB\xBF"
      "1,2\r\n3\r4\n\n\"a\nb\"\r\n 40000 ");
  const auto line_of_next = [&reader] {
    reader.read_text();
    return reader.line();
  };
  for (const int expected : {1, 1, 2, 3, 4, 5}) EXPECT_EQ(line_of_next(), expected);
  EXPECT_THROW(reader.read_int16(), RuntimeError);
  EXPECT_EQ(reader.line(), 7);
}

TEST(NumberField, RoundingComesBeforeTheWidth) {
  EXPECT_EQ(read_one("32767.4"), 32767);
  EXPECT_EQ(error_of([] { read_one("32767.5"); }), RuntimeErrorKind::Overflow);
}

TEST(NumberField, BeyondTheEndIsAnError) {
  EXPECT_EQ(error_of([] { read_one(""); }), RuntimeErrorKind::InputPastEnd);
  FieldReader reader("1\r\n");
  reader.read_int16();
  EXPECT_EQ(error_of([&] { reader.read_int16(); }), RuntimeErrorKind::InputPastEnd);
}

TEST(TextField, LeadingAndTrailingBlanksAreDropped) {
  EXPECT_EQ(text_fields(" /a b.mp3  \r\n"), std::vector<std::string>{"/a b.mp3"});
}

TEST(TextField, ACommaEndsAFieldAsALineEndDoes) {
  EXPECT_EQ(text_fields(" /a,b.mp3\r\n /c\r\n"), (std::vector<std::string>{"/a", "b.mp3", "/c"}));
}

TEST(TextField, AllLineEndsAndNoneAtTheEnd) {
  EXPECT_EQ(text_fields("/a\n/b\r\n/c"), (std::vector<std::string>{"/a", "/b", "/c"}));
}

TEST(TextField, AQuotedFieldRunsToTheClosingQuote) {
  EXPECT_EQ(text_fields("\" /a, b \"\r\n/c\r\n"), (std::vector<std::string>{" /a, b ", "/c"}));
  EXPECT_EQ(text_fields("\"/a\nb\",c"), (std::vector<std::string>{"/a\nb", "c"}));
  EXPECT_EQ(text_fields("\"never closed"), std::vector<std::string>{"never closed"});
}

TEST(TextField, EmptyLinesAreEmptyFields) {
  EXPECT_EQ(text_fields("\r\n/a\r\n\r\n"), (std::vector<std::string>{"", "/a", ""}));
}

TEST(TextField, BytesAreTakenAsTheyAre) {
  const std::string odd("\xff\x01\0x", 4);
  EXPECT_EQ(text_fields(odd + "\r\n"), std::vector<std::string>{odd});
}

TEST(TextField, ALoneCarriageReturnEndsALine) {
  EXPECT_EQ(text_fields("/a\r/b\r\r\n/c\r"), (std::vector<std::string>{"/a", "/b", "", "/c"}));
}

TEST(TextField, AByteOrderMarkAtTheFrontIsPassedOver) {
  EXPECT_EQ(text_fields("\xEF\xBB\xBF/a\r\n\xEF\xBB\xBF/b\r\n"), (std::vector<std::string>{"/a", "\xEF\xBB\xBF/b"}));
  EXPECT_TRUE(FieldReader("\xEF\xBB\xBF").at_end());
}

TEST(TextField, BeyondTheEndIsAnError) {
  EXPECT_EQ(error_of([] { FieldReader("").read_text(); }), RuntimeErrorKind::InputPastEnd);
  EXPECT_EQ(error_of([] { FieldReader("").read_plain_text(); }), RuntimeErrorKind::InputPastEnd);
}

TEST(PlainTextField, OnlyLeadingBlanksGoAndQuotesAreLetters) {
  EXPECT_EQ(FieldReader("  \"a\" b  \r\n").read_plain_text(), "\"a\" b  ");
  EXPECT_EQ(FieldReader("/x,y").read_plain_text(), "/x");
  EXPECT_EQ(FieldReader("\r\n").read_plain_text(), "");
}

TEST(Lines, OfNumbersHaveBlanksAndOfTextsNone) {
  EXPECT_EQ(number_line(7), " 7 \r\n");
  EXPECT_EQ(number_line(-12), "-12 \r\n");
  EXPECT_EQ(number_line(0), " 0 \r\n");
  EXPECT_EQ(text_line("/a b"), "/a b\r\n");
}

}  // namespace
}  // namespace tandem
