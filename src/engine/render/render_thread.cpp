#include "engine/render/render_thread.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <chrono>
#include <utility>

#include "engine/core/thread_name.h"

namespace tandem {

namespace {

constexpr std::int64_t kStepNs = std::int64_t{kStepMilliseconds} * 1'000'000;
constexpr auto kRest = std::chrono::milliseconds(50);  // how soon a device that only says so is noticed to consume
constexpr std::int64_t kMostStepsAtOnce = 16;          // after a late wake-up
constexpr std::int64_t kMostStepsToCatchUp = 12;       // with which a device of larger buffers begins
constexpr std::uint64_t kThinQueue = 6 * kStepFrames;  // does not survive a late wake-up on a busy machine
// At one wake-up while nothing depends on the moment.
constexpr std::uint64_t kFreeSteps = 10;
constexpr std::uint64_t kFreeStepsOfShortQueue = 5;
// For longer than from demand to demand: how soon it is noticed that an output hangs.
constexpr auto kDemandPatience = std::chrono::milliseconds(100);
// For how long steps wait for the panel to start a song: less than what is queued; and how often it is looked.
constexpr std::int64_t kPatienceNs = 200'000'000;
constexpr std::int64_t kPatienceOfShortQueueNs = 30'000'000;
constexpr std::int64_t kLookNs = 1'000'000;

}  // namespace

RenderThread::RenderThread(Chain& chain, Output& output, OutputRing& ring, StepClock& clock,
                           std::function<void()> notify_ui)
    : chain_(chain), output_(output), ring_(ring), clock_(clock), notify_ui_(std::move(notify_ui)), thread_([this] {
        run();
      }) {}

RenderThread::~RenderThread() {
  stopping_.store(true);
  ring_.call_off();
  thread_.join();
}

// The fences order what each side writes before what it reads of the other's: the commands here and the flag, there
// the flag and the commands. Without them both could see the old state, and the command would wait for the rest's end.
void RenderThread::wake() {
  std::atomic_thread_fence(std::memory_order_seq_cst);
  if (resting_.exchange(false)) ring_.call_off();
}

void RenderThread::run_freely_until(std::uint64_t step, bool deep_queue) noexcept {
  deep_queue_.store(deep_queue, std::memory_order_relaxed);
  free_until_.store(step, std::memory_order_relaxed);
}

bool RenderThread::sounds() const noexcept { return output_.consuming() && chain_.wants_render(); }

void RenderThread::rest() {
  chain_.take_commands_silently();
  if (!chain_.events().empty()) notify_ui_();
  resting_.store(true, std::memory_order_relaxed);
  std::atomic_thread_fence(std::memory_order_seq_cst);
  // A command sent between taking commands and the fence has already cleared the flag, or finds it set and wakes this
  // thread. So does an output that starts to consume.
  if (chain_.commands().empty() && !sounds()) static_cast<void>(ring_.await_demand(kRest));
  resting_.store(false);
  next_ns_ = clock_.now_ns();
}

void RenderThread::render_step() noexcept {
  std::array<StereoFrame, kStepFrames> block;
  chain_.render(block);
  // It always fits: no more is made than due() or the output's demand allows, far less than the ring holds. Frames that
  // did not would put the displays, which count them, out of step.
  [[maybe_unused]] const std::size_t written = ring_.write(block);
  assert(written == block.size());
}

std::int64_t RenderThread::steps_at_once() const noexcept {
  const std::uint64_t step = chain_.steps();
  const std::uint64_t free_until = free_until_.load(std::memory_order_relaxed);
  const std::uint64_t steps = deep_queue_.load(std::memory_order_relaxed) ? kFreeSteps : kFreeStepsOfShortQueue;
  // The end of a song, too, is reported at once: the panel may have to start the next one.
  const bool ends_soon = chain_.frames_left() < 2 * static_cast<Frames>(steps) * kStepFrames;
  return free_until > step + steps && !ends_soon ? static_cast<std::int64_t>(steps) : 1;
}

// One step for each period that has passed; one less while the ring is too full, more while it runs low.
RenderThread::Due RenderThread::due() noexcept {
  const std::int64_t late = clock_.now_ns() - next_ns_;
  late_ns_ = late;
  const std::int64_t periods = 1 + std::clamp<std::int64_t>(late / kStepNs, 0, kMostStepsAtOnce - 1);
  next_ns_ += periods * kStepNs;
  if (late > kMostStepsAtOnce * kStepNs) next_ns_ = clock_.now_ns() + kStepNs;
  const auto filled = static_cast<std::int64_t>(ring_.readable());
  const std::int64_t most = output_.request_frames() + periods * kStepFrames;
  if (filled > most + periods * kStepFrames) return {periods, 0};  // a server that hangs takes nothing
  const std::int64_t correction = filled > most ? -1 : (filled < kStepFrames ? steps_to_catch_up() : 0);
  return {periods, periods + correction};
}

// As many as the device still wants where nothing depends on the moment, or where so little is queued that the next
// late wake-up would be heard: a queue that begins, or that ran empty, is filled at once and is not thin for one period
// after the other. A device that demands nothing begins as soon as it has something.
std::int64_t RenderThread::steps_to_catch_up() const noexcept {
  const std::uint64_t written = ring_.written();
  const std::uint64_t queued = written - std::min(output_.frames_played(), written);
  const std::int64_t least = queued == 0 ? 2 : 1;
  if (queued >= kThinQueue && steps_at_once() == 1) return least;
  return std::clamp(static_cast<std::int64_t>(ring_.demanded()) / kStepFrames, least, kMostStepsToCatchUp);
}

bool RenderThread::waits_for_the_panel() noexcept {
  const bool deep = deep_queue_.load(std::memory_order_relaxed);
  const std::int64_t now = clock_.now_ns();
  const bool waits = mix_point_wait_.must_wait({&chain_.position(0), &chain_.position(1)}, now,
                                               deep ? kPatienceNs : kPatienceOfShortQueueNs);
  if (waits) ring_.flight_recorder().waited_for_panel(now);
  return waits;
}

// Steps that had to wait are made when the wait is over.
void RenderThread::pace() {
  const Due now = due();
  std::int64_t left = now.steps;
  while (left > 0 && chain_.wants_render() && !waits_for_the_panel()) {
    render_step();
    --left;
  }
  ring_.supply();
  ring_.flight_recorder().rendered(clock_.now_ns(), late_ns_);
  if (!chain_.events().empty()) notify_ui_();
  if (left > 0 && chain_.wants_render()) {
    next_ns_ -= std::min(left, now.periods) * kStepNs;
    clock_.sleep_until(clock_.now_ns() + kLookNs);
  } else {
    clock_.sleep_until(next_ns_ + (std::min(steps_at_once(), steps_of_sleep()) - 1) * kStepNs);
  }
}

// No longer than half of what is queued lasts: a queue that has only just been made deep still fills.
std::int64_t RenderThread::steps_of_sleep() const noexcept {
  const std::uint64_t written = ring_.written();
  const std::uint64_t queued = written - std::min(output_.frames_played(), written);
  return std::max<std::int64_t>(static_cast<std::int64_t>(queued) / (2 * std::int64_t{kStepFrames}), 1);
}

bool RenderThread::serves() noexcept {
  return !deep_queue_.load(std::memory_order_relaxed) && ring_.has_demands() && steps_at_once() > 1 &&
         !waits_for_the_panel();
}

// Positions stand still as long as the output has all that it wants.
void RenderThread::serve() {
  const std::size_t wanted = ring_.await_demand(kDemandPatience);
  while (ring_.readable() < wanted && serves() && chain_.wants_render()) render_step();
  if (wanted > 0) ring_.supply();
  if (!chain_.events().empty()) notify_ui_();
  next_ns_ = clock_.now_ns();
  ring_.flight_recorder().rendered(next_ns_, 0);
}

void RenderThread::run() {
  name_this_thread("tandem-render");
  next_ns_ = clock_.now_ns();
  while (!stopping_.load()) {
    const bool sound = sounds();
    ring_.serve(sound);
    if (sound) {
      serves() ? serve() : pace();
    } else {
      rest();
    }
  }
  ring_.serve(false);
}

}  // namespace tandem
