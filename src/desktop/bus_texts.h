// Texts as a D-Bus takes them: valid UTF-8, files as URLs. Any thread.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tandem {

// What is no UTF-8 becomes U+FFFD.
std::string bus_text(std::string_view text);
// The name under which the panel shows the song of that path on its display.
std::string shown_name(std::string_view path);

// "file:///music/a%20b.mp3" of a full path, whose bytes may be any.
std::string file_url(std::string_view path);
// Nothing if the URL is none of a file of this machine.
std::optional<std::string> path_of(std::string_view url);

}  // namespace tandem
