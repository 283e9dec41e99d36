// The order in which people expect names: runs of digits compare as numbers, letters without regard to ASCII case.
// Any thread; nothing fails.
#pragma once

#include <string_view>

namespace tandem {

// True if a stands before b. A strict weak ordering; names that differ only in case or leading zeros compare by bytes.
bool natural_less(std::string_view a, std::string_view b);

}  // namespace tandem
