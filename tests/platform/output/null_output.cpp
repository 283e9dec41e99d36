#include "platform/output/null_output.h"

#include <algorithm>
#include <array>

namespace tandem {

namespace {
constexpr Nanoseconds kDry = 10 * kNanosecondsPerMillisecond;  // until a ring that ran dry is looked at again
}

NullOutput::NullOutput(OutputRing& ring)
    : ThreadedOutput(ring, nullptr),
      first_(ring.taken()),
      thread_(
          "tandem-null", wake_fd(), [this] { wake(); }, [this](Nanoseconds now) { return serve(now); }) {}

Nanoseconds NullOutput::serve(Nanoseconds now) {
  take_commands();
  step(now);
  return next_step(now);
}

void NullOutput::step(Nanoseconds now) {
  if (target().wants_sound()) {
    const std::uint64_t queued = playhead_.queued(now);
    if (queued < queue()) take((queue() - queued) / request() * request(), now);
  } else if (target().play_up_to() > ring_.taken()) {
    take(target().play_up_to() - ring_.taken(), now);
  }
  playback_clock_.publish({first_ + playhead_.played(now), now, ring_.taken()});
  publish_request_frames(static_cast<int>(request()));
  publish_consuming(target().wants_sound());
}

void NullOutput::take(std::uint64_t frames, Nanoseconds now) {
  std::array<StereoFrame, 512> dropped;
  while (frames > 0) {
    const std::size_t part = std::min<std::size_t>(frames, dropped.size());
    const std::size_t read = ring_.read(std::span(dropped).first(part));
    if (read == 0) return;
    playhead_.add(read, now);
    frames -= read;
  }
}

Nanoseconds NullOutput::next_step(Nanoseconds now) {
  if (!target().wants_sound()) return ServingThread::kNever;
  const Nanoseconds due = playhead_.time_of_queue(queue() - request(), now);
  return due > now ? due : now + kDry;
}

std::uint64_t NullOutput::request() const {
  return static_cast<std::uint64_t>(target().buffer_bytes()) / sizeof(Sample16);
}

std::uint64_t NullOutput::queue() const { return request() * static_cast<std::uint64_t>(target().queue_length()); }

}  // namespace tandem
