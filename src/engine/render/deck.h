// One deck on the render thread: the song that its reader brings, through the pitch stage, into the mixer's input.
// Muted, it is silent and takes nothing; unmuted, it takes frames of its song until the song has ended.
// Everything here runs on the render thread: no allocation, lock or system call.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <optional>
#include <span>

#include "engine/core/frames.h"
#include "engine/pitch/pitch_stage.h"
#include "engine/read/song_feed.h"
#include "engine/render/deck_position.h"
#include "engine/render/render_messages.h"

namespace tandem {

class Deck {
 public:
  static constexpr int kStallSteps = 1000;   // a song that brings nothing for 10 s has ended,
  static constexpr int kSearchSteps = 6000;  // but for 60 s while its reader comes nearer to the place of a seek

  explicit Deck(SongFeed& feed) : feed_(&feed) {}
  ~Deck();  // when no thread renders any more
  Deck(const Deck&) = delete;
  Deck& operator=(const Deck&) = delete;

  // What the commands ask for.
  void begin_song(const RenderCommand& command) noexcept;
  void change_feed(SongFeed& feed) noexcept { feed_ = &feed; }  // which brings the song that has not begun
  void mute(std::uint32_t epoch) noexcept;
  void unmute(std::uint32_t epoch) noexcept;
  void finish(Frames frames) noexcept;
  void change_pitch(const RenderCommand& command) noexcept;

  // Advances the ring to the song that the deck waits for. Part of render(); called alone while the output is paused.
  void follow_reader() noexcept;
  // Adds one step of this deck to the mix.
  void render(std::span<StereoFrame, kStepFrames> mix) noexcept;

  // Unmuted, with a song that goes on: sounding, opening or stalled for less than 10 s.
  bool goes_on() const noexcept { return !muted_ && !ended_; }
  // Unmuted, and in the middle of a song that has been heard: breaking off needs a fade.
  bool in_mid_song() const noexcept { return goes_on() && begun_ && frame_ > 0 && !ramp_in_; }
  // Discards the fade-out of an interrupted song.
  void drop_tail() noexcept;
  // Frames until the sounding song ends: its reader knows the end a few seconds ahead. A very large number until then.
  Frames frames_left() const noexcept;
  // The end of an unmuted song, once for each song and unmute. `deck`: the index of this one.
  std::optional<RenderEvent> take_end(std::uint8_t deck) noexcept;
  PitchShifter* take_retired() noexcept;

  const DeckPosition& position() const noexcept { return position_; }

 private:
  using Block = std::array<StereoFrame, kStepFrames>;

  void start_song() noexcept;
  void take_tail() noexcept;
  void add_tail(std::span<StereoFrame, kStepFrames> mix) noexcept;
  std::size_t take_frames(std::span<StereoFrame> block) noexcept;
  void shape(std::span<StereoFrame> block) noexcept;
  void fade_towards_end(std::span<StereoFrame> block) noexcept;
  void advance(std::size_t frames) noexcept;
  void end_song() noexcept { ended_ = true; }
  void hold_shifter(PitchShifter* shifter) noexcept;

  SongFeed* feed_;
  ReaderStatus status_;
  PitchStage stage_;
  RetiredShifters retired_;

  std::uint32_t generation_ = 0;
  bool begun_ = false;  // the reader has come to our generation and the ring stands at its first frame
  bool ended_ = true;
  bool muted_ = true;
  std::uint32_t epoch_ = 0;
  bool reported_ = true;
  bool ramp_in_ = false;  // the next sound does not begin at the song's first frame
  int stalled_steps_ = 0;
  int opening_steps_ = 0;  // in which the song that has not begun was waited for
  float pitch_value_ = 0.0F;
  PitchShifter* waiting_shifter_ = nullptr;  // for the song that has not begun

  Frames frame_ = 0;         // of the song: the next one that is taken
  Frames finish_total_ = 0;  // of a finishing run; 0: none
  Frames finish_left_ = 0;

  Block tail_{};  // the fade of what was broken off
  bool has_tail_ = false;
  DeckPosition position_;
};

}  // namespace tandem
