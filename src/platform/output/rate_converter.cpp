#include "platform/output/rate_converter.h"

#include <soxr.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace tandem {

namespace {

constexpr unsigned kChannels = 2;
constexpr double kPassBand = 20000.0;  // Hz
// Hz: from 21 kHz on images of the song may lie, and what is mirrored about half the rate of a slower device.
constexpr double kImagesFrom = 0.953 * (kSampleRate / 2.0);
constexpr double kTransition = kSampleRate - kImagesFrom - kPassBand;  // Hz: 20 to 23.1 kHz
// 3/4 of ours: at this rate itself and far below it a transition as narrow takes libsoxr a stage more.
constexpr int kSlowRate = 33075;
constexpr double kSlowPassBand = 0.75;  // of half of such a rate
constexpr unsigned kTransformBits = 8;  // the smallest that soxr takes

// libsoxr halves or doubles in stages, of which each holds sound back: for twice 96 kHz it takes one more.
bool is_doubled(int device_rate) { return device_rate == 192000; }

struct Transition {
  double from;  // in half of the slower rate
  double to;
};

// A device slower than we are must not get what would be mirrored to below 21 kHz: there the transition ends earlier,
// down to half its rate.
Transition transition(int device_rate) {
  if (device_rate <= kSlowRate) return {kSlowPassBand, 1.0};
  const double slower = std::min(device_rate, kSampleRate);
  const double half = slower / 2.0;
  const double end = std::max(half, slower - kImagesFrom);
  return {(end - kTransition) / half, end / half};
}

soxr_quality_spec_t recipe(int device_rate) {
  const auto [from, to] = transition(device_rate);
  soxr_quality_spec_t quality = soxr_quality_spec(SOXR_20_BITQ | SOXR_LINEAR_PHASE, 0);
  quality.passband_end = from;
  quality.stopband_begin = to;
  return quality;
}

soxr_runtime_spec_t small_blocks() {
  soxr_runtime_spec_t runtime = soxr_runtime_spec(1);
  runtime.log2_min_dft_size = kTransformBits;
  runtime.log2_large_dft_size = kTransformBits;
  return runtime;
}

}  // namespace

void RateConverter::Release::operator()(soxr* converter) const noexcept { soxr_delete(converter); }

RateConverter::RateConverter(int device_rate) {
  if (is_doubled(device_rate)) doubler_.emplace();
  const int rate = doubler_ ? device_rate / 2 : device_rate;
  const soxr_io_spec_t floats = soxr_io_spec(SOXR_FLOAT32_I, SOXR_FLOAT32_I);
  const soxr_quality_spec_t quality = recipe(device_rate);
  const soxr_runtime_spec_t runtime = small_blocks();
  soxr_error_t error = nullptr;
  converter_.reset(soxr_create(kSampleRate, rate, kChannels, &error, &floats, &quality, &runtime));
  if (!converter_) throw std::runtime_error("no conversion to " + std::to_string(device_rate) + " Hz: " + error);
}

RateConverter::~RateConverter() = default;

RateConverter::Moved RateConverter::convert(std::span<const StereoFrame> in, std::span<StereoFrame> out) noexcept {
  if (!doubler_) return resample(in, out);
  Moved moved;
  for (;;) {
    moved.made += doubler_->read(out.subspan(moved.made));
    if (moved.made == out.size()) return moved;
    const Moved half = resample(in.subspan(moved.taken), doubler_->input());
    moved.taken += half.taken;
    moved.failed = moved.failed || half.failed;
    if (half.made == 0) return moved;
    doubler_->take(half.made);
  }
}

std::size_t RateConverter::finish(std::span<StereoFrame> out) noexcept {
  if (!doubler_) return finish_resampling(out);
  for (;;) {
    if (const std::size_t made = doubler_->read(out); made > 0) return made;
    const std::size_t half = finish_resampling(doubler_->input());
    if (half == 0) break;
    doubler_->take(half);
  }
  doubler_->end();
  return doubler_->read(out);
}

// Fed in small pieces, so that it never holds more than one block too much.
RateConverter::Moved RateConverter::resample(std::span<const StereoFrame> in, std::span<StereoFrame> out) noexcept {
  constexpr std::size_t kFedAtOnce = 64;
  constexpr std::array<StereoFrame, 1> kNothing{};  // a null pointer would mean the end
  Moved moved;
  for (;;) {
    const std::span<const StereoFrame> piece = in.subspan(moved.taken, std::min(kFedAtOnce, in.size() - moved.taken));
    std::size_t taken = 0;
    std::size_t made = 0;
    const StereoFrame* from = piece.empty() ? kNothing.data() : piece.data();
    const bool good = soxr_process(converter_.get(), from, piece.size(), &taken, out.data() + moved.made,
                                   out.size() - moved.made, &made) == nullptr;
    moved.taken += taken;
    moved.made += made;
    const bool full = moved.made == out.size();
    const bool stuck = taken == 0 && made == 0;
    moved.failed = !good || (stuck && !full && !piece.empty());
    if (full || stuck || !good) return moved;
  }
}

std::size_t RateConverter::finish_resampling(std::span<StereoFrame> out) noexcept {
  std::size_t made = 0;
  soxr_process(converter_.get(), nullptr, 0, nullptr, out.data(), out.size(), &made);
  if (made == 0) soxr_clear(converter_.get());
  return made;
}

}  // namespace tandem
