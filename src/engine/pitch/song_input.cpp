#include "engine/pitch/song_input.h"

#include <algorithm>
#include <array>
#include <limits>
#include <span>

namespace tandem {

Frames SongInput::length() const noexcept {
  if (end == std::numeric_limits<std::uint64_t>::max()) return std::numeric_limits<Frames>::max();
  return end > origin ? static_cast<Frames>(end - origin) : 0;
}

Frames SongInput::readable() const noexcept {
  return std::clamp<Frames>(length() - position(), 0, static_cast<Frames>(ring.readable()));
}

bool SongInput::has_ahead(Frames count) const noexcept {
  const Frames ready = readable();
  return ready >= count || position() + ready >= length();
}

bool SongInput::fill(SlidingWindow& window, Frames up_to) const noexcept {
  std::array<StereoFrame, kStepFrames> chunk;
  while (window.end() < up_to) {
    const auto wanted = static_cast<std::size_t>(std::min<Frames>(up_to - window.end(), kStepFrames));
    const auto ready = std::min(wanted, static_cast<std::size_t>(readable()));
    if (ready > 0) {
      window.add(std::span<const StereoFrame>(chunk).first(ring.read(std::span(chunk).first(ready))));
    } else if (position() >= length()) {
      window.add_silence(wanted);
    } else {
      return false;
    }
  }
  return true;
}

void SongInput::go_back_to(Frames at) const noexcept {
  ring.unread(static_cast<std::size_t>(std::max<Frames>(0, position() - at)));
}

}  // namespace tandem
