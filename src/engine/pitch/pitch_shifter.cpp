#include "engine/pitch/pitch_shifter.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

constexpr auto kKernelAfter = static_cast<double>(kKernelTaps - kKernelBefore + 1);

}  // namespace

PitchShifter::PitchShifter() : filters_(interpolation_filters()) {}

void PitchShifter::begin(const SongInput& song, double ratio) noexcept {
  head_ = {song.position(), static_cast<double>(song.position()), ratio};
  way_ = Way::kShifting;
  bank_ = InterpolationFilters::bank_for(ratio);
  ramp_.begin(ratio);
  stretch_.begin(song, head_.time);
}

void PitchShifter::set_ratio(double ratio) noexcept {
  way_ = Way::kShifting;
  ramp_.set_ratio(ratio);
}

void PitchShifter::return_to_unison() noexcept {
  way_ = Way::kReturning;
  ramp_.set_ratio(1.0);
}

std::size_t PitchShifter::render(const SongInput& song, std::span<StereoFrame> out) noexcept {
  std::size_t given = 0;
  while (given < out.size() && decide(song)) {
    const std::size_t count = provide(song, out.size() - given);
    if (count == 0) break;
    read(out.subspan(given, count));
    given += count;
  }
  return given;
}

// Splices if it is time to; false if the ring has run dry.
bool PitchShifter::decide(const SongInput& song) noexcept {
  if (stretch_.fade().active()) return true;
  if (way_ == Way::kResyncing) {
    if (!ramp_.resyncing()) ramp_.resync(head_.lead());
    return true;
  }
  if (stretch_.left(head_.time) > 0) return true;
  head_.ratio = ramp_.target();
  if (way_ != Way::kReturning || !ramp_.settled())
    return stretch_.keep_in_time(song, head_) != TimeStretch::Decision::kDry;
  const TimeStretch::Decision decision = stretch_.return_to_unison(song, head_);
  if (decision == TimeStretch::Decision::kSpliced) way_ = Way::kResyncing;
  return decision != TimeStretch::Decision::kDry;
}

// Takes from the ring what the next frames need, up to the next decision; returns how many can be given.
std::size_t PitchShifter::provide(const SongInput& song, std::size_t wanted) noexcept {
  std::size_t count = std::min<std::size_t>(wanted, kStepFrames);
  if (stretch_.fade().active() || way_ != Way::kResyncing)
    count = std::min(count, static_cast<std::size_t>(stretch_.left(head_.time)));
  const double needed = head_.position + std::max(stretch_.fade().jump(), 0.0) + kKernelAfter;
  if (stretch_.fill(song, needed + ramp_.top_ratio() * static_cast<double>(count))) return count;
  const double possible = std::floor((static_cast<double>(stretch_.song().end()) - needed) / ramp_.top_ratio());
  return std::min(count, static_cast<std::size_t>(std::max(possible, 0.0)));
}

void PitchShifter::read(std::span<StereoFrame> out) noexcept {
  std::array<double, kStepFrames> positions;
  const auto used = std::span(positions).first(out.size());
  SpliceFade& fade = stretch_.fade();
  const auto lowest = static_cast<Frames>(std::floor(head_.position + std::min(fade.jump(), 0.0)));
  const Frames base = lowest - static_cast<Frames>(kKernelBefore);
  const double end = ramp_.advance(head_.position - static_cast<double>(base), used);
  interpolate_into(out, used, base);
  if (fade.active()) {
    std::array<StereoFrame, kStepFrames> old;
    for (double& position : used) position += fade.jump();
    interpolate_into(std::span(old).first(out.size()), used, base);
    fade.mix(std::span(old).first(out.size()), out);
  }
  bank_ = InterpolationFilters::bank_for(ramp_.target());
  head_.position = end + static_cast<double>(base);
  head_.time += static_cast<Frames>(out.size());
  stretch_.forget(head_);
}

// A change of the filter is faded, like every other.
void PitchShifter::interpolate_into(std::span<StereoFrame> out, std::span<const double> positions,
                                    Frames base) noexcept {
  const float* left = stretch_.song().left(base);
  const float* right = stretch_.song().right(base);
  const std::size_t wanted = InterpolationFilters::bank_for(ramp_.target());
  interpolate(filters_.rows(bank_), left, right, positions, out.data());
  if (wanted == bank_) return;
  std::array<StereoFrame, kStepFrames> other;
  interpolate(filters_.rows(wanted), left, right, positions, other.data());
  for (std::size_t i = 0; i < out.size(); ++i) {
    const float part = (static_cast<float>(i) + 0.5F) / static_cast<float>(out.size());
    out[i].left += part * (other[i].left - out[i].left);
    out[i].right += part * (other[i].right - out[i].right);
  }
}

}  // namespace tandem
