#include "app/dropped_songs.h"

#include <algorithm>
#include <filesystem>
#include <system_error>

#include "base/natural_order.h"
#include "base/song_endings.h"

namespace tandem {

namespace {

namespace fs = std::filesystem;

class Collector {
 public:
  Collector(const DropLimits& limits, std::string list, const std::function<bool(const std::string&)>& has_sound,
            const std::stop_token& stop)
      : most_(list.empty() ? limits.songs : limits.songs_with_list), has_sound_(has_sound), stop_(stop) {
    found_.list = std::move(list);
  }

  void take(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(path, error)) return take_folder(path);
    if (!fs::is_regular_file(path, error) || ends_as_list(path)) return;
    if (ends_as_song(path) || has_sound_(path)) add(path);
  }
  bool full() const { return found_.more || stop_.stop_requested(); }
  Dropped found() { return std::move(found_); }

 private:
  void add(const std::string& path) {
    if (found_.songs.size() < most_) {
      found_.songs.push_back(path);
    } else {
      found_.more = true;
    }
  }

  void take_folder(const fs::path& folder) {
    const std::vector<fs::path> entries = entries_of(folder);
    std::error_code error;
    for (const fs::path& entry : entries) {
      if (full()) return;
      if (ends_as_song(entry.native()) && fs::is_regular_file(entry, error)) add(entry.native());
    }
    for (const fs::path& entry : entries) {
      if (full()) return;
      if (fs::is_directory(entry, error) && !fs::is_symlink(entry, error)) take_folder(entry);
    }
  }

  std::vector<fs::path> entries_of(const fs::path& folder) const {
    std::error_code error;
    std::vector<fs::path> entries;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator() && !stop_.stop_requested(); entry.increment(error))
      if (!entry->path().filename().native().starts_with('.')) entries.push_back(entry->path());
    std::sort(entries.begin(), entries.end(),
              [](const fs::path& a, const fs::path& b) { return natural_less(a.native(), b.native()); });
    return entries;
  }

  std::size_t most_;
  const std::function<bool(const std::string&)>& has_sound_;
  const std::stop_token& stop_;
  Dropped found_;
};

std::string last_list(const std::vector<std::string>& paths) {
  std::error_code error;
  const auto found = std::find_if(paths.rbegin(), paths.rend(), [&error](const std::string& path) {
    return ends_as_list(path) && fs::is_regular_file(path, error);
  });
  return found == paths.rend() ? std::string() : *found;
}

}  // namespace

Dropped dropped_songs(std::vector<std::string> paths, const DropLimits& limits,
                      const std::function<bool(const std::string&)>& has_sound, const std::stop_token& stop) {
  std::sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) { return natural_less(a, b); });
  Collector collector(limits, last_list(paths), has_sound, stop);
  for (const std::string& path : paths)
    if (!collector.full()) collector.take(path);
  return collector.found();
}

}  // namespace tandem
