#include "engine/components/deck_control.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "engine/pitch/pitch_shifter.h"
#include "engine/read/song_measure.h"

namespace tandem {

namespace {

std::int32_t clamped_milliseconds(Frames frames) {
  return static_cast<std::int32_t>(
      std::min<std::int64_t>(milliseconds_of(frames), std::numeric_limits<std::int32_t>::max() - 1));
}

// The first frame of a millisecond, so that the position reads back as it was put.
Frames first_frame_of(std::int32_t milliseconds) {
  return (std::max<std::int64_t>(milliseconds, 0) * kSampleRate + 999) / 1000;
}

}  // namespace

DeckControl::DeckControl(int deck, DeckReader& reader, CommandSender& commands, const Chain& chain,
                         std::function<void()> wake_reader)
    : deck_(static_cast<std::uint8_t>(deck)),
      reader_(reader),
      commands_(commands),
      chain_(chain),
      wake_reader_(std::move(wake_reader)) {}

std::string DeckControl::file_name() {
  const auto answer = reader_.take_answer();
  if (answer && answer->refused && answer->generation >= name_generation_) name_.clear();
  return name_;
}

// The command goes to the render thread first, so that it has released the old song's frames by the time the reader
// starts. The reader gets exactly one request per generation: with two it would write the first frames twice.
void DeckControl::begin(Frames frame, bool keeps_fade) {
  ++generation_;
  start_frame_ = frame;
  PitchShifter* shifter = pitch_ == 0.0F ? nullptr : new PitchShifter;
  commands_.send({.kind = RenderCommand::Kind::Song,
                  .deck = deck_,
                  .keeps_fade = keeps_fade,
                  .generation = generation_,
                  .frames = frame,
                  .value = pitch_,
                  .shifter = shifter});
}

void DeckControl::start_at(Frames frame, bool keeps_fade) {
  begin(frame, keeps_fade);
  reader_.seek(generation_, frame);
  wake_reader_();
}

void DeckControl::change_feed() {
  fed_generation_ = generation_;
  commands_.send({.kind = RenderCommand::Kind::Feed, .deck = deck_, .feed = reader_.feed().get()});
}

// Once the render thread has taken a song that was sent after the change.
void DeckControl::forget_former_feeds() {
  if (generation_ != fed_generation_ && chain_.position(deck_).of(generation_)) reader_.forget_former();
}

void DeckControl::put_file_name(const std::string& name) {
  forget_former_feeds();
  name_ = name;
  ++names_put_;
  begin(0, false);
  name_generation_ = generation_;
  reader_.open(generation_, name);
  wake_reader_();
}

std::int32_t DeckControl::length() {
  if (empty()) return 0;
  if (measured_name_ != names_put_) {
    const auto song = measure_song(name_);
    length_ = song ? clamped_milliseconds(song->length) : 0;
    measured_name_ = names_put_;
  }
  return length_;
}

std::int32_t DeckControl::position() const {
  if (pretends_ended_) return std::numeric_limits<std::int32_t>::max();
  return clamped_milliseconds(chain_.position(deck_).of(generation_).value_or(start_frame_));
}

void DeckControl::put_position(std::int32_t milliseconds) {
  if (!empty()) start_at(first_frame_of(milliseconds), true);
}

void DeckControl::put_pitch(float value) {
  pitch_ = value;
  commands_.send({.kind = RenderCommand::Kind::Pitch, .deck = deck_, .value = value, .shifter = new PitchShifter});
}

void DeckControl::finish(std::int32_t milliseconds) {
  commands_.send({.kind = RenderCommand::Kind::Finish, .deck = deck_, .frames = frames_of(std::max(milliseconds, 0))});
}

}  // namespace tandem
