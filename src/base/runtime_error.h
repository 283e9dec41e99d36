// The errors that end a handler. The caller of the handler decides what becomes of them: see
// shell/panel_wiring. Any thread.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace tandem {

enum class RuntimeErrorKind { Overflow, Range, InvalidValue, InputPastEnd, FileNotFound, FileAccess, Cancelled };

// what() is the reason, then the path if there is one: "File not found: /opt/tandem/TP.inf".
class RuntimeError : public std::runtime_error {
 public:
  explicit RuntimeError(RuntimeErrorKind kind, const std::string& path = {});
  RuntimeErrorKind kind() const { return kind_; }

 private:
  RuntimeErrorKind kind_;
};

// The panel's variables are 16 bits wide: a value that does not fit throws Overflow.
std::int16_t to_int16(std::int64_t value);
std::int32_t to_int32(std::int64_t value);

// Flags are 16-bit with -1 for true; a test takes any other than 0 as true.
using Flag = std::int16_t;
inline constexpr Flag kTrue = -1;
inline constexpr Flag kFalse = 0;

}  // namespace tandem
