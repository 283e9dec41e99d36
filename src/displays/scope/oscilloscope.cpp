#include "displays/scope/oscilloscope.h"

#include <algorithm>
#include <numbers>

namespace tandem {

namespace {

void draw(std::span<const float> samples, ScopeReading::Trace& trace) noexcept {
  std::transform(samples.begin(), samples.end(), trace.begin(),
                 [](float x) { return std::clamp(x * std::numbers::sqrt2_v<float>, -1.0F, 1.0F); });
}

}  // namespace

void Oscilloscope::reset() {
  heard_.clear();
  picture_ = {};
}

bool Oscilloscope::pass(double seconds) {
  if (!heard_.advance(seconds)) return false;
  const ScopeReading before = picture_;
  if (heard_.silent(kLookedAt)) {
    picture_ = {};
  } else {
    look();
  }
  return picture_ != before;
}

void Oscilloscope::look() noexcept {
  heard_.copy_newest(frames_);
  for (std::size_t i = 0; i < frames_.size(); ++i) {
    left_[i] = frames_[i].left;
    right_[i] = frames_[i].right;
  }
  const ScopeStart at = start();
  draw(std::span(left_).subspan(at.sample, kScopeWidth + 1), picture_.left);
  draw(std::span(right_).subspan(at.sample, kScopeWidth + 1), picture_.right);
  picture_.shift = at.shift;
}

ScopeStart Oscilloscope::start() const noexcept {
  for (const auto* channel : {&left_, &right_})
    if (const auto found = find_rising_zero(std::span(*channel).first(kSearched))) return *found;
  return {kSearched, 0.0F};
}

bool Oscilloscope::resting() const { return heard_.silent(kLookedAt) && picture_ == ScopeReading{}; }

}  // namespace tandem
