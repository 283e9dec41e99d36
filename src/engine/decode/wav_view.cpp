#include "engine/decode/wav_view.h"

#include <algorithm>
#include <cstdio>
#include <string_view>
#include <utility>

namespace tandem {
namespace {

constexpr std::int64_t kMostShortBytes = 0xFFFF0000;  // beyond it the header needs long sizes

class HeadWriter {
 public:
  explicit HeadWriter(bool big_endian) : big_endian_(big_endian) {}

  void text(std::string_view letters) { bytes_.insert(bytes_.end(), letters.begin(), letters.end()); }
  void number(std::uint64_t value, unsigned count) {
    for (unsigned i = 0; i < count; ++i) {
      const unsigned shift = 8 * (big_endian_ ? count - 1 - i : i);
      bytes_.push_back(static_cast<std::uint8_t>(value >> shift & 0xFFU));
    }
  }
  void chunk(std::string_view name, const std::vector<std::uint8_t>& content) {
    text(name);
    number(content.size(), 4);
    bytes_.insert(bytes_.end(), content.begin(), content.end());
    if (content.size() % 2 != 0) bytes_.push_back(0);
  }
  std::vector<std::uint8_t> take() { return std::move(bytes_); }

 private:
  bool big_endian_;
  std::vector<std::uint8_t> bytes_;
};

std::vector<std::uint8_t> short_head(const WavHeader& header, std::uint64_t data_bytes) {
  HeadWriter head(header.big_endian);
  const std::uint64_t format_bytes = header.format.size() + header.format.size() % 2;
  head.text(header.big_endian ? "RIFX" : "RIFF");
  head.number(4 + 8 + format_bytes + 8 + data_bytes + data_bytes % 2, 4);
  head.text("WAVE");
  head.chunk("fmt ", header.format);
  head.text("data");
  head.number(data_bytes, 4);
  return head.take();
}

std::vector<std::uint8_t> long_head(const WavHeader& header, std::uint64_t data_bytes) {
  constexpr std::uint64_t kElsewhere = 0xFFFFFFFF;
  constexpr unsigned kSizesBytes = 28;
  HeadWriter head(header.big_endian);
  const std::uint64_t format_bytes = header.format.size() + header.format.size() % 2;
  head.text("RF64");
  head.number(kElsewhere, 4);
  head.text("WAVEds64");
  head.number(kSizesBytes, 4);
  head.number(4 + 8 + kSizesBytes + 8 + format_bytes + 8 + data_bytes, 8);
  head.number(data_bytes, 8);
  head.number(0, 8);
  head.number(0, 4);
  head.chunk("fmt ", header.format);
  head.text("data");
  head.number(kElsewhere, 4);
  return head.take();
}

WavView& view_of(void* user) { return *static_cast<WavView*>(user); }

}  // namespace

WavView::WavView(std::shared_ptr<const SongFile> file, const WavHeader& header)
    : file_(std::move(file)), data_begin_(header.data_begin), data_bytes_(header.data_end - header.data_begin) {
  const bool is_long = data_bytes_ > kMostShortBytes && !header.big_endian;
  if (!is_long) data_bytes_ = std::min(data_bytes_, kMostShortBytes);
  const auto bytes = static_cast<std::uint64_t>(data_bytes_);
  head_ = is_long ? long_head(header, bytes) : short_head(header, bytes);
}

SNDFILE* WavView::open(SF_INFO& info) noexcept {
  SF_VIRTUAL_IO io{};
  io.get_filelen = [](void* user) -> sf_count_t { return view_of(user).size(); };
  io.tell = [](void* user) -> sf_count_t { return view_of(user).position(); };
  io.seek = [](sf_count_t offset, int whence, void* user) -> sf_count_t { return view_of(user).seek(offset, whence); };
  io.read = [](void* out, sf_count_t count, void* user) -> sf_count_t { return view_of(user).read(out, count); };
  position_ = 0;
  info = {};
  return sf_open_virtual(&io, SFM_READ, &info, this);
}

std::int64_t WavView::seek(std::int64_t offset, int whence) noexcept {
  if (whence == SEEK_CUR) offset += position_;
  if (whence == SEEK_END) offset += size();
  position_ = std::clamp<std::int64_t>(offset, 0, size());
  return position_;
}

std::int64_t WavView::read(void* out, std::int64_t count) noexcept {
  auto* bytes = static_cast<std::uint8_t*>(out);
  const auto head_bytes = static_cast<std::int64_t>(head_.size());
  std::int64_t done = 0;
  count = std::min(count, size() - position_);
  if (count > 0 && position_ < head_bytes) {
    done = std::min(count, head_bytes - position_);
    std::copy_n(head_.begin() + position_, done, bytes);
  }
  if (done < count) {
    const std::span rest(bytes + done, static_cast<std::size_t>(count - done));
    done += static_cast<std::int64_t>(file_->read_at(data_begin_ + position_ + done - head_bytes, rest));
  }
  position_ += done;
  return done;
}

}  // namespace tandem
