// The moment at which the panel starts the next song. The panel checks the position every 10 ms, on a thread that a
// busy machine may delay; so rendering stops at that moment until the panel has acted, as long as the output's queue
// allows. Threads: put() and clear() on the UI thread, the rest on the render thread.
#pragma once

#include <array>
#include <cstdint>

#include "engine/core/frames.h"
#include "engine/core/seqlock.h"
#include "engine/render/deck_position.h"

namespace tandem {

class MixPointWait {
 public:
  // Steps wait once this deck's song (by its generation) is at that frame or past it. Setting the same point again has
  // no effect.
  void put(int deck, std::uint32_t generation, Frames frame) noexcept;
  void clear() noexcept;

  // Whether the next step, after the decks have reached these positions, has to wait. For at most `patience_ns` from
  // the first call that returned true.
  bool must_wait(const std::array<const DeckPosition*, 2>& positions, std::int64_t now_ns,
                 std::int64_t patience_ns) noexcept;

 private:
  struct MixPoint {
    std::int32_t deck = -1;  // none
    std::uint32_t generation = 0;
    Frames frame = 0;
    std::uint64_t number = 0;  // how many were set before
  };

  MixPoint set_;  // UI thread
  SeqLock<MixPoint> point_;
  std::uint64_t waited_number_ = 0;  // render thread: which point is waited for, and since when
  std::int64_t waited_since_ns_ = 0;
};

}  // namespace tandem
