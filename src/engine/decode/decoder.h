// A song as its file holds it: stereo at the file's own rate, in one or more sections of one rate each.
// Used by one thread at a time; blocks for as long as the disk does.
// Frames are counted within their section, at the section's rate.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "engine/decode/section.h"

namespace tandem {

class Decoder {
 public:
  static constexpr int kLowestRate = 100;  // songs of other rates are refused
  static constexpr int kHighestRate = 1'536'000;

  virtual ~Decoder() = default;

  virtual int rate() const = 0;  // of the section that is being read

  // Returns how many frames were read: fewer than asked only at the end of the section, or of a file that broke off.
  virtual std::size_t read(std::span<StereoFrame> out) = 0;

  // Goes on to the beginning of the following section; false if there is none.
  virtual bool next_section() = 0;

  // All sections, at least one. May walk through the whole file; the reading position stays.
  virtual const std::vector<Section>& sections() = 0;

  // The next frame read is frame `frame` of that section. Both lie within sections(); the length itself is allowed.
  virtual void seek(std::size_t section, Frames frame) = 0;
};

}  // namespace tandem
