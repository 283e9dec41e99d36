#include "engine/pitch/pitch_shifter.h"

#include <algorithm>
#include <cmath>

#include "engine/pitch/pitch_kernels.h"

namespace tandem {
namespace {

// How much better a splice at the edge of the reach must be: little while the pitch is shifted; nearly all when
// landing, where what is left has to be made up by speed.
constexpr float kShiftBias = 0.25F;
constexpr float kLandBias = 1.0F;

constexpr auto kKernelBehind = static_cast<double>(kKernelTaps - kKernelBefore + 1);

}  // namespace

PitchShifter::PitchShifter() : filters_(pitch_filters()) {}

void PitchShifter::begin(const SongInput& song, double ratio) noexcept {
  at_ = song.position();
  read_ = static_cast<double>(at_);
  way_ = Way::kSpliced;
  bank_ = PitchFilters::bank_for(ratio);
  path_.begin(ratio);
  stretch_.begin(song, at_);
}

void PitchShifter::steer(double ratio) noexcept {
  way_ = Way::kSpliced;
  path_.steer(ratio);
}

void PitchShifter::land() noexcept {
  way_ = Way::kLanding;
  path_.steer(1.0);
}

std::size_t PitchShifter::render(const SongInput& song, std::span<StereoFrame> out) noexcept {
  std::size_t given = 0;
  while (given < out.size()) {
    const auto rest = out.subspan(given, std::min<std::size_t>(out.size() - given, kStepFrames));
    const std::size_t count = provide(song, rest.size());
    if (count == 0) break;
    read(rest.first(count));
    given += count;
  }
  return given;
}

// Lengthens the stretched sound until `count` frames can be given; returns how many can.
std::size_t PitchShifter::provide(const SongInput& song, std::size_t count) noexcept {
  for (;;) {
    const double there = static_cast<double>(stretch_.sound().end()) - kKernelBehind - read_;
    const double possible = std::floor(there / path_.top_ratio());
    if (possible >= static_cast<double>(count)) return count;
    if (!lengthen(song)) return static_cast<std::size_t>(std::max(possible, 0.0));
  }
}

bool PitchShifter::lengthen(const SongInput& song) noexcept {
  if (way_ == Way::kStraight) return stretch_.go_straight(song);
  const bool landing = way_ == Way::kLanding && path_.resting();
  const Frames splice = stretch_.sound().end();
  const double heard_at = static_cast<double>(at_) + (static_cast<double>(splice) - read_) / path_.target();
  if (!stretch_.splice(song, heard_at, path_.target(), landing ? kLandBias : kShiftBias)) return false;
  if (landing) {
    way_ = Way::kStraight;
    straight_from_ = splice + static_cast<Frames>(SpliceSearch::kOverlap);
  }
  return true;
}

void PitchShifter::read(std::span<StereoFrame> out) noexcept {
  std::array<double, kStepFrames> positions;
  const Frames base = static_cast<Frames>(read_) - static_cast<Frames>(kKernelBefore);
  const auto used = std::span(positions).first(out.size());
  const double end = path_.advance(read_ - static_cast<double>(base), used);
  interpolate_into(out, used, base);
  read_ = end + static_cast<double>(base);
  at_ += static_cast<Frames>(out.size());
  stretch_.forget(base, at_);
  fall_into_step_if_due();
}

// A change of the filter is faded over, like every other.
void PitchShifter::interpolate_into(std::span<StereoFrame> out, std::span<const double> positions,
                                    Frames base) noexcept {
  const float* left = stretch_.sound().left(base);
  const float* right = stretch_.sound().right(base);
  const std::size_t wanted = PitchFilters::bank_for(path_.target());
  interpolate(filters_.rows(bank_), left, right, positions, out.data());
  if (wanted == bank_) return;
  std::array<StereoFrame, kStepFrames> other;
  interpolate(filters_.rows(wanted), left, right, positions, other.data());
  for (std::size_t i = 0; i < out.size(); ++i) {
    const float part = (static_cast<float>(i) + 0.5F) / static_cast<float>(out.size());
    out[i].left += part * (other[i].left - out[i].left);
    out[i].right += part * (other[i].right - out[i].right);
  }
  bank_ = wanted;
}

void PitchShifter::fall_into_step_if_due() noexcept {
  if (way_ != Way::kStraight || path_.gliding() || read_ < static_cast<double>(straight_from_)) return;
  path_.fall_into_step(read_ + static_cast<double>(stretch_.offset() - at_));
}

std::unique_ptr<PitchShifter> make_pitch_engine() { return std::make_unique<PitchShifter>(); }

}  // namespace tandem
