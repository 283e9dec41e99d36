#include "platform/output/null_output.h"

#include <poll.h>

#include <algorithm>
#include <array>

#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

constexpr Nanoseconds kHungry = 10 * kNanosecondsPerMillisecond;
constexpr Nanoseconds kIdle = -1;  // nothing to do before the next order

void wait_for(int fd, Nanoseconds span) {
  pollfd ordered = {fd, POLLIN, 0};
  const timespec time = {span / kNanosecondsPerSecond, span % kNanosecondsPerSecond};
  static_cast<void>(ppoll(&ordered, 1, span < 0 ? nullptr : &time, nullptr));
}

}  // namespace

NullOutput::NullOutput(OutputRing& ring) : ThreadedOutput(ring), first_(ring.taken()), thread_([this] { run(); }) {}

NullOutput::~NullOutput() {
  ending_.store(true);
  orders_.wake();
  thread_.join();
}

void NullOutput::run() {
  ask_realtime_priority();
  while (!ending_.load()) {
    for (const OutputCommand& order : orders_.take()) wish_.apply(order);
    const Nanoseconds now = monotonic_now();
    step(now);
    const Nanoseconds next = next_step(now);
    wait_for(orders_.fd(), next == kIdle ? kIdle : std::max<Nanoseconds>(next - monotonic_now(), 0));
  }
}

void NullOutput::step(Nanoseconds now) {
  if (wish_.wanted()) {
    const std::uint64_t queued = playhead_.queued(now);
    if (queued < target()) take((target() - queued) / request() * request(), now);
  } else if (wish_.play_up_to() > ring_.taken()) {
    take(wish_.play_up_to() - ring_.taken(), now);
  }
  face_.heard.publish({first_ + playhead_.played(now), now, ring_.taken()});
  face_.request_frames.store(static_cast<int>(request()), std::memory_order_relaxed);
  face_.set_consuming(wish_.wanted(), ring_);
}

void NullOutput::take(std::uint64_t frames, Nanoseconds now) {
  std::array<Sample16, 512> dropped;
  while (frames > 0) {
    const std::size_t part = std::min<std::size_t>(frames, dropped.size());
    const std::size_t read = ring_.read(std::span(dropped).first(part));
    if (read == 0) return;
    playhead_.add(read, now);
    frames -= read;
  }
}

Nanoseconds NullOutput::next_step(Nanoseconds now) {
  if (!wish_.wanted()) return kIdle;
  const Nanoseconds due = playhead_.time_of_queue(target() - request(), now);
  return due > now ? due : now + kHungry;
}

std::uint64_t NullOutput::request() const {
  return static_cast<std::uint64_t>(wish_.buffer_bytes()) / sizeof(Sample16);
}

std::uint64_t NullOutput::target() const { return request() * static_cast<std::uint64_t>(wish_.depth()); }

}  // namespace tandem
