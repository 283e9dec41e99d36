// The moment at which the panel starts the next song. The panel looks at the position every 10 ms on a thread that a
// busy machine may keep waiting; so steps behind that moment wait for it, as long as the output's queue allows.
// Threads: put() and clear() on the UI thread, the rest on the render thread.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "engine/core/frames.h"
#include "engine/render/deck_position.h"

namespace tandem {

class MixPointWait {
 public:
  // Steps wait once this deck's song (its generation) stands at that frame or behind it. Given again, it changes
  // nothing.
  void put(int deck, std::uint32_t generation, Frames frame) noexcept;
  void clear() noexcept;

  // Whether the step after the one that brought the decks to these positions has to wait. Not for longer than
  // `patience_ns` from the first time on: then the moment has passed.
  bool holds(const std::array<const DeckPosition*, 2>& positions, std::int64_t now_ns,
             std::int64_t patience_ns) noexcept;

 private:
  struct Moment {
    int deck = -1;
    std::uint32_t generation = 0;
    Frames frame = 0;
    friend bool operator==(const Moment&, const Moment&) = default;
  };
  bool read(Moment& moment, std::uint32_t& turn) const noexcept;

  // Written under an odd turn.
  std::atomic<std::uint32_t> turn_{0};
  std::atomic<int> deck_{-1};
  std::atomic<std::uint32_t> generation_{0};
  std::atomic<Frames> frame_{0};

  Moment put_;                   // UI thread
  std::uint32_t held_turn_ = 0;  // render thread: which moment is waited for, and since when
  std::int64_t held_since_ns_ = 0;
};

}  // namespace tandem
