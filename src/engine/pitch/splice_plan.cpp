#include "engine/pitch/splice_plan.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace tandem {
namespace {

constexpr double kFramesPerMs = kSampleRate / 1000.0;

// By how much the reading may lead or lag, in the direction in which it drifts: splicing begins at the first, where the
// sound suits; is due at the second; and is done at the last, whatever begins there.
constexpr double kWilling = 3.0 * kFramesPerMs;
constexpr double kDue = 7.0 * kFramesPerMs;
constexpr double kAtAnyPrice = 12.0 * kFramesPerMs;
constexpr double kPressed = (kDue + kAtAnyPrice) / 2.0;  // from here on fades may be short
constexpr double kLanding = 5.0 * kFramesPerMs;          // a splice goes to this lead on the other side
constexpr double kShortestJump = 3.0 * kFramesPerMs;
constexpr double kNarrowest = 8.0;  // frames: a range that is narrower is none

constexpr double kBeforeOnset = 1.0 * kFramesPerMs;  // an attack lasts from so long before its onset
constexpr double kAfterOnset = 6.0 * kFramesPerMs;   // until so long after it
constexpr double kPunctual = 4.0 * kFramesPerMs;     // the lead at which an onset is still in time
constexpr double kSoon = 45.0 * kFramesPerMs;        // an onset that is so near is planned for
constexpr double kLookAgain = 5.0 * kFramesPerMs;    // no plan is made as late as this

constexpr float kVeryAlike = 0.98F;  // not urgent, but a splice that is hardly heard

constexpr double kNone = std::numeric_limits<double>::infinity();

struct Places {
  double low;
  double high;
  bool any() const noexcept { return low + kNarrowest < high; }
};

// What a splice is for.
struct Goal {
  bool back = false;  // to an earlier place
  bool urgent = false;
  bool pressed = false;  // a short fade is better than none
  float enough = 1.0F;
  double centre = 0.0;
  double onset = kNone;  // the next one, if it is near
};

// Both places of a splice sound while it lasts: from the earlier one to the later one's end no attack may lie.
Places clear_of_onsets(const ReadHead& head, std::span<const Frames> onsets, bool back, Frames fade, Places places) {
  const double length = static_cast<double>(fade) * head.ratio;
  for (const Frames onset : onsets) {
    const double first = static_cast<double>(onset) - kBeforeOnset;
    const double last = static_cast<double>(onset) + kAfterOnset;
    if (back && first < head.position + length) places.low = std::max(places.low, last);
    if (!back && last > head.position) places.high = std::min(places.high, first - length);
  }
  return places;
}

// The places from which the onset is heard in time; all of them if none is.
Places punctual(const ReadHead& head, double onset, Places places) {
  if (onset == kNone) return places;
  const Places some{std::max(places.low, head.position_for(onset, -kPunctual)),
                    std::min(places.high, head.position_for(onset, kPunctual))};
  return some.any() ? some : places;
}

double next_onset(const ReadHead& head, std::span<const Frames> onsets) {
  for (const Frames onset : onsets) {
    if (static_cast<double>(onset) - kBeforeOnset <= head.position) continue;
    return static_cast<double>(onset) < head.position + kSoon ? static_cast<double>(onset) : kNone;
  }
  return kNone;
}

// The onset would be heard too early or too late. The splice must be over when its attack begins.
Goal goal_for_onset(const ReadHead& head, double onset) {
  const double lead = head.lead_at(onset);
  const bool back = lead > 0.0;
  const double jump = back ? 0.0 : std::abs(lead) + kPunctual;
  const double latest = onset - kBeforeOnset - jump - static_cast<double>(SplicePlan::kLongestFade) * head.ratio;
  const bool urgent = head.position + kLookAgain >= latest;
  return {back, urgent, urgent, kVeryAlike, head.position_for(onset, 0.0), onset};
}

// The later, the less alike the places need be.
Goal goal_for_drift(const ReadHead& head, double late, double onset) {
  const bool back = head.ratio > 1.0;
  const double need = std::clamp((late - kWilling) / (kDue - kWilling), 0.0, 1.0);
  const double landing = static_cast<double>(head.time) + (back ? -kLanding : kLanding);
  const double centre = onset == kNone ? landing : head.position_for(onset, 0.0);
  return {back, late >= kDue, late > kPressed, static_cast<float>(1.0 - need * need), centre, onset};
}

SplicePlan plan_in(const Places& places, const Goal& goal, Frames fade, float bias) {
  const SpliceRange range{static_cast<Frames>(places.low), static_cast<Frames>(places.high), goal.centre, bias};
  return {range, fade, goal.urgent, goal.enough};
}

constexpr std::initializer_list<Frames> kFades{SplicePlan::kLongestFade, SplicePlan::kLongestFade / 2,
                                               SplicePlan::kShortestFade};

}  // namespace

SplicePlan plan_splice(const ReadHead& head, std::span<const Frames> onsets) noexcept {
  constexpr float kBias = 0.25F;
  if (head.ratio == 1.0) return {};
  const double late = head.ratio > 1.0 ? head.lead() : -head.lead();
  const double onset = next_onset(head, onsets);
  const bool missed = onset != kNone && std::abs(head.lead_at(onset)) > kPunctual;
  if (!missed && late < kWilling) return {};
  const Goal goal = missed ? goal_for_onset(head, onset) : goal_for_drift(head, late, onset);
  constexpr auto kReach = static_cast<double>(SpliceSearch::kReach);
  const Places all = goal.back ? Places{std::min(goal.centre, head.position) - kReach, head.position - kShortestJump}
                               : Places{head.position + kShortestJump, std::max(goal.centre, head.position) + kReach};
  for (const Frames fade : kFades) {
    const Places places = clear_of_onsets(head, onsets, goal.back, fade, all);
    if (places.any()) return plan_in(punctual(head, onset, places), goal, fade, kBias);
    if (!goal.pressed) return {};
  }
  if (late < kAtAnyPrice) return {};
  return plan_in(all, goal_for_drift(head, late, kNone), SplicePlan::kShortestFade, kBias);
}

SplicePlan plan_return(const ReadHead& head, std::span<const Frames> onsets) noexcept {
  constexpr float kBias = 1.0F;
  const auto time = static_cast<double>(head.time);
  constexpr auto kReach = static_cast<double>(SpliceSearch::kReach);
  const bool back = head.lead() > 0.0;
  const Places all = back ? Places{time - kReach, std::min(head.position, time + kReach)}
                          : Places{std::max(head.position, time - kReach), time + kReach};
  const Goal goal{back, true, true, 0.0F, time, kNone};
  for (const Frames fade : kFades) {
    const Places places = clear_of_onsets(head, onsets, back, fade, all);
    if (places.any()) return plan_in(places, goal, fade, kBias);
  }
  return {};
}

}  // namespace tandem
