#include "engine/read/song_source.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "engine/decode/open_decoder.h"
#include "engine/decode/section.h"
#include "engine/decode/song_file.h"
#include "engine/read/song_name.h"

namespace tandem {

std::unique_ptr<SongSource> SongSource::open(const std::string& path, WalkGuard guard) {
  const auto file = SongFile::open(existing_song_name(path));
  if (file == nullptr) return nullptr;
  auto decoder = open_decoder(file, std::move(guard));
  if (decoder == nullptr) return nullptr;
  return std::make_unique<SongSource>(std::move(decoder));
}

SongSource::SongSource(std::unique_ptr<Decoder> decoder) : decoder_(std::move(decoder)), reader_(*decoder_) {}

std::size_t SongSource::read(std::span<StereoFrame> out) noexcept {
  if (broken_) return 0;
  try {
    return read_sections(out);
  } catch (const std::exception&) {
    broken_ = true;
    return 0;
  }
}

Frames SongSource::seek(Frames frame) noexcept {
  try {
    broken_ = false;
    return seek_sections(frame);
  } catch (const std::exception&) {
    broken_ = true;
    return frame;
  }
}

Frames SongSource::length() noexcept {
  try {
    Frames length = 0;
    for (std::size_t section = 0; decoder_->rate_of(section) > 0; ++section)
      length += length_at_sample_rate(decoder_->length(section), decoder_->rate_of(section));
    return length;
  } catch (const std::exception&) {
    return 0;
  }
}

std::size_t SongSource::read_sections(std::span<StereoFrame> out) {
  std::size_t done = 0;
  for (;;) {
    done += reader_.read(out.subspan(done));
    if (done == out.size() || !decoder_->next_section()) return done;
    reader_.begin();
  }
}

Frames SongSource::seek_sections(Frames frame) {
  if (frame <= 0) {
    reader_.rewind();
    return 0;
  }
  Frames before = 0;  // length of the sections before
  for (std::size_t section = 0;; ++section) {
    const int rate = decoder_->rate_of(section);
    const Frames wanted = frame - before;
    const Frames there =
        std::min(wanted, length_at_sample_rate(decoder_->reach(section, length_at_rate(wanted, rate)), rate));
    if (there == wanted || decoder_->rate_of(section + 1) == 0) {
      reader_.seek(section, there);
      return before + there;
    }
    before += there;
  }
}

}  // namespace tandem
