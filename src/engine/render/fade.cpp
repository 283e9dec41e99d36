#include "engine/render/fade.h"

#include <algorithm>
#include <array>

#include "engine/core/window_shapes.h"

namespace tandem {

namespace {

// Gains that rise from just above 0 to 1 over one step.
std::array<float, kStepFrames> make_rising_fade() {
  std::array<float, kStepFrames> gains{};
  for (int i = 0; i < kStepFrames; ++i)
    gains[static_cast<std::size_t>(i)] =
        static_cast<float>(raised_cosine(static_cast<double>(i + 1) / (kStepFrames + 1)));
  return gains;
}

// Made before main, so that the first use does not compute under render().
const std::array<float, kStepFrames> kRisingFade = make_rising_fade();

// The place on the ramp of frame i of `count`.
std::size_t place(std::size_t i, std::size_t count) {
  return i * (kStepFrames - 1) / std::max<std::size_t>(count - 1, 1);
}

}  // namespace

void fade_in(std::span<StereoFrame> frames) noexcept {
  for (std::size_t i = 0; i < frames.size(); ++i) frames[i] = scaled(frames[i], kRisingFade[place(i, frames.size())]);
}

void fade_out(std::span<StereoFrame> frames) noexcept {
  for (std::size_t i = 0; i < frames.size(); ++i)
    frames[i] = scaled(frames[i], kRisingFade[kStepFrames - 1 - place(i, frames.size())]);
}

void GainRamp::apply(std::span<StereoFrame> frames) noexcept {
  if (gain_ == 1.0F && target_ == 1.0F) return;
  const float from = gain_;
  const float way = target_ - from;
  gain_ = target_;
  for (std::size_t i = 0; i < frames.size(); ++i)
    frames[i] = scaled(frames[i], way == 0.0F ? from : from + way * kRisingFade[place(i, frames.size())]);
}

void PauseFade::apply(std::span<StereoFrame> frames) noexcept {
  if (audible_ != target_audible_) {
    if (!target_audible_) {
      fade_out(frames);
    } else if (!starts_at_full_level_) {
      fade_in(frames);
    }
  } else if (!audible_) {
    std::fill(frames.begin(), frames.end(), StereoFrame{});
  }
  audible_ = target_audible_;
  if (audible_) starts_at_full_level_ = false;
}

}  // namespace tandem
