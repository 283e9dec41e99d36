// The words after the program's name. There is no command line: two words alone are answered, and end the program.
#pragma once

#include <optional>
#include <string>

namespace tandem {

// What "--version" or "--help" as the only word is answered with; nothing for anything else.
std::optional<std::string> answer_to_words(int count, const char* const* words);

}  // namespace tandem
