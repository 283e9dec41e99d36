// The file reader of a deck as the panel sees it, with the pitch stage after it. UI thread.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "audio/mm_audio_file.h"
#include "audio/mm_stages.h"
#include "engine/read/deck_reader.h"
#include "engine/render/chain.h"
#include "engine/render/render_messages.h"

namespace tandem {

// What the panel's file reader and pitch stage of one deck stand on.
class DeckControl {
 public:
  DeckControl(int deck, DeckReader& reader, CommandSender& commands, const Chain& chain,
              std::function<void()> wake_reader);

  std::string file_name();
  void put_file_name(const std::string& name);
  // Milliseconds. Measured when it is first asked for, which blocks for as long as a walk through the whole file may
  // take, or for ever where the disk hangs. Not for the panel, whose list knows its songs' lengths: nothing that plays
  // asks.
  std::int32_t length();
  std::int32_t position() const;
  void put_position(std::int32_t milliseconds);

  float pitch() const { return pitch_; }
  void put_pitch(float value);

  // The reader has another feed: see ReaderThread::replace_if_hung().
  void change_feed();

  void finish(std::int32_t milliseconds);
  void rewind() { start_at(0, false); }  // an input that goes from sounding to muted

  bool empty() { return file_name().empty(); }
  std::uint32_t generation() const { return generation_; }
  std::uint64_t names_put() const { return names_put_; }
  // While set, position() reads as past every song's end.
  void pretend_ended(bool ended) { pretends_ended_ = ended; }

 private:
  void forget_former_feeds();
  void begin(Frames frame, bool keeps_fade);     // a new generation, for the render thread
  void start_at(Frames frame, bool keeps_fade);  // and of the open song for the reader

  std::uint8_t deck_;
  DeckReader& reader_;
  CommandSender& commands_;
  const Chain& chain_;
  std::function<void()> wake_reader_;
  std::string name_;
  std::uint32_t generation_ = 0;
  std::uint32_t name_generation_ = 0;  // the generation of the last name
  std::uint32_t fed_generation_ = 0;   // that of the last change of feeds
  std::uint64_t names_put_ = 0;
  std::uint64_t measured_name_ = 0;  // which name length_ belongs to
  std::int32_t length_ = 0;
  Frames start_frame_ = 0;
  float pitch_ = 0.0F;
  bool pretends_ended_ = false;
};

class DeckFile final : public MMAudioFileX {
 public:
  DeckFile(DeckControl& deck, std::function<void(std::int32_t)> finish) : deck_(deck), finish_(std::move(finish)) {}
  std::string FileName() const override { return deck_.file_name(); }
  void put_FileName(const std::string& name) override { deck_.put_file_name(name); }
  std::int32_t Length() const override { return deck_.length(); }
  std::int32_t Position() const override { return deck_.position(); }
  void put_Position(std::int32_t milliseconds) override { deck_.put_position(milliseconds); }
  void finish(std::int32_t milliseconds) override { finish_(milliseconds); }

 private:
  DeckControl& deck_;
  std::function<void(std::int32_t)> finish_;  // depends on the mixer's mute too: see song_end.h
};

class DeckPitch final : public MMPitchX {
 public:
  explicit DeckPitch(DeckControl& deck) : deck_(deck) {}
  float Value() const override { return deck_.pitch(); }
  void put_Value(float value) override { deck_.put_pitch(value); }

 private:
  DeckControl& deck_;
};

}  // namespace tandem
