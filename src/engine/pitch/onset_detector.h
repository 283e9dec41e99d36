// Finds where sounds begin: a block of 32 frames whose energy, of the whole band or of the high frequencies alone, is
// more than four times that of every block in the 20 ms before it. Looking back further than the period of the lowest
// tone keeps steady tones from counting; the high frequencies show a short attack in dense music.
// Source: J. P. Bello and others, A Tutorial on Onset Detection in Music Signals, IEEE Trans. SAP 13 (2005), where the
// weighting of the high frequencies goes back to P. Masri (1996).
// One thread, no allocation.
#pragma once

#include <array>
#include <cstddef>
#include <span>

#include "engine/pitch/sliding_window.h"

namespace tandem {

class OnsetDetector {
 public:
  static constexpr Frames kBlock = 32;
  static constexpr std::size_t kMost = 32;  // onsets that are remembered
  static constexpr Frames kContext = 2;     // frames before a block that are looked at too

  // Forgets everything; `at`: the first frame looked at.
  void restart(Frames at) noexcept;
  // Looks at all whole blocks up to `up_to` that are new and in the window with kContext frames before them: where no
  // decision was made for a while (a return to unison), the window may have dropped some, which lie too far back to
  // matter.
  void scan(const SlidingWindow& song, Frames up_to) noexcept;
  void forget(Frames before) noexcept;
  // The first frames of the blocks in which sounds begin, ascending, at least 10 ms apart; the last kMost.
  std::span<const Frames> onsets() const noexcept { return std::span(onsets_).first(count_); }

 private:
  static constexpr std::size_t kHistory = 28;  // blocks: 20 ms
  using History = std::array<float, kHistory>;

  bool rises(History& history, float energy) const noexcept;
  void remember(Frames onset) noexcept;

  std::array<Frames, kMost> onsets_{};
  std::size_t count_ = 0;
  Frames scanned_ = 0;
  std::size_t slot_ = 0;
  History whole_band_{};
  History high_band_{};
};

}  // namespace tandem
