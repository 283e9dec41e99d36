// The song that a deck's ring carries, in frames of the song: frame 0 is where it began anew.
// Render thread. A view that is made for one call; the numbers are kept by the pitch stage.
#pragma once

#include <cstdint>

#include "engine/pitch/sliding_window.h"
#include "engine/read/deck_ring.h"

namespace tandem {

struct SongInput {
  DeckRing& ring;
  std::uint64_t origin;  // ring position of frame 0
  std::uint64_t end;     // ring position behind the last frame, UINT64_MAX while not known

  Frames position() const noexcept { return static_cast<Frames>(ring.position() - origin); }
  // Frames of the whole song, the greatest number there is while not known.
  Frames length() const noexcept;
  // Frames that can be read now: never beyond the song's end.
  Frames readable() const noexcept;
  // True if `count` frames, or all that the song still has, can be read now.
  bool has_ahead(Frames count) const noexcept;
  // Reads into the window until it ends at `up_to` or later; silence follows the song. False if the ring ran dry
  // before.
  bool fill(SlidingWindow& window, Frames up_to) const noexcept;
  // Moves the reading position back to `at`; at most DeckRing::kHistory frames.
  void go_back_to(Frames at) const noexcept;
};

}  // namespace tandem
