#include "platform/system/upper_case.h"

#include <utf8proc.h>
#include <array>

namespace tandem {

namespace {

constexpr utf8proc_int32_t kSharpS = 0xDF;

void append(std::string& to, utf8proc_int32_t code_point) {
  std::array<utf8proc_uint8_t, 4> bytes{};
  const utf8proc_ssize_t count = utf8proc_encode_char(code_point, bytes.data());
  to.append(bytes.begin(), bytes.begin() + count);
}

}  // namespace

std::string upper_case(std::string_view text) {
  std::string capitals;
  while (!text.empty()) {
    utf8proc_int32_t code_point = -1;
    const auto* bytes = reinterpret_cast<const utf8proc_uint8_t*>(text.data());
    const utf8proc_ssize_t count = utf8proc_iterate(bytes, static_cast<utf8proc_ssize_t>(text.size()), &code_point);
    if (count <= 0) {
      capitals.push_back(text.front());
      text.remove_prefix(1);
      continue;
    }
    append(capitals, code_point == kSharpS ? code_point : utf8proc_toupper(code_point));
    text.remove_prefix(static_cast<std::size_t>(count));
  }
  return capitals;
}

}  // namespace tandem
