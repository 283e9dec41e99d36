// A song as its file holds it: stereo at the file's own rate, in one or more sections of one rate each.
// Used by one thread at a time; blocks for as long as the disk does.
// Frames are counted within their section, at the section's rate. Sections are numbered from 0; one that lies further
// on than the file has been looked at is not known yet.
#pragma once

#include <cstddef>
#include <span>

#include "engine/core/frames.h"

namespace tandem {

class Decoder {
 public:
  virtual ~Decoder() = default;

  virtual int rate() const = 0;  // Hz, of the section that is being read

  // Returns how many frames were read: fewer than asked only at the end of the section, or of a file that broke off.
  virtual std::size_t read(std::span<StereoFrame> out) = 0;

  // Goes on to the beginning of the following section; false if there is none.
  virtual bool next_section() = 0;

  // Hz, of a section that is known; 0 if it is not. Section 0 is always known, any other as soon as reach() or
  // length() has come to the end of the one before.
  virtual int rate_of(std::size_t section) const = 0;

  // For seeking: `frame`, or the section's length if that is less. Looks no further into the file than it must.
  virtual Frames reach(std::size_t section, Frames frame) = 0;

  // The exact length of a section that is known. May walk through the whole file; the reading position stays.
  virtual Frames length(std::size_t section) = 0;

  // The next frame read is frame `frame` of that section, at most its length.
  virtual void seek(std::size_t section, Frames frame) = 0;
};

}  // namespace tandem
