// What was dropped on the window: songs, folders of songs, a saved list. Any thread; blocks for as long as the disk
// does, a folder that cannot be read gives what could be read.
#pragma once

#include <cstddef>
#include <functional>
#include <stop_token>
#include <string>
#include <vector>

namespace tandem {

struct DropLimits {
  std::size_t songs = 0;            // how many are wanted,
  std::size_t songs_with_list = 0;  // and how many if there is a list among what was dropped
};

struct Dropped {
  std::vector<std::string> songs;  // full paths in the order of the list to be
  std::string list;                // a saved list, the last one that was dropped; "" for none
  bool more = false;               // there were more songs than asked for
};

// In natural order of the paths. Of files those that are songs by their ending, or by content (asked of `has_sound`);
// of folders the songs by their ending in them and below, hidden ones left out, each folder's own files first, in
// natural order. Looks no further once there are more than `limits`, or when it is stopped; a list is found in any
// case.
Dropped dropped_songs(std::vector<std::string> paths, const DropLimits& limits,
                      const std::function<bool(const std::string& path)>& has_sound, const std::stop_token& stop = {});

}  // namespace tandem
