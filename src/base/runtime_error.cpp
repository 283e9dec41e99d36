#include "base/runtime_error.h"

#include <limits>

namespace tandem {

namespace {

const char* reason(RuntimeErrorKind kind) {
  switch (kind) {
    case RuntimeErrorKind::Overflow:
      return "Overflow";
    case RuntimeErrorKind::Range:
      return "Index out of range";
    case RuntimeErrorKind::InvalidValue:
      return "Invalid property value";
    case RuntimeErrorKind::InputPastEnd:
      return "Input past end of file";
    case RuntimeErrorKind::FileNotFound:
      return "File not found";
    case RuntimeErrorKind::FileAccess:
      return "File access error";
    case RuntimeErrorKind::Cancelled:
      return "Cancelled";
  }
  return "Error";
}

template <class Narrow>
Narrow narrowed(std::int64_t value) {
  if (value < std::numeric_limits<Narrow>::min() || value > std::numeric_limits<Narrow>::max())
    throw RuntimeError(RuntimeErrorKind::Overflow);
  return static_cast<Narrow>(value);
}

}  // namespace

RuntimeError::RuntimeError(RuntimeErrorKind kind, const std::string& path)
    : std::runtime_error(path.empty() ? reason(kind) : std::string(reason(kind)) + ": " + path), kind_(kind) {}

std::int16_t to_int16(std::int64_t value) { return narrowed<std::int16_t>(value); }
std::int32_t to_int32(std::int64_t value) { return narrowed<std::int32_t>(value); }

}  // namespace tandem
