// Reads one section of a song at 44100 Hz.
// Used by one thread at a time; blocks for as long as the disk does.
#pragma once

#include <memory>
#include <span>
#include <vector>

#include "engine/decode/decoder.h"
#include "engine/read/resampler.h"

namespace tandem {

class SectionReader {
 public:
  // Reads the decoder's section from its beginning, where the decoder stands.
  explicit SectionReader(Decoder& decoder);

  // Returns how many frames were read: fewer than asked only at the end of the section.
  std::size_t read(std::span<StereoFrame> out);

  // The next frame read is frame `frame` (at 44100 Hz) of section number `section`, exactly as if read up to there. It
  // lies within the section, and the decoder knows the section.
  void seek(std::size_t section, Frames frame);

  void rewind();  // as seek(0, 0), without a look at the rest of the file

  // Begins with the section at which the decoder stands now.
  void begin();

 private:
  void set_rate();
  std::size_t convert(std::span<StereoFrame> out);
  std::size_t convert_rest(std::span<StereoFrame> out);

  Decoder& decoder_;
  int rate_ = 0;
  std::unique_ptr<Resampler> resampler_;  // none at 44100 Hz
  std::vector<StereoFrame> input_;
  std::span<const StereoFrame> waiting_;  // of input_, not yet converted
  Frames taken_ = 0;                      // frames of the section read from the decoder
  Frames given_ = 0;                      // frames of the section given out
  bool ended_ = false;                    // the decoder has given all of the section
};

}  // namespace tandem
