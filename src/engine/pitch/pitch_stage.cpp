#include "engine/pitch/pitch_stage.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tandem {
namespace {

constexpr std::size_t kFade = 256;
constexpr float kGreatest = 20.0F;
constexpr double kValuesAnOctave = 60.0;

double ratio_of(float value) noexcept {
  return std::exp2(static_cast<double>(std::clamp(value, -kGreatest, kGreatest)) / kValuesAnOctave);
}

// Rising from 0 to 1 without a corner at either end.
float rise(std::size_t at) noexcept {
  const float x = (static_cast<float>(at) + 0.5F) / static_cast<float>(kFade);
  return x * x * (3.0F - 2.0F * x);
}

}  // namespace

void RetiredShifters::put(PitchShifter* shifter) noexcept {
  if (shifter == nullptr) return;
  shifter->next_ = first_;
  first_ = shifter;
}

PitchShifter* RetiredShifters::take() noexcept {
  if (first_ == nullptr) return nullptr;
  return std::exchange(first_, first_->next_);
}

PitchStage::~PitchStage() {
  retire(shifter_);
  retire(fresh_);
  while (PitchShifter* shifter = retired_.take()) delete shifter;
}

void PitchStage::clear(float value, PitchShifter* fresh) noexcept {
  retire(shifter_);
  retire(fresh_);
  value_ = value;
  fresh_ = fresh;
  placed_ = false;
  given_ = 0;
  state_ = value == 0.0F ? State::kDry : State::kWaiting;
  if (value == 0.0F) retire(fresh_);
}

void PitchStage::change(float value, PitchShifter* fresh) noexcept {
  if (fresh_ == nullptr) std::swap(fresh_, fresh);
  retire(fresh);
  if (value == value_) return;
  value_ = value;
  if (state_ == State::kWaiting && value == 0.0F) state_ = State::kDry;
  if (state_ == State::kShifting) aim();
}

std::size_t PitchStage::process(DeckRing& ring, std::uint64_t song_end, std::span<StereoFrame> out) noexcept {
  if (!std::exchange(placed_, true)) origin_ = ring.position();
  const SongInput song{ring, origin_, song_end};
  const auto left = static_cast<std::size_t>(std::max<Frames>(0, song.length() - given_));
  const auto wanted = out.first(std::min(out.size(), left));
  std::size_t done = 0;
  while (done < wanted.size()) {
    const std::size_t count = pass(song, wanted.subspan(done));
    if (count == 0) break;
    done += count;
    given_ += static_cast<Frames>(count);
  }
  // A shifter is wanted only on the way from 0 to another value.
  if (state_ == State::kShifting || (state_ == State::kDry && value_ == 0.0F)) retire(fresh_);
  return done;
}

bool PitchStage::at_end(const DeckRing& ring, std::uint64_t song_end) const noexcept {
  if (song_end == kEndUnknown) return false;
  const std::uint64_t origin = placed_ ? origin_ : ring.position();
  return origin + static_cast<std::uint64_t>(given_) >= song_end;
}

std::size_t PitchStage::pass(const SongInput& song, std::span<StereoFrame> out) noexcept {
  const bool wants_shifter = state_ == State::kWaiting || (state_ == State::kDry && value_ != 0.0F);
  if (wants_shifter && !start_shifter(song) && state_ == State::kWaiting) return 0;
  switch (state_) {
    case State::kDry:
      return pass_dry(song, out);
    case State::kFadingIn:
    case State::kFadingOut:
      return pass_fading(song, out);
    default:
      return pass_shifting(song, out);
  }
}

std::size_t PitchStage::pass_dry(const SongInput& song, std::span<StereoFrame> out) noexcept {
  return song.ring.read(out.first(std::min(out.size(), static_cast<std::size_t>(song.readable()))));
}

bool PitchStage::start_shifter(const SongInput& song) noexcept {
  if (fresh_ == nullptr || !PitchShifter::can_begin(song)) return false;
  shifter_ = std::exchange(fresh_, nullptr);
  const bool from_dry = state_ == State::kDry;
  shifter_->begin(song, from_dry ? 1.0 : ratio_of(value_));
  state_ = from_dry ? State::kFadingIn : State::kShifting;
  faded_ = 0;
  return true;
}

std::size_t PitchStage::pass_shifting(const SongInput& song, std::span<StereoFrame> out) noexcept {
  if (!shifter_->in_unison()) return shifter_->render(song, out.first(std::min<std::size_t>(out.size(), kStepFrames)));
  state_ = State::kFadingOut;
  faded_ = 0;
  return pass_fading(song, out);
}

std::size_t PitchStage::pass_fading(const SongInput& song, std::span<StereoFrame> out) noexcept {
  const Frames from = shifter_->at();
  const std::size_t count = shifter_->render(song, out.first(std::min(out.size(), kFade - faded_)));
  for (std::size_t i = 0; i < count; ++i) {
    const StereoFrame dry = shifter_->dry(from + static_cast<Frames>(i));
    const float wet = state_ == State::kFadingIn ? rise(faded_ + i) : 1.0F - rise(faded_ + i);
    out[i] = {dry.left + wet * (out[i].left - dry.left), dry.right + wet * (out[i].right - dry.right)};
  }
  faded_ += count;
  if (faded_ == kFade) end_fade(song);
  return count;
}

void PitchStage::end_fade(const SongInput& song) noexcept {
  if (state_ == State::kFadingIn) {
    state_ = State::kShifting;
    aim();
    return;
  }
  song.go_back_to(shifter_->at());
  retire(shifter_);
  state_ = State::kDry;
}

void PitchStage::aim() noexcept {
  if (value_ == 0.0F) {
    shifter_->return_to_unison();
  } else {
    shifter_->set_ratio(ratio_of(value_));
  }
}

void PitchStage::retire(PitchShifter*& shifter) noexcept { retired_.put(std::exchange(shifter, nullptr)); }

}  // namespace tandem
