// Damage for inputs: bits, numbers, pieces left out, doubled, moved, or taken from another input.
#pragma once

#include <cstdint>
#include <random>
#include <vector>

namespace tandem::fuzz {

using Bytes = std::vector<std::uint8_t>;

// One to eight changes. The result has at most `limit` bytes.
Bytes mutated(Bytes input, const Bytes& other, std::size_t limit, std::mt19937_64& random);

}  // namespace tandem::fuzz
