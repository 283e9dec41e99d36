// The pitch of one deck: value p (-20..20) shifts by p / 5 semitones while the tempo stays. Frame k that is given is
// frame k of the song, whatever the pitch and however it moves, and exactly as many frames come as the song has.
// At value 0 the ring's frames are passed on untouched, at no cost and with no delay; going over to another value and
// back is faded over 256 frames in which both sounds are the same.
// Render thread, all but construction and destruction. No allocation, lock or system call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

#include "engine/pitch/pitch_shifter.h"
#include "engine/pitch/song_input.h"

namespace tandem {

// Shifters that wait to be taken away: a list through the shifters themselves.
class RetiredShifters {
 public:
  void put(PitchShifter* shifter) noexcept;  // nullptr is ignored
  PitchShifter* take() noexcept;             // nullptr if there is none

 private:
  PitchShifter* first_ = nullptr;
};

class PitchStage {
 public:
  static constexpr std::uint64_t kEndUnknown = std::numeric_limits<std::uint64_t>::max();

  PitchStage() = default;
  ~PitchStage();  // UI thread: frees every shifter that it still has
  PitchStage(const PitchStage&) = delete;
  PitchStage& operator=(const PitchStage&) = delete;

  // The song starts again at the ring's reading position (a new name, a seek, a rewind): the position at the next
  // process(). `fresh` may be nullptr only if value is 0. The stage owns `fresh` until take_retired() gives it back.
  void clear(float value, PitchShifter* fresh) noexcept;
  // The slider moved while the song goes on. fresh: an unused one; comes back through take_retired() if not needed.
  void change(float value, PitchShifter* fresh) noexcept;
  // Shifters no longer used, one per call, nullptr if none; to be freed on the UI thread. They appear after clear(),
  // change() and process(), any number may wait.
  PitchShifter* take_retired() noexcept { return retired_.take(); }

  // Fills out from the ring; returns how many frames came: fewer than asked only if the ring has run dry (the caller
  // gives silence and tries again) or the song has ended. song_end: the ring position at which the song ends, or
  // kEndUnknown. A shifted song needs 0.1 s of sound ahead (less at its end): with less in the ring it starts later, or
  // goes on at value 0 until there is enough.
  std::size_t process(DeckRing& ring, std::uint64_t song_end, std::span<StereoFrame> out) noexcept;
  // Every frame of the song has been given.
  bool at_end(const DeckRing& ring, std::uint64_t song_end) const noexcept;
  Frames given() const noexcept { return given_; }  // frames given since clear()

 private:
  enum class State {
    kDry,        // the ring's frames themselves; fresh_ waits to take over if the value is not 0
    kWaiting,    // cleared at another value than 0: fresh_ starts as soon as the ring holds enough
    kFadingIn,   // from the ring's frames to the shifter, which still runs at ratio 1
    kShifting,   // the shifter alone
    kFadingOut,  // from the shifter, in unison with the song, to the ring's frames
  };

  std::size_t pass(const SongInput& song, std::span<StereoFrame> out) noexcept;
  std::size_t pass_dry(const SongInput& song, std::span<StereoFrame> out) noexcept;
  std::size_t pass_fading(const SongInput& song, std::span<StereoFrame> out) noexcept;
  std::size_t pass_shifting(const SongInput& song, std::span<StereoFrame> out) noexcept;
  bool start_shifter(const SongInput& song) noexcept;
  void end_fade(const SongInput& song) noexcept;
  void aim() noexcept;
  void retire(PitchShifter*& shifter) noexcept;

  State state_ = State::kDry;
  float value_ = 0.0F;
  PitchShifter* shifter_ = nullptr;  // at work
  PitchShifter* fresh_ = nullptr;    // not yet
  RetiredShifters retired_;
  std::size_t faded_ = 0;
  bool placed_ = false;  // origin_ is known
  std::uint64_t origin_ = 0;
  Frames given_ = 0;
};

}  // namespace tandem
