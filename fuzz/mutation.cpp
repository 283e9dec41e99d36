#include "mutation.h"

#include <algorithm>
#include <array>

namespace tandem::fuzz {

namespace {

class Mutation {
 public:
  Mutation(Bytes& bytes, const Bytes& other, std::mt19937_64& random) : bytes_(bytes), other_(other), random_(random) {}

  void change() {
    if (bytes_.empty()) return insert_noise();
    switch (below(9)) {
      case 0:
      case 1:
        return flip_bit();
      case 2:
        return put_byte();
      case 3:
      case 4:
        return put_number();
      case 5:
        return leave_out();
      case 6:
        return repeat();
      case 7:
        return below(4) == 0 ? cut() : insert_noise();
      default:
        return take_from_other();
    }
  }

 private:
  std::size_t below(std::size_t limit) { return limit == 0 ? 0 : static_cast<std::size_t>(random_() % limit); }
  std::uint8_t byte() { return static_cast<std::uint8_t>(random_()); }
  // Headers are near the beginning.
  std::size_t place() {
    return below(2) == 0 ? below(std::min<std::size_t>(bytes_.size(), 128)) : below(bytes_.size());
  }
  std::size_t piece(std::size_t most) { return below(below(4) == 0 ? most + 1 : std::min<std::size_t>(most, 16) + 1); }

  void flip_bit() {
    std::uint8_t& target = bytes_[place()];
    target = static_cast<std::uint8_t>(target ^ (1U << below(8)));
  }
  void put_byte() { bytes_[place()] = byte(); }

  void put_number() {
    constexpr std::array<std::uint64_t, 14> kNumbers{0,      1,      2,     0x7F,       0x80,       0xFF,       0x7FFF,
                                                     0x8000, 0xFFFF, 44100, 0x7FFFFFFF, 0x80000000, 0xFFFFFFFF, ~0ULL};
    const std::uint64_t number = kNumbers[below(kNumbers.size())] + below(3) - 1;
    const std::size_t width = std::size_t{1} << below(4);
    const bool big_endian = below(2) == 0;
    const std::size_t at = place();
    for (std::size_t i = 0; i < width && at + i < bytes_.size(); ++i)
      bytes_[at + i] = static_cast<std::uint8_t>(number >> 8 * (big_endian ? width - 1 - i : i));
  }

  void leave_out() {
    const std::size_t at = place();
    erase(at, piece(bytes_.size() - at));
  }
  void cut() { bytes_.resize(below(bytes_.size())); }

  void repeat() {
    const std::size_t at = place();
    const Bytes copy(bytes_.begin() + offset(at), bytes_.begin() + offset(at + piece(bytes_.size() - at)));
    insert(place(), copy);
  }
  void insert_noise() {
    Bytes noise(1 + below(20));
    for (std::uint8_t& one : noise) one = byte();
    insert(bytes_.empty() ? 0 : place(), noise);
  }
  void take_from_other() {
    if (other_.empty()) return flip_bit();
    const std::size_t from = below(other_.size());
    const std::size_t size = piece(other_.size() - from);
    const Bytes part(other_.begin() + offset(from), other_.begin() + offset(from + size));
    const std::size_t at = place();
    if (below(2) == 0) erase(at, std::min(size, bytes_.size() - at));
    insert(at, part);
  }

  static std::ptrdiff_t offset(std::size_t at) { return static_cast<std::ptrdiff_t>(at); }
  void erase(std::size_t at, std::size_t size) {
    bytes_.erase(bytes_.begin() + offset(at), bytes_.begin() + offset(at + size));
  }
  void insert(std::size_t at, const Bytes& part) {
    bytes_.insert(bytes_.begin() + offset(std::min(at, bytes_.size())), part.begin(), part.end());
  }

  Bytes& bytes_;
  const Bytes& other_;
  std::mt19937_64& random_;
};

}  // namespace

Bytes mutated(Bytes input, const Bytes& other, std::size_t limit, std::mt19937_64& random) {
  Mutation mutation(input, other, random);
  for (std::uint64_t changes = 1 + random() % 8; changes > 0; --changes) mutation.change();
  if (input.size() > limit) input.resize(limit);
  return input;
}

}  // namespace tandem::fuzz
