#include "engine/pitch/time_stretch.h"

#include <algorithm>
#include <cmath>

namespace tandem {
namespace {

constexpr Frames kBack = 2048;          // frames before the first position that are taken if the ring has them
constexpr Frames kKept = 2000;          // frames that stay before the head: more than a splice goes back
constexpr Frames kSilenceBefore = 128;  // before the first frame, for what looks a little further back

// Searches are so far apart that the reading drifts by half a millisecond from one to the next, and at least 10 ms.
Frames search_interval(double ratio) noexcept {
  constexpr double kMostDrift = 22.0;
  constexpr double kLeastInterval = 441.0;
  return static_cast<Frames>(std::max(kLeastInterval, kMostDrift / std::abs(ratio - 1.0)));
}

}  // namespace

void TimeStretch::begin(const SongInput& song, Frames at) noexcept {
  song.go_back_to(std::max<Frames>(0, at - kBack));
  first_ = song.position();
  song_.restart(first_ - kSilenceBefore);
  song_.add_silence(static_cast<std::size_t>(kSilenceBefore));
  song.fill(song_, at);
  detector_.restart(first_);
  fade_.stop();
  next_ = at;
  next_search_ = at;
}

TimeStretch::Decision TimeStretch::keep_in_time(const SongInput& song, ReadHead& head) noexcept {
  if (!look_ahead(song, head)) return Decision::kDry;
  const SplicePlan plan = plan_splice(head, onsets(song));
  if (plan.fade == 0 || (!plan.urgent && head.time < next_search_)) return Decision::kStay;
  next_search_ = head.time + search_interval(head.ratio);
  return carry_out(plan, head);
}

TimeStretch::Decision TimeStretch::return_to_unison(const SongInput& song, ReadHead& head) noexcept {
  if (!look_ahead(song, head)) return Decision::kDry;
  const SplicePlan plan = plan_return(head, onsets(song));
  return plan.fade == 0 ? Decision::kStay : carry_out(plan, head);
}

bool TimeStretch::fill(const SongInput& song, double up_to) noexcept {
  return song.fill(song_, static_cast<Frames>(std::ceil(up_to)));
}

void TimeStretch::forget(const ReadHead& head) noexcept {
  const Frames before = std::min(head.time, static_cast<Frames>(head.position)) - kKept;
  song_.forget(before);
  detector_.forget(before);
}

bool TimeStretch::look_ahead(const SongInput& song, const ReadHead& head) noexcept {
  const Frames seen = static_cast<Frames>(head.position) + SplicePlan::kSight;
  if (!song.fill(song_, seen)) return false;
  detector_.scan(song_, seen);
  next_ = head.time + kEvery;
  return true;
}

// The song's end counts like an onset: nothing of it is cut off, and it is not heard twice.
std::span<const Frames> TimeStretch::onsets(const SongInput& song) noexcept {
  const auto known = detector_.onsets();
  std::copy(known.begin(), known.end(), onsets_.begin());
  std::size_t count = known.size();
  if (song.length() <= song_.end() && (count == 0 || onsets_[count - 1] < song.length()))
    onsets_[count++] = song.length();
  return std::span(onsets_).first(count);
}

TimeStretch::Decision TimeStretch::carry_out(SplicePlan plan, ReadHead& head) noexcept {
  const Frames highest = song_.end() - SpliceSearch::kOverlap - SpliceSearch::kMargin;
  plan.range.low = std::max({plan.range.low, first_, song_.begin() + SpliceSearch::kMargin});
  plan.range.high = std::min(plan.range.high, highest);
  if (plan.range.low > plan.range.high) return Decision::kStay;
  const Splice splice = search_.best(song_, head.position, plan.range);
  if (!plan.urgent && splice.likeness < plan.enough) return Decision::kStay;
  fade_.start(head.position - splice.place, plan.fade, splice.likeness);
  head.position = splice.place;
  return Decision::kSpliced;
}

}  // namespace tandem
