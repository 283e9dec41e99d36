// Free-format text fields, as settings and playlist files hold them. Bytes are taken as they are. Any thread; a reader
// is used by one at a time. Failure: RuntimeError as said below.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tandem {

// Reads fields one after the other. Line ends are CR LF, LF or CR; the last line may lack its end. A byte order mark
// (UTF-8) at the front is passed over. The text outlives the reader.
class FieldReader {
 public:
  explicit FieldReader(std::string_view text);

  bool at_end() const { return rest_.empty(); }
  // The line, from 1, on which the field read last begins: for an error report.
  std::int64_t line() const;

  // A number field ends at a blank, a comma or the line end; blanks around it are skipped. Text that is no number reads
  // 0, a fraction is rounded half to even. Throws InputPastEnd at the end of the text, Overflow outside the width.
  std::int16_t read_int16();
  std::int32_t read_int32();

  // A text field: leading and trailing blanks are dropped; it ends at a comma or the line end; one that begins with a
  // double quote runs to the closing quote. Throws InputPastEnd at the end of the text.
  std::string read_text();
  // The same, but only leading blanks are dropped, and quotes are ordinary characters.
  std::string read_plain_text();

 private:
  void begin_field();
  double read_number();
  std::string_view take_field();
  void take_separator();

  std::string_view text_;
  std::string_view rest_;
  std::size_t field_ = 0;  // where in the text the field read last begins
};

// A number line: the number text and one blank, then CR LF. A text line: the text, then CR LF.
std::string number_line(std::int64_t value);
std::string text_line(std::string_view text);

}  // namespace tandem
