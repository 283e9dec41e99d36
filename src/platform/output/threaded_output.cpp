#include "platform/output/threaded_output.h"

#include <sys/eventfd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <span>
#include <system_error>

namespace tandem {

ThreadedOutput::ThreadedOutput(OutputRing& ring, RingReaderToken* token)
    : ring_(ring), token_(token != nullptr ? *token : own_token_), wake_fd_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (!wake_fd_.is_open()) throw std::system_error(errno, std::generic_category(), "eventfd");
}

void ThreadedOutput::open(int buffer_bytes) { command(&TargetState::open, buffer_bytes); }
void ThreadedOutput::close() { command(&TargetState::close, ring_.written()); }
void ThreadedOutput::start() { command(&TargetState::start, ring_.written()); }
void ThreadedOutput::stop() { command(&TargetState::stop, ring_.written()); }
void ThreadedOutput::pause() { command(&TargetState::pause, ring_.written()); }
void ThreadedOutput::restart() { command(&TargetState::restart, ring_.written()); }
void ThreadedOutput::set_queue_length(int buffers) { command(&TargetState::set_queue_length, buffers); }

template <class Value>
void ThreadedOutput::command(void (TargetState::*change)(Value), Value value) {
  (commanded_.*change)(value);
  published_.publish(commanded_);
  wake();
}

// A full counter is readable already, so a refused write loses nothing.
void ThreadedOutput::wake() noexcept { static_cast<void>(eventfd_write(wake_fd_.number(), 1)); }

// A state that is just being published is read at the wake-up that follows it.
void ThreadedOutput::take_commands() noexcept {
  eventfd_t ignored = 0;
  static_cast<void>(eventfd_read(wake_fd_.number(), &ignored));
  static_cast<void>(published_.try_read(target_));
}

void ThreadedOutput::publish_consuming(bool consuming) noexcept {
  if (consuming_.exchange(consuming, std::memory_order_acq_rel) == consuming) return;
  if (consuming) ring_.serve(true);  // until the render thread says otherwise: the first demand may wait for it
  ring_.call_off();
}

void ThreadedOutput::abandon_taken() noexcept {
  const std::uint64_t taken = ring_.taken();
  playback_clock_.publish({taken, monotonic_now(), taken});
}

void ThreadedOutput::discard_unplayable() noexcept {
  if (ring_.taken() >= target_.play_up_to() || !token_.take()) return;
  std::array<StereoFrame, 512> unplayed;
  while (ring_.taken() < target_.play_up_to()) {
    const auto left = static_cast<std::size_t>(target_.play_up_to() - ring_.taken());
    if (ring_.read(std::span(unplayed).first(std::min(left, unplayed.size()))) == 0) break;
  }
  abandon_taken();
  token_.give_back();
}

}  // namespace tandem
