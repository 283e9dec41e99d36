// The song in a deck's ring, in song frames: frame 0 is the one at which it started (at a new name, a seek, a rewind).
// Render thread. A view made for one call; the pitch stage keeps the numbers.
#pragma once

#include <cstdint>

#include "engine/pitch/sliding_window.h"
#include "engine/read/deck_ring.h"

namespace tandem {

struct SongInput {
  DeckRing& ring;
  std::uint64_t origin;  // ring position of frame 0
  std::uint64_t end;     // ring position after the last frame, UINT64_MAX while unknown

  Frames position() const noexcept { return static_cast<Frames>(ring.position() - origin); }
  // Frames of the whole song; the greatest value of the type while unknown.
  Frames length() const noexcept;
  // Frames that can be read now, never past the song's end.
  Frames readable() const noexcept;
  // True if `count` frames, or all that is left of the song, can be read now.
  bool has_ahead(Frames count) const noexcept;
  // Reads into the window until it ends at `up_to` or later, with silence after the song's last frame. Returns false if
  // the ring ran dry before.
  bool fill(SlidingWindow& window, Frames up_to) const noexcept;
  // Moves the reading position back to `at`, by at most DeckRing::kHistory frames.
  void go_back_to(Frames at) const noexcept;
};

}  // namespace tandem
