// What sounds and what is left of the list, for the parts of the panel that show it: the list, the position slider, the
// lead-time lamps and the total time's tip. Nothing of it is a state of the panel. UI thread.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tandem {

struct SoundingSong {
  int line = -1;  // of the list, -1 if it is not there any more
  std::string name;
  std::int32_t position = 0;  // milliseconds
  std::int32_t length = 0;
  bool operator==(const SoundingSong&) const = default;
};

struct MixView {
  std::optional<SoundingSong> counted;  // the song of the counter
  std::optional<SoundingSong> other;    // sounds as well: the two overlap
  std::optional<std::int32_t> mix_at;   // where in the counted song the next one starts, milliseconds
  std::vector<std::int32_t> lengths;    // of the list's songs, milliseconds, 0 where it is not known
  std::int64_t left = 0;                // of the counted song and those after it, milliseconds
  int songs_left = 0;                   // with the counted one
  bool paused = false;                  // the songs hold where they are
  bool skipped = false;                 // the counted song fades out and ends before its end
  bool operator==(const MixView&) const = default;
};

}  // namespace tandem
