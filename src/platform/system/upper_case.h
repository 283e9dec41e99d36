// Capitals for display: a one-to-one mapping of code points, the same in every locale, so that a text keeps its length.
#pragma once

#include <string>
#include <string_view>

namespace tandem {

// Invalid bytes pass through as they are. "ß" stays: its capital is not one letter in everyday use. Any thread.
std::string upper_case(std::string_view text);

}  // namespace tandem
