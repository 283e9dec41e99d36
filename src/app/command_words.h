// The program's arguments: "--version" and "--help" alone print a text and end the program. Any thread.
#pragma once

#include <optional>
#include <string>

namespace tandem {

// What "--version" or "--help" as the only word is answered with; nothing for anything else.
std::optional<std::string> answer_to_words(int count, const char* const* words);

}  // namespace tandem
