// Songs that can be recognised and found to the sample in the sound that comes out.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/device/output_ring.h"
#include "support/signal.h"

namespace tandem::test {

// A sound that never repeats, of two dozen sines between 200 Hz and 8 kHz that the seed chooses: the same at every
// rate, the same in every channel, at full level (`peak` at most) from its first sample to its last.
Signal signature(unsigned seed, double seconds, double peak, int rate = kSampleRate, int channels = 2);

// White noise over the whole range of 16 bits times `peak`, never 0, each channel its own.
Signal full_noise(unsigned seed, Frames frames, double peak = 1.0);

// Takes songs out of a sound, in the order in which they start. The songs must have been mixed as they are: at full
// volume, without pitch or equalizer.
class SongFinder {
 public:
  explicit SongFinder(std::span<const Sample16> sound);

  // Where the next song starts, taken to be this one, which is then subtracted. The sound's size if nothing more is
  // heard.
  std::size_t take(std::span<const StereoFrame> song);

  // What is left, as the greatest sample in units of the 16-bit output: at most 1 where exactly the songs taken were
  // heard, from their first to their last frame.
  double rest() const;
  // Where more than that is left first; the sound's size if nowhere.
  std::size_t first_rest() const;

 private:
  double misfit(std::span<const StereoFrame> song, std::size_t start) const;
  std::size_t best_start(std::span<const StereoFrame> song, std::size_t about) const;

  std::vector<StereoFrame> left_;  // in units of the 16-bit output
  std::size_t from_ = 0;
};

// The longest run of frames that are silent to within 2 units, within [from, to).
std::size_t longest_silence(std::span<const Sample16> sound, std::size_t from, std::size_t to);

}  // namespace tandem::test
