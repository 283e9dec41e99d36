// Files as byte strings, and numbers as bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tandem::test {

using Bytes = std::vector<std::uint8_t>;

Bytes read_file(const std::string& path);  // throws if it cannot be read
void write_file(const std::string& path, const Bytes& bytes);

Bytes text_bytes(const std::string& text);
Bytes random_bytes(std::size_t count, unsigned seed);
Bytes number_bytes(std::uint64_t value, unsigned count, bool big_endian = false);
Bytes operator+(Bytes left, const Bytes& right);
Bytes slice(const Bytes& bytes, std::size_t begin, std::size_t end);

}  // namespace tandem::test
