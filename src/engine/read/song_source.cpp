#include "engine/read/song_source.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "engine/decode/open_decoder.h"
#include "engine/decode/song_file.h"
#include "engine/read/song_name.h"

namespace tandem {

std::unique_ptr<SongSource> SongSource::open(const std::string& path, std::string& accepted_name) {
  const std::string name = existing_song_name(path);
  const auto file = SongFile::open(name);
  if (file == nullptr) return nullptr;
  auto decoder = open_decoder(file);
  if (decoder == nullptr) return nullptr;
  accepted_name = name;
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

void SongSource::seek(Frames frame) noexcept {
  try {
    seek_sections(frame);
    broken_ = false;
  } catch (const std::exception&) {
    broken_ = true;
  }
}

Frames SongSource::length() noexcept {
  try {
    Frames length = 0;
    for (const Section& section : decoder_->sections()) length += length_at_sample_rate(section);
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

void SongSource::seek_sections(Frames frame) {
  if (frame <= 0) return reader_.rewind();
  const auto& sections = decoder_->sections();
  std::size_t section = 0;
  for (; section + 1 < sections.size(); ++section) {
    const Frames length = length_at_sample_rate(sections[section]);
    if (frame < length) break;
    frame -= length;
  }
  reader_.seek(section, std::min(frame, length_at_sample_rate(sections[section])));
}

std::optional<SongInfo> probe_song(const std::string& path) {
  SongInfo info;
  const auto source = SongSource::open(path, info.name);
  if (source == nullptr) return std::nullopt;
  info.length = source->length();
  return info;
}

}  // namespace tandem
