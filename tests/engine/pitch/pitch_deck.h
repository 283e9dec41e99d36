// A deck cut down to its ring and its pitch stage, for tests: the whole song lies ready, the ring is kept filled, a
// test runs each step. One thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <utility>
#include <vector>

#include "engine/pitch/pitch_stage.h"

namespace tandem {

using Sound = std::vector<StereoFrame>;

class PitchDeck {
 public:
  explicit PitchDeck(Sound song) : song_(std::move(song)) {}

  // At most this many frames of the song are in the ring, from now on.
  void hold_back_at(std::size_t frame) { allowed_ = frame; }
  void hold_nothing_back() { allowed_ = song_.size(); }

  void clear(float value) {
    stage.clear(value, value == 0.0F ? nullptr : new PitchShifter);
    free_retired();
  }
  void change(float value) {
    stage.change(value, new PitchShifter);
    free_retired();
  }

  // One call of process() for `frames`; what came is added to `out`. Returns how much came.
  std::size_t step(std::size_t frames = kStepFrames) {
    fill();
    const std::size_t before = out.size();
    out.resize(before + frames);
    const std::size_t came = stage.process(*ring, end(), std::span(out).subspan(before));
    out.resize(before + came);
    free_retired();
    return came;
  }
  void steps(int count) {
    for (int i = 0; i < count; ++i) step();
  }
  void run_to_end() {
    while (step() > 0) {
    }
  }

  bool at_end() const { return stage.at_end(*ring, end()); }
  // Known once the last frame is in the ring, as with a deck's reader.
  std::uint64_t end() const { return written_ == song_.size() ? written_ : PitchStage::kEndUnknown; }
  const Sound& song() const { return song_; }

  std::unique_ptr<DeckRing> ring = std::make_unique<DeckRing>();
  PitchStage stage;
  Sound out;

 private:
  void fill() {
    const std::size_t count = std::min(ring->writable(), std::min(allowed_, song_.size()) - written_);
    ring->write(std::span(song_).subspan(written_, count));
    written_ += count;
  }
  void free_retired() {
    while (PitchShifter* shifter = stage.take_retired()) delete shifter;
  }

  Sound song_;
  std::size_t written_ = 0;
  std::size_t allowed_ = static_cast<std::size_t>(-1);
};

// The whole song at one pitch value.
inline Sound shifted(Sound song, float value) {
  PitchDeck deck(std::move(song));
  deck.clear(value);
  deck.run_to_end();
  return deck.out;
}

}  // namespace tandem
