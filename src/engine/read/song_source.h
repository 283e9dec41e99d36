// One opened song, read from front to back as 44100 Hz stereo.
// Used by one thread at a time: a deck's reader thread, or one that measures. Blocks for as long as the disk does.
//
// Accepted are WAV files of the RIFF family and MPEG audio, by content and never by name. Refused at once is what is
// missing, unreadable or no regular file, and what has not one sample.
// A song that breaks off while it is read (the disk fails, the file was cut) has ended there; nothing here throws.
#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <string>

#include "engine/core/frames.h"
#include "engine/decode/decoder.h"
#include "engine/decode/walk_guard.h"
#include "engine/read/section_reader.h"

namespace tandem {

class SongSource {
 public:
  // nullptr if refused. The file is the one of existing_song_name(path): see song_name.h.
  // Quick: looks at the beginning and the end of the file only. `guard` watches every walk through the file; what a
  // walk that it ended has come to is a song refused, a seek not carried out or a length too small.
  static std::unique_ptr<SongSource> open(const std::string& path, WalkGuard guard = {});

  explicit SongSource(std::unique_ptr<Decoder> decoder);

  // Returns how many frames were read: fewer than asked only at the end, 0 after it, and where the guard ends the
  // search for the sound that goes on.
  std::size_t read(std::span<StereoFrame> out) noexcept;

  // The next frame read is `frame`, exactly as if read up to there; the end if it lies beyond, the beginning if before.
  // Looks no further into the file than for that frame. Returns the frame sought to.
  Frames seek(Frames frame) noexcept;

  // Exact. May walk through the file, without decoding it; the reading position stays.
  Frames length() noexcept;

 private:
  std::size_t read_sections(std::span<StereoFrame> out);
  Frames seek_sections(Frames frame);

  std::unique_ptr<Decoder> decoder_;
  SectionReader reader_;
  bool broken_ = false;
};

}  // namespace tandem
