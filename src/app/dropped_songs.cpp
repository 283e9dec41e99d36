#include "app/dropped_songs.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <system_error>

#include "base/natural_order.h"
#include "controls/chosen_files.h"

namespace tandem {

namespace {

namespace fs = std::filesystem;

bool is_song(const fs::path& path) {
  std::string extension = path.extension().string();
  std::transform(extension.begin(), extension.end(), extension.begin(),
                 [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
  return extension == ".mp3" || extension == ".wav";
}

bool is_hidden(const fs::path& path) { return path.filename().string().starts_with('.'); }

// A folder that cannot be read, wholly or in part, gives what could be read.
void add_folder(const fs::path& folder, std::vector<std::string>& songs) {
  std::error_code error;
  std::vector<fs::path> entries;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    entries.push_back(entry->path());
  std::sort(entries.begin(), entries.end(),
            [](const fs::path& a, const fs::path& b) { return natural_less(a.string(), b.string()); });
  for (const fs::path& entry : entries) {
    if (is_hidden(entry)) continue;
    if (fs::is_regular_file(entry, error) && is_song(entry)) songs.push_back(entry.string());
  }
  for (const fs::path& entry : entries)
    if (!is_hidden(entry) && fs::is_directory(entry, error) && !fs::is_symlink(entry, error)) add_folder(entry, songs);
}

}  // namespace

std::vector<std::string> dropped_songs(const std::vector<std::string>& paths) {
  std::vector<std::string> songs;
  for (const std::string& path : paths) {
    std::error_code error;
    if (fs::is_directory(path, error)) {
      add_folder(path, songs);
    } else {
      songs.push_back(path);
    }
  }
  return dialog_results(songs);
}

}  // namespace tandem
