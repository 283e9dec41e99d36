#include "engine/render_thread.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace tandem {

namespace {

constexpr std::int64_t kStepNs = std::int64_t{kStepMilliseconds} * 1'000'000;
constexpr auto kRest = std::chrono::milliseconds(50);  // how soon a device that appears is noticed
constexpr std::int64_t kMostStepsAtOnce = 16;          // after a late wake-up
// At one wake-up while nothing depends on the moment.
constexpr std::uint64_t kFreeSteps = 10;
constexpr std::uint64_t kFreeStepsOfShortQueue = 5;
// An output that has demanded nothing for so long does not demand, or plays out.
constexpr auto kDemandPatience = std::chrono::milliseconds(50);
// For how long steps wait for the panel to start a song: less than what is queued; and how often it is looked.
constexpr std::int64_t kPatienceNs = 200'000'000;
constexpr std::int64_t kPatienceOfShortQueueNs = 30'000'000;
constexpr std::int64_t kLookNs = 1'000'000;

}  // namespace

RenderThread::RenderThread(Chain& chain, Output& output, OutputRing& ring, StepClock& clock,
                           std::function<void()> tell_news)
    : chain_(chain), output_(output), ring_(ring), clock_(clock), tell_news_(std::move(tell_news)), thread_([this] {
        run();
      }) {}

RenderThread::~RenderThread() {
  stopping_.store(true);
  woken_.release();
  thread_.join();
}

void RenderThread::wake() {
  if (resting_.exchange(false)) woken_.release();
}

void RenderThread::run_freely_until(std::uint64_t step, bool deep_queue) noexcept {
  free_steps_.store(deep_queue ? kFreeSteps : kFreeStepsOfShortQueue, std::memory_order_relaxed);
  free_until_.store(step, std::memory_order_relaxed);
}

void RenderThread::rest() {
  chain_.take_orders_silently();
  if (!chain_.news().empty()) tell_news_();
  resting_.store(true);
  // An order that came between the two lines above has set the flag back already or finds it set and wakes us.
  if (chain_.orders().empty()) static_cast<void>(woken_.try_acquire_for(kRest));
  resting_.store(false);
  next_ns_ = clock_.now_ns();
}

void RenderThread::render_step() noexcept {
  std::array<Sample16, kStepFrames> block;
  chain_.render(block);
  ring_.write(block);
}

std::int64_t RenderThread::steps_at_once() const noexcept {
  const std::uint64_t step = chain_.steps();
  const std::uint64_t free_until = free_until_.load(std::memory_order_relaxed);
  const std::uint64_t steps = free_steps_.load(std::memory_order_relaxed);
  // The end of a song, too, is told at once: the panel may have to start the next one.
  const bool ends_soon = chain_.frames_left() < 2 * static_cast<Frames>(steps) * kStepFrames;
  return free_until > step + steps && !ends_soon ? static_cast<std::int64_t>(steps) : 1;
}

// One step for each period that has passed; one less while the ring is too full, one more while it runs low.
std::int64_t RenderThread::steps_due() noexcept {
  const std::int64_t late = clock_.now_ns() - next_ns_;
  std::int64_t steps = 1 + std::clamp<std::int64_t>(late / kStepNs, 0, kMostStepsAtOnce - 1);
  next_ns_ += steps * kStepNs;
  if (late > kMostStepsAtOnce * kStepNs) next_ns_ = clock_.now_ns() + kStepNs;
  const auto filled = static_cast<std::int64_t>(ring_.readable());
  const std::int64_t most = output_.request_frames() + steps * kStepFrames;
  if (filled > most + steps * kStepFrames) return 0;  // a server that hangs takes nothing
  if (filled > most) --steps;
  if (filled < kStepFrames) ++steps;
  return steps;
}

bool RenderThread::waits_for_the_panel() noexcept {
  const bool deep = free_steps_.load(std::memory_order_relaxed) == kFreeSteps;
  return mix_hold_.holds({&chain_.position(0), &chain_.position(1)}, clock_.now_ns(),
                         deep ? kPatienceNs : kPatienceOfShortQueueNs);
}

// Steps that had to wait are made at once when the wait is over.
void RenderThread::pace() {
  std::int64_t steps = steps_due();
  while (steps > 0 && chain_.wants_render() && !waits_for_the_panel()) {
    render_step();
    --steps;
  }
  if (!chain_.news().empty()) tell_news_();
  const bool waits = steps > 0 && chain_.wants_render();
  next_ns_ -= waits ? steps * kStepNs : 0;
  clock_.sleep_until(waits ? clock_.now_ns() + kLookNs : next_ns_ + (steps_at_once() - 1) * kStepNs);
}

bool RenderThread::serves() const noexcept {
  const bool short_queue = free_steps_.load(std::memory_order_relaxed) == kFreeStepsOfShortQueue;
  return (demanded_ || ring_.demanded() > 0) && short_queue && steps_at_once() > 1;
}

void RenderThread::serve() {
  const std::size_t wanted = ring_.await_demand(kDemandPatience);
  demanded_ = wanted > 0;
  for (std::int64_t steps = 0; steps < kMostStepsAtOnce && ring_.readable() < wanted; ++steps) {
    if (!chain_.wants_render() || waits_for_the_panel()) break;
    render_step();
  }
  if (demanded_) output_.offer();
  if (!chain_.news().empty()) tell_news_();
  next_ns_ = clock_.now_ns();
}

void RenderThread::run() {
  next_ns_ = clock_.now_ns();
  while (!stopping_.load()) {
    if (output_.consuming() && chain_.wants_render()) {
      serves() ? serve() : pace();
    } else {
      rest();
    }
  }
}

}  // namespace tandem
