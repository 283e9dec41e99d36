// Displayed text: counts and cuts are in code points of UTF-8; an invalid byte counts as one character and is kept.
// Blanks are U+0020 only. Any thread; nothing fails.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace tandem {

inline constexpr char kPathSeparator = '/';  // this platform's; a backslash is an ordinary character

std::size_t character_count(std::string_view text);
std::string_view first_characters(std::string_view text, std::size_t count);  // all if there are fewer
std::string_view without_first(std::string_view text, std::size_t count);     // empty if there are fewer
std::string_view trimmed(std::string_view text);                              // blanks cut at both ends

// A number as the panel writes it: a blank in the place of the sign if it is not negative: " 0", " 12", "-3".
std::string number_text(std::int64_t value);
// A song's number: "01" .. "09", "10", "100".
std::string song_number_text(std::int64_t number);

// File patterns that match in any case of letters: "*.mp3" becomes "*.[mM][pP]3". Letters of ASCII only.
std::string any_case(std::string_view patterns);

// Position just after the last separator, in bytes; 0 if there is none.
std::size_t name_begin(std::string_view path);

// A one-to-one mapping of code points to upper case; the program supplies it (it needs Unicode tables).
using UpperCase = std::function<std::string(std::string_view)>;

}  // namespace tandem
