#include "engine/render/mix_point_wait.h"

namespace tandem {

void MixPointWait::put(int deck, std::uint32_t generation, Frames frame) noexcept {
  const Moment moment{deck, generation, frame};
  if (moment == put_) return;
  put_ = moment;
  turn_.fetch_add(1, std::memory_order_acq_rel);
  deck_.store(deck, std::memory_order_release);
  generation_.store(generation, std::memory_order_release);
  frame_.store(frame, std::memory_order_release);
  turn_.fetch_add(1, std::memory_order_release);
}

void MixPointWait::clear() noexcept { put(-1, 0, 0); }

// A moment that is just being changed is no moment.
bool MixPointWait::read(Moment& moment, std::uint32_t& turn) const noexcept {
  turn = turn_.load(std::memory_order_acquire);
  moment = {deck_.load(std::memory_order_acquire), generation_.load(std::memory_order_acquire),
            frame_.load(std::memory_order_acquire)};
  return turn % 2 == 0 && turn_.load(std::memory_order_acquire) == turn && moment.deck >= 0;
}

bool MixPointWait::holds(const std::array<const DeckPosition*, 2>& positions, std::int64_t now_ns,
                         std::int64_t patience_ns) noexcept {
  Moment moment;
  std::uint32_t turn = 0;
  if (!read(moment, turn)) return false;
  const auto position = positions[static_cast<std::size_t>(moment.deck)]->of(moment.generation);
  if (!position || *position < moment.frame) return false;
  if (held_turn_ != turn) {
    held_turn_ = turn;
    held_since_ns_ = now_ns;
  }
  return now_ns - held_since_ns_ < patience_ns;
}

}  // namespace tandem
