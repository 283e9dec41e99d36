#include "engine/render/deck.h"

#include <algorithm>
#include <limits>

#include "engine/render/fade.h"

namespace tandem {

Deck::~Deck() {
  hold_shifter(nullptr);
  while (PitchShifter* shifter = retired_.take()) delete shifter;
}

void Deck::hold_shifter(PitchShifter* shifter) noexcept {
  retired_.put(waiting_shifter_);
  waiting_shifter_ = shifter;
}

void Deck::begin_song(const RenderCommand& command) noexcept {
  take_tail();
  generation_ = command.generation;
  begun_ = false;
  ended_ = false;
  reported_ = false;
  stalled_steps_ = 0;
  opening_steps_ = 0;
  frame_ = command.frames;
  ramp_in_ = command.frames > 0;
  pitch_value_ = command.value;
  hold_shifter(command.shifter);
  if (!command.keeps_fade) finish_total_ = 0;
  position_.put(generation_, frame_);
}

void Deck::mute(std::uint32_t epoch) noexcept {
  take_tail();
  epoch_ = epoch;
  muted_ = true;
  finish_total_ = 0;
}

void Deck::unmute(std::uint32_t epoch) noexcept {
  epoch_ = epoch;
  muted_ = false;
  reported_ = false;
  ramp_in_ = frame_ > 0;
}

void Deck::finish(Frames frames) noexcept {
  finish_total_ = std::max<Frames>(frames, 1);
  if (begun_ && status_.end != ReaderStatus::kUnknown) {
    const auto left = static_cast<Frames>(status_.end - status_.begin) - (frame_ - status_.first_frame);
    finish_total_ = std::clamp<Frames>(left, 1, finish_total_);
  }
  finish_left_ = finish_total_;
}

void Deck::change_pitch(const RenderCommand& command) noexcept {
  pitch_value_ = command.value;
  if (begun_) {
    stage_.change(command.value, command.shifter);
  } else {
    hold_shifter(command.shifter);
  }
}

// The reader can only go on when the old song's frames have been given up, so the ring is led to the new song as soon
// as the reader has come to it, muted or not.
void Deck::follow_reader() noexcept {
  ReaderStatus seen;
  if (!feed_->status().try_read(seen) || seen.generation != generation_) return;
  const bool comes_nearer = seen.walked > 0 && seen.walked != status_.walked;
  status_ = seen;
  if (begun_) return;
  if (comes_nearer && opening_steps_ < kSearchSteps) stalled_steps_ = 0;
  feed_->ring().skip_to(seen.begin);
  using State = ReaderStatus::State;
  if (seen.state == State::Refused || seen.state == State::Empty) {
    end_song();
  } else if (seen.state != State::Opening) {
    start_song();
  }
}

void Deck::start_song() noexcept {
  begun_ = true;
  frame_ = status_.first_frame;
  position_.put(generation_, frame_);
  if (pitch_value_ == 0.0F) hold_shifter(nullptr);
  stage_.clear(pitch_value_, waiting_shifter_);
  waiting_shifter_ = nullptr;
}

// What breaks off fades out over one more step of the old song, which does not count as taken, nor as part of a
// finishing run.
void Deck::take_tail() noexcept {
  if (!in_mid_song()) return;
  Block block{};
  const std::size_t count = take_frames(block);
  const auto tail = std::span(block).first(count);
  const Frames finish_left = finish_left_;
  shape(tail);
  finish_left_ = finish_left;
  fade_out(tail);
  for (std::size_t i = 0; i < count; ++i) {
    tail_[i].left += tail[i].left;
    tail_[i].right += tail[i].right;
  }
  has_tail_ = true;
}

void Deck::add_tail(std::span<StereoFrame, kStepFrames> mix) noexcept {
  if (!has_tail_) return;
  for (std::size_t i = 0; i < mix.size(); ++i) {
    mix[i].left += tail_[i].left;
    mix[i].right += tail_[i].right;
  }
  drop_tail();
}

void Deck::drop_tail() noexcept {
  tail_.fill({});
  has_tail_ = false;
}

// No more than a finishing run still wants.
std::size_t Deck::take_frames(std::span<StereoFrame> block) noexcept {
  std::size_t wanted = block.size();
  if (finish_total_ > 0) wanted = std::min(wanted, static_cast<std::size_t>(std::max<Frames>(finish_left_, 0)));
  return stage_.process(feed_->ring(), status_.end, block.first(wanted));
}

void Deck::fade_towards_end(std::span<StereoFrame> block) noexcept {
  if (finish_total_ == 0) return;
  for (StereoFrame& frame : block) {
    --finish_left_;
    frame = scaled(frame, static_cast<float>(finish_left_) / static_cast<float>(finish_total_));
  }
}

void Deck::shape(std::span<StereoFrame> block) noexcept {
  if (ramp_in_ && !block.empty()) {
    fade_in(block);
    ramp_in_ = false;
  }
  fade_towards_end(block);
}

void Deck::advance(std::size_t frames) noexcept {
  frame_ += static_cast<Frames>(frames);
  position_.put(generation_, frame_);
  const bool finished = finish_total_ > 0 && finish_left_ <= 0;
  if (finished || stage_.at_end(feed_->ring(), status_.end)) {
    end_song();
  } else if (frames < kStepFrames) {
    if (++stalled_steps_ >= kStallSteps) end_song();
  } else {
    stalled_steps_ = 0;
  }
}

void Deck::render(std::span<StereoFrame, kStepFrames> mix) noexcept {
  follow_reader();
  add_tail(mix);
  if (muted_ || ended_) return;
  if (!begun_) {
    ++opening_steps_;
    if (++stalled_steps_ >= kStallSteps) end_song();
    return;
  }
  Block block;
  const std::size_t count = take_frames(block);
  shape(std::span(block).first(count));
  for (std::size_t i = 0; i < count; ++i) {
    mix[i].left += block[i].left;
    mix[i].right += block[i].right;
  }
  advance(count);
}

Frames Deck::frames_left() const noexcept {
  constexpr Frames kUnknown = std::numeric_limits<Frames>::max();
  if (!goes_on() || !begun_) return goes_on() ? 0 : kUnknown;
  if (finish_total_ > 0) return finish_left_;
  if (status_.end == ReaderStatus::kUnknown) return kUnknown;
  return static_cast<Frames>(status_.end - status_.begin) - (frame_ - status_.first_frame);
}

std::optional<RenderEvent> Deck::take_end(std::uint8_t deck) noexcept {
  if (muted_ || !ended_ || reported_) return {};
  reported_ = true;
  return RenderEvent{RenderEvent::Kind::SongEnded, deck, generation_, epoch_, nullptr};
}

PitchShifter* Deck::take_retired() noexcept {
  PitchShifter* shifter = retired_.take();
  return shifter != nullptr ? shifter : stage_.take_retired();
}

}  // namespace tandem
