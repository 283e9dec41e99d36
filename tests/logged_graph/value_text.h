// Values as the tools print them.
#pragma once

#include <string>
#include <string_view>

namespace tandem {

std::string number_word(double value);           // shortest decimal form; whole numbers without a point
std::string boolean_word(bool value);            // True, False
std::string quoted_text(std::string_view text);  // in double quotes, with \" and \\ inside

}  // namespace tandem
