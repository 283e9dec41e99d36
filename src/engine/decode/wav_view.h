// A WAV file as it is presented to libsndfile: a plain header made from what was found, then the sound as it lies in
// the file. So no quirk of the original header matters. Used by one thread at a time.
#pragma once

#include <sndfile.h>

#include <memory>
#include <vector>

#include "engine/decode/song_file.h"
#include "engine/decode/wav_header.h"

namespace tandem {

class WavView {
 public:
  WavView(std::shared_ptr<const SongFile> file, const WavHeader& header);

  // nullptr if the library does not know the encoding. The view must outlive what is returned.
  SNDFILE* open(SF_INFO& info) noexcept;

  std::int64_t size() const noexcept { return static_cast<std::int64_t>(head_.size()) + data_bytes_; }
  std::int64_t position() const noexcept { return position_; }
  std::int64_t seek(std::int64_t offset, int whence) noexcept;
  std::int64_t read(void* out, std::int64_t count) noexcept;

 private:
  std::shared_ptr<const SongFile> file_;
  std::vector<std::uint8_t> head_;
  std::int64_t data_begin_;
  std::int64_t data_bytes_;
  std::int64_t position_ = 0;
};

}  // namespace tandem
