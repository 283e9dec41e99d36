// What a deck's reader publishes about the song that it reads.
//
// Each name, seek and rewind that the UI thread asks for starts a new *generation*; what the reader publishes and
// writes belongs to the generation that it works on, and a thread that waits for a newer one ignores it.
#pragma once

#include <cstdint>
#include <limits>

namespace tandem {

struct ReaderStatus {
  static constexpr std::uint64_t kUnknown = std::numeric_limits<std::uint64_t>::max();
  enum class State : std::uint32_t { Opening, Reading, Done, Refused, Empty };

  std::uint32_t generation = 0;
  State state = State::Empty;
  std::uint64_t begin = 0;       // ring position of the generation's first frame
  std::uint64_t end = kUnknown;  // ring position just after the song's last frame, once it is known
  std::int64_t first_frame = 0;  // which frame of the song the first one is
  std::int64_t walked = 0;       // while a place is sought: the byte of the file that was come to, roughly
};

}  // namespace tandem
