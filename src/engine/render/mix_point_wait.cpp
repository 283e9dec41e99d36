#include "engine/render/mix_point_wait.h"

namespace tandem {

void MixPointWait::put(int deck, std::uint32_t generation, Frames frame) noexcept {
  if (deck == set_.deck && generation == set_.generation && frame == set_.frame) return;
  set_ = {deck, generation, frame, set_.number + 1};
  point_.publish(set_);
}

void MixPointWait::clear() noexcept { put(-1, 0, 0); }

// A point that is just being changed is none.
bool MixPointWait::must_wait(const std::array<const DeckPosition*, 2>& positions, std::int64_t now_ns,
                             std::int64_t patience_ns) noexcept {
  MixPoint point;
  if (!point_.try_read(point) || point.deck < 0) return false;
  const auto position = positions[static_cast<std::size_t>(point.deck)]->of(point.generation);
  if (!position || *position < point.frame) return false;
  if (waited_number_ != point.number) {
    waited_number_ = point.number;
    waited_since_ns_ = now_ns;
  }
  return now_ns - waited_since_ns_ < patience_ns;
}

}  // namespace tandem
