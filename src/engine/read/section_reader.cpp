#include "engine/read/section_reader.h"

#include <algorithm>
#include <array>
#include <numeric>

#include "engine/decode/section.h"

namespace tandem {
namespace {

constexpr std::size_t kInputFrames = 2048;
constexpr std::size_t kPassedFrames = 2048;
// The resampler's filters reach less far to either side, in frames of the lower of the two rates.
constexpr Frames kFilterFrames = 2048;

}  // namespace

SectionReader::SectionReader(Decoder& decoder) : decoder_(decoder) { begin(); }

void SectionReader::begin() {
  set_rate();
  waiting_ = {};
  taken_ = 0;
  given_ = 0;
  ended_ = false;
}

void SectionReader::set_rate() {
  if (rate_ == decoder_.rate()) {
    if (resampler_ != nullptr) resampler_->reset();
    return;
  }
  rate_ = decoder_.rate();
  resampler_.reset();
  if (rate_ == kSampleRate) return;
  resampler_ = std::make_unique<Resampler>(rate_);
  input_.resize(kInputFrames);
}

void SectionReader::rewind() {
  decoder_.seek(0, 0);
  begin();
}

void SectionReader::seek(std::size_t section, Frames frame) {
  const Frames rate = decoder_.rate_of(section);
  // Where both rates have a frame at the same time, the resampler can begin as if it had been at work all along.
  const Frames common = std::gcd<Frames, Frames>(rate, kSampleRate);
  const Frames step = kSampleRate / common;
  const Frames warm = rate == kSampleRate ? 0 : kFilterFrames * kSampleRate / std::min<Frames>(rate, kSampleRate);
  const Frames steps = std::max<Frames>(0, frame - warm) / step;
  decoder_.seek(section, steps * (rate / common));
  begin();
  taken_ = steps * (rate / common);
  given_ = steps * step;
  std::array<StereoFrame, kPassedFrames> passed;
  while (given_ < frame) {
    const auto count = static_cast<std::size_t>(std::min<Frames>(frame - given_, kPassedFrames));
    if (read(std::span(passed).first(count)) == 0) break;
  }
}

std::size_t SectionReader::read(std::span<StereoFrame> out) {
  std::size_t done = 0;
  bool more = true;
  while (done < out.size() && more) {
    const auto rest = out.subspan(done);
    const std::size_t made = resampler_ == nullptr ? decoder_.read(rest) : ended_ ? convert_rest(rest) : convert(rest);
    more = made > 0 || (resampler_ != nullptr && !ended_);
    given_ += static_cast<Frames>(made);
    done += made;
  }
  return done;
}

std::size_t SectionReader::convert(std::span<StereoFrame> out) {
  if (waiting_.empty()) {
    const std::size_t got = decoder_.read(input_);
    waiting_ = std::span<const StereoFrame>(input_).first(got);
    taken_ += static_cast<Frames>(got);
    if (got == 0) {
      ended_ = true;
      return convert_rest(out);
    }
  }
  const Resampler::Step step = resampler_->process(waiting_, out);
  waiting_ = waiting_.subspan(step.used);
  return step.made;
}

// The resampler may come out a frame short of the rounded length; then silence makes it up.
std::size_t SectionReader::convert_rest(std::span<StereoFrame> out) {
  const Frames left = length_at_sample_rate(taken_, rate_) - given_;
  out = out.first(static_cast<std::size_t>(std::clamp<Frames>(left, 0, static_cast<Frames>(out.size()))));
  if (out.empty()) return 0;
  const std::size_t made = resampler_->process({}, out).made;
  if (made > 0) return made;
  std::ranges::fill(out, StereoFrame{});
  return out.size();
}

}  // namespace tandem
