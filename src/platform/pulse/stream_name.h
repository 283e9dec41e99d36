// What the sound server shows its users as the name of the stream. UTF-8, cut to what has room. Any thread.
#pragma once

#include <algorithm>
#include <array>
#include <string_view>

namespace tandem {

struct StreamName {
  std::array<char, 256> text{};  // ends with a zero

  StreamName() : StreamName("Tandem") {}
  explicit StreamName(std::string_view name) {
    std::size_t length = std::min(name.size(), text.size() - 1);
    // Not within a character: what goes on from there begins with the bits 10.
    while (length < name.size() && length > 0 && (static_cast<unsigned char>(name[length]) & 0xC0U) == 0x80U) --length;
    std::copy_n(name.begin(), length, text.begin());
  }
  bool operator==(const StreamName&) const = default;
};

}  // namespace tandem
