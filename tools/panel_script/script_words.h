// One line of a script in words.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tandem {

// Words are split at blanks and tabs; double quotes hold a word with blanks together, with \" and \\ inside; # at the
// start of a word begins a comment. A quote that is not closed throws UnknownWord.
std::vector<std::string> script_words(std::string_view line);

}  // namespace tandem
