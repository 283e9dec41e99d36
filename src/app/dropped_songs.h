// Files and folders dropped on the window, as results of the song dialog.
#pragma once

#include <string>
#include <vector>

namespace tandem {

// Files as they are; folders as the MP3 and WAV files in them and below (hidden ones left out), in natural order of
// their directories. One result for each directory.
std::vector<std::string> dropped_songs(const std::vector<std::string>& paths);

}  // namespace tandem
