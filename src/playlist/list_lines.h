// The lines of PlayList and ListAux2: song number, " - ", full path. UI thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tandem {

// "01 - /music/a.mp3", "10 - /music/b.mp3", "100 - ...".
std::string LineText(std::int32_t number, std::string_view path);

// What is left of a line without its first `cut` characters and without blanks at its ends.
std::string_view line_rest(std::string_view line, std::size_t cut);

// Cuts of a line's old number. Five characters go from a number of two or three digits.
inline constexpr std::size_t kNumberCut = 5;
// Moving cuts five characters from the first nine lines and four from the others. With an old number of three digits
// that leaves the hyphen and a blank in front of the path, and the line keeps them: on purpose.
std::size_t number_cut_when_moving(std::int32_t line);
// Saving cuts four from every line: what is saved begins with a blank, from song 100 on with "- ".
inline constexpr std::size_t kSavedCut = 4;

// Position in characters, from 1, of a path's last separator; 0 if there is none. Throws Overflow for a text of more
// than 32767 characters.
std::int16_t last_separator(std::string_view path);
// The folder in front of a path's last separator. Throws InvalidValue without one.
std::string folder_of(std::string_view path);
// What follows the last separator: the whole if there is none.
std::string_view name_of(std::string_view path);

}  // namespace tandem
