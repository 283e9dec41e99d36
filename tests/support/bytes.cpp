#include "support/bytes.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace tandem::test {

Bytes read_file(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void write_file(const std::string& path, const Bytes& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  if (!file) throw std::runtime_error("cannot write " + path);
}

Bytes text_bytes(const std::string& text) { return {text.begin(), text.end()}; }

Bytes random_bytes(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  Bytes bytes(count);
  for (auto& byte : bytes) byte = static_cast<std::uint8_t>(random() >> 13U);
  return bytes;
}

Bytes number_bytes(std::uint64_t value, unsigned count, bool big_endian) {
  Bytes bytes;
  for (unsigned i = 0; i < count; ++i) {
    const unsigned shift = 8 * (big_endian ? count - 1 - i : i);
    bytes.push_back(static_cast<std::uint8_t>(value >> shift & 0xFFU));
  }
  return bytes;
}

Bytes operator+(Bytes left, const Bytes& right) {
  left.insert(left.end(), right.begin(), right.end());
  return left;
}

Bytes slice(const Bytes& bytes, std::size_t begin, std::size_t end) {
  return {bytes.begin() + static_cast<std::ptrdiff_t>(begin), bytes.begin() + static_cast<std::ptrdiff_t>(end)};
}

}  // namespace tandem::test
