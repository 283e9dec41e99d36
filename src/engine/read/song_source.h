// One opened song, read from front to back as 44100 Hz stereo.
// Used by one thread at a time: a deck's reader thread or the UI thread. Blocks for as long as the disk does.
//
// Accepted are WAV files of the RIFF family and MPEG audio, by content and never by name. Refused at once is what is
// missing, unreadable or no regular file, and what has not one sample.
// A song that breaks off while it is read (the disk fails, the file was cut) has ended there; nothing here throws.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "engine/core/frames.h"
#include "engine/decode/decoder.h"
#include "engine/read/section_reader.h"

namespace tandem {

class SongSource {
 public:
  // nullptr if refused. `accepted_name` gets the name under which the song was opened: `path` as it is, or without the
  // "- " in front that saved lists add (see song_name.h). Unchanged if refused.
  // Quick: looks at the beginning and the end of the file only.
  static std::unique_ptr<SongSource> open(const std::string& path, std::string& accepted_name);

  explicit SongSource(std::unique_ptr<Decoder> decoder);

  // Returns how many frames were read: fewer than asked only at the end, 0 after it.
  std::size_t read(std::span<StereoFrame> out) noexcept;

  // The next frame read is `frame`, exactly as if read up to there; the end if it lies beyond, the beginning if before.
  void seek(Frames frame) noexcept;

  // Exact. The first call may walk through the file, without decoding it; the reading position stays.
  Frames length() noexcept;

 private:
  std::size_t read_sections(std::span<StereoFrame> out);
  void seek_sections(Frames frame);

  std::unique_ptr<Decoder> decoder_;
  SectionReader reader_;
  bool broken_ = false;
};

struct SongInfo {
  std::string name;   // as accepted_name of SongSource::open()
  Frames length = 0;  // at 44100 Hz, the same as SongSource::length()
};

// Opens and measures a song without decoding it. nullopt if refused. Any thread; blocks for as long as the disk does.
std::optional<SongInfo> probe_song(const std::string& path);

}  // namespace tandem
