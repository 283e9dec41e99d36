#include "engine/device/output_ring.h"

#include <algorithm>

namespace tandem {

namespace {
constexpr std::uint64_t kRingMask = OutputRing::kCapacity - 1;
}

std::size_t OutputRing::readable() const noexcept {
  const std::uint64_t head = head_.load(std::memory_order_acquire);
  return static_cast<std::size_t>(tail_.load(std::memory_order_acquire) - head);
}

std::size_t OutputRing::write(std::span<const StereoFrame> frames) noexcept {
  const std::uint64_t tail = tail_.load(std::memory_order_relaxed);
  const std::uint64_t used = tail - head_.load(std::memory_order_acquire);
  const std::size_t count = std::min(frames.size(), kCapacity - static_cast<std::size_t>(used));
  for (std::size_t i = 0; i < count; ++i) frames_[static_cast<std::size_t>((tail + i) & kRingMask)] = frames[i];
  tail_.store(tail + count, std::memory_order_release);
  return count;
}

std::size_t OutputRing::read(std::span<StereoFrame> out) noexcept {
  const std::uint64_t head = head_.load(std::memory_order_relaxed);
  const std::uint64_t used = tail_.load(std::memory_order_acquire) - head;
  const std::size_t count = std::min(out.size(), static_cast<std::size_t>(used));
  for (std::size_t i = 0; i < count; ++i) out[i] = frames_[static_cast<std::size_t>((head + i) & kRingMask)];
  head_.store(head + count, std::memory_order_release);
  return count;
}

void OutputRing::demand(std::size_t frames) noexcept {
  has_demands_.store(true, std::memory_order_release);
  demanded_.store(frames, std::memory_order_release);
  if (frames > 0) call_off();
}

void OutputRing::end_demands() noexcept {
  demanded_.store(0, std::memory_order_release);
  has_demands_.store(false, std::memory_order_release);
  call_off();
}

void OutputRing::call_off() noexcept {
  if (!demand_raised_.exchange(true, std::memory_order_acq_rel)) demand_.release();
}

std::size_t OutputRing::await_demand(std::chrono::milliseconds most) noexcept {
  awaits_demand_.store(true, std::memory_order_release);
  const bool raised = demand_.try_acquire_for(most);
  awaits_demand_.store(false, std::memory_order_release);
  if (!raised) return 0;
  // An exchange rather than a store: a store could become visible after the load in demanded(), and a demand made in
  // between would be lost.
  demand_raised_.exchange(false, std::memory_order_acq_rel);
  return demanded();  // it may have been met meanwhile
}

void OutputRing::supply() noexcept {
  if (awaits_supply_.exchange(false, std::memory_order_acq_rel)) supply_.release();
}

void OutputRing::demand_now(std::size_t frames, std::chrono::milliseconds most) noexcept {
  while (supply_.try_acquire()) {  // one that came too late
  }
  awaits_supply_.store(true, std::memory_order_release);
  demand(frames);
  if (frames > 0 && served()) static_cast<void>(supply_.try_acquire_for(most));
  awaits_supply_.store(false, std::memory_order_release);
}

}  // namespace tandem
