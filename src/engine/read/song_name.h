// The name under which a song is opened.
// Any thread. Names are byte strings and are never normalised. Blocks for as long as the disk does.
#pragma once

#include <string>

namespace tandem {

// Saved lists put "- " before some of their songs. A name that begins with "- " and does not exist loses these pairs
// one by one until it exists. Returns the name to open; the name as given if no shorter one exists either. What the
// panel shows and compares stays the name as given.
std::string existing_song_name(const std::string& path);

}  // namespace tandem
