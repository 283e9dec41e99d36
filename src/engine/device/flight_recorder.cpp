#include "engine/device/flight_recorder.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "engine/core/frames.h"

namespace tandem {

namespace {

constexpr std::int64_t kMillisecond = 1'000'000;  // nanoseconds
constexpr std::int64_t kReportDelay = 5 * kMillisecond;
constexpr std::int64_t kRecent = 40 * kMillisecond;
// A device plays on what it has in its own buffer, and its clock is not exactly ours.
constexpr std::int64_t kClockTolerance = 10 * kMillisecond;

std::int64_t time_of(std::int64_t frames) { return frames * 1000 / kSampleRate * kMillisecond; }
double milliseconds(std::int64_t nanoseconds) { return static_cast<double>(nanoseconds) / kMillisecond; }

constexpr std::array kNames = {"the server or its device", "the output's thread or the server's request",
                               "the render thread", "the UI thread at a mix point"};

}  // namespace

FlightRecorder::Late FlightRecorder::late(const Underrun& underrun) noexcept {
  if (underrun.since_fed + kClockTolerance < time_of(underrun.queued)) return Late::kServer;
  if (underrun.ready > 0) return Late::kOutput;
  return underrun.since_panel < kRecent ? Late::kPanel : Late::kRender;
}

std::string FlightRecorder::text(const Underrun& underrun) {
  std::array<char, 400> line;
  std::snprintf(line.data(), line.size(),
                "%.3f s%s: late was %s; %.1f ms after the device was given sound, when %.1f ms were queued; %.1f ms in "
                "the ring; last rendered %.1f ms before, %.1f ms late",
                static_cast<double>(underrun.at) / 1e9, underrun.steady != 0 ? "" : " (after a change)",
                kNames.at(static_cast<std::size_t>(late(underrun))), milliseconds(underrun.since_fed),
                milliseconds(time_of(underrun.queued)), milliseconds(time_of(underrun.ready)),
                milliseconds(underrun.since_rendered), milliseconds(underrun.rendered_late));
  return line.data();
}

void FlightRecorder::rendered(std::int64_t now, std::int64_t late) noexcept {
  rendered_at_.store(now, std::memory_order_relaxed);
  rendered_late_.store(late, std::memory_order_relaxed);
}

void FlightRecorder::fed(std::int64_t now, std::int64_t queued) noexcept {
  feed_before_ = std::exchange(feed_, {now, queued});
}

void FlightRecorder::underrun(std::int64_t now, std::int64_t ready, std::uint64_t frame, bool steady) noexcept {
  const std::uint64_t count = count_.load(std::memory_order_relaxed);
  // What the device was given when the report was already under way did not come in time.
  const Feed& feed = now - feed_.at < kReportDelay ? feed_before_ : feed_;
  kept_[count % kKept].publish({now, now - feed.at, now - rendered_at_.load(std::memory_order_relaxed),
                                now - panel_at_.load(std::memory_order_relaxed),
                                rendered_late_.load(std::memory_order_relaxed), feed.queued, ready, frame,
                                steady ? 1U : 0U});
  count_.store(count + 1, std::memory_order_release);
}

std::vector<FlightRecorder::Underrun> FlightRecorder::underruns() const {
  const std::uint64_t count = count_.load(std::memory_order_acquire);
  std::vector<Underrun> found;
  for (std::uint64_t n = count - std::min<std::uint64_t>(count, kKept); n < count; ++n) {
    Underrun underrun;
    if (kept_[n % kKept].try_read(underrun)) found.push_back(underrun);
  }
  return found;
}

}  // namespace tandem
