#include "engine/decode/wav_header.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

#include "engine/decode/section.h"

namespace tandem {
namespace {

constexpr std::uint64_t kUnknownSize = 0xFFFFFFFFU;
constexpr std::uint64_t kWrap = std::uint64_t{1} << 32U;
constexpr std::uint64_t kMostFormatBytes = 4096;
constexpr std::uint64_t kLeastFormatBytes = 16;
constexpr std::uint16_t kExtensibleTag = 0xFFFE;
constexpr std::array<std::uint16_t, 3> kBlockTags = {0x02, 0x11, 0x31};  // MS ADPCM, IMA ADPCM, GSM
constexpr int kMostChannels = 32;
constexpr int kMostChunks = 100'000;

// The last 12 of the 16 bytes by which W64 names its chunks; the first of all ends differently.
constexpr std::array<std::uint8_t, 12> kW64Tail = {0xF3, 0xAC, 0xD3, 0x11, 0x8C, 0xD1,
                                                   0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A};
constexpr std::array<std::uint8_t, 12> kW64FirstTail = {0x2E, 0x91, 0xCF, 0x11, 0xA5, 0xD6,
                                                        0x28, 0xDB, 0x04, 0xC1, 0x00, 0x00};

enum class Family { kNone, kRiff, kRifx, kRf64, kW64 };

struct Chunk {
  std::array<char, 4> id{};
  std::int64_t body = 0;
  std::uint64_t size = 0;
  std::int64_t next = 0;
  bool is(std::string_view name) const { return std::string_view(id.data(), id.size()) == name; }
};

std::uint64_t number(const std::uint8_t* bytes, std::size_t count, bool big_endian) {
  std::uint64_t value = 0;
  for (std::size_t i = 0; i < count; ++i) value = value << 8U | bytes[big_endian ? i : count - 1 - i];
  return value;
}

Family family_at(const SongFile& file, std::int64_t offset) {
  std::array<std::uint8_t, 16> head{};
  if (file.read_at(offset, head) != head.size()) return Family::kNone;
  const auto begins = [&](const char* text) { return std::memcmp(head.data(), text, 4) == 0; };
  if (begins("riff") && std::equal(kW64FirstTail.begin(), kW64FirstTail.end(), head.begin() + 4)) return Family::kW64;
  if (std::memcmp(head.data() + 8, "WAVE", 4) != 0) return Family::kNone;
  if (begins("RIFF")) return Family::kRiff;
  if (begins("RIFX")) return Family::kRifx;
  return begins("RF64") || begins("BW64") ? Family::kRf64 : Family::kNone;
}

class ChunkReader {
 public:
  ChunkReader(const SongFile& file, Family family) : file_(file), family_(family) {}

  std::int64_t first(std::int64_t offset) const { return offset + (family_ == Family::kW64 ? 40 : 12); }
  bool big_endian() const { return family_ == Family::kRifx; }

  std::optional<Chunk> chunk_at(std::int64_t offset) const {
    return family_ == Family::kW64 ? long_chunk_at(offset) : short_chunk_at(offset);
  }

  // Whether whole chunks follow from here to the end of the file.
  bool chunks_to_end(std::int64_t offset) const {
    for (int count = 0; count < kMostChunks; ++count) {
      const auto chunk = chunk_at(offset);
      if (!chunk || !is_name(*chunk) || chunk->next > file_.size() + 1) return false;
      if (chunk->next >= file_.size()) return true;
      offset = chunk->next;
    }
    return false;
  }

 private:
  static bool is_name(const Chunk& chunk) {
    return std::ranges::all_of(chunk.id, [](char letter) { return letter >= ' ' && letter <= '~'; });
  }

  std::optional<Chunk> short_chunk_at(std::int64_t offset) const {
    std::array<std::uint8_t, 8> head{};
    if (file_.read_at(offset, head) != head.size()) return std::nullopt;
    return make_chunk(head.data(), offset + 8, number(head.data() + 4, 4, big_endian()), 2);
  }

  std::optional<Chunk> long_chunk_at(std::int64_t offset) const {
    std::array<std::uint8_t, 24> head{};
    if (file_.read_at(offset, head) != head.size()) return std::nullopt;
    if (!std::equal(kW64Tail.begin(), kW64Tail.end(), head.begin() + 4)) return std::nullopt;
    const std::uint64_t whole = number(head.data() + 16, 8, false);
    return make_chunk(head.data(), offset + 24, whole < 24 ? 0 : whole - 24, 8);
  }

  Chunk make_chunk(const std::uint8_t* head, std::int64_t body, std::uint64_t size, std::int64_t alignment) const {
    Chunk chunk;
    std::memcpy(chunk.id.data(), head, chunk.id.size());
    chunk.body = body;
    chunk.size = size;
    const auto room = static_cast<std::uint64_t>(std::max<std::int64_t>(0, file_.size() - body));
    const auto held = static_cast<std::int64_t>(std::min(size, room + 1));  // one too many: it overhangs
    chunk.next = body + (held + alignment - 1) / alignment * alignment;
    return chunk;
  }

  const SongFile& file_;
  Family family_;
};

class HeaderReader {
 public:
  HeaderReader(const SongFile& file, Family family)
      : file_(file), chunks_(file, family), is_rf64_(family == Family::kRf64) {}

  std::optional<WavHeader> read(std::int64_t offset) {
    header_.big_endian = chunks_.big_endian();
    offset = chunks_.first(offset);
    for (int count = 0; count < kMostChunks && !complete(); ++count) {
      const auto chunk = chunks_.chunk_at(offset);
      if (!chunk) break;
      take(*chunk);
      offset = chunk->next;
    }
    if (!complete() || !parse_format()) return std::nullopt;
    drop_part_of_block();
    return header_;
  }

 private:
  bool complete() const { return !header_.format.empty() && header_.data_begin > 0; }

  void take(const Chunk& chunk) {
    if (chunk.is("ds64")) take_long_sizes(chunk);
    if (chunk.is("fmt ") && header_.format.empty()) take_format(chunk);
    if (chunk.is("fact")) take_fact(chunk);
    if (chunk.is("data") && header_.data_begin == 0) take_data(chunk);
  }

  void take_long_sizes(const Chunk& chunk) {
    std::array<std::uint8_t, 24> sizes{};
    if (!is_rf64_ || chunk.size < sizes.size() || file_.read_at(chunk.body, sizes) != sizes.size()) return;
    long_data_size_ = number(sizes.data() + 8, 8, false);
  }

  void take_format(const Chunk& chunk) {
    if (chunk.size < kLeastFormatBytes || chunk.size > kMostFormatBytes) return;
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(chunk.size));
    if (file_.read_at(chunk.body, bytes) == bytes.size()) header_.format = std::move(bytes);
  }

  void take_fact(const Chunk& chunk) {
    std::array<std::uint8_t, 4> fact{};
    if (chunk.size < fact.size() || file_.read_at(chunk.body, fact) != fact.size()) return;
    header_.fact_frames = static_cast<std::int64_t>(number(fact.data(), fact.size(), header_.big_endian));
  }

  void take_data(const Chunk& chunk) {
    const auto room = static_cast<std::uint64_t>(std::max<std::int64_t>(0, file_.size() - chunk.body));
    std::uint64_t size = is_rf64_ && chunk.size == kUnknownSize ? long_data_size_.value_or(kUnknownSize) : chunk.size;
    if (size == kUnknownSize) size = room;
    if (size == 0 && room > 0 && !chunks_.chunks_to_end(chunk.body)) size = room;
    if (room >= kWrap + size) size = unwrapped(chunk, room);
    header_.data_begin = chunk.body;
    header_.data_end = chunk.body + static_cast<std::int64_t>(std::min(size, room));
  }

  // The size of a chunk that is too large for its 32 bits, if the file's rest fits it and not the size as it is.
  std::uint64_t unwrapped(const Chunk& chunk, std::uint64_t room) const {
    const std::uint64_t whole = chunk.size + (room - chunk.size) / kWrap * kWrap;
    const auto end = chunk.body + static_cast<std::int64_t>(whole + whole % 2);
    const bool fits = end >= file_.size() || chunks_.chunks_to_end(end);
    return fits && !chunks_.chunks_to_end(chunk.next) ? whole : chunk.size;
  }

  // What is left of a block that was cut cannot be decoded.
  void drop_part_of_block() {
    const auto block = static_cast<std::int64_t>(field(12, 2));
    const bool in_blocks = std::ranges::find(kBlockTags, header_.format_tag) != kBlockTags.end();
    if (in_blocks && block > 0) header_.data_end -= (header_.data_end - header_.data_begin) % block;
  }

  std::uint64_t field(std::size_t at, std::size_t count) const {
    return at + count <= header_.format.size() ? number(header_.format.data() + at, count, header_.big_endian) : 0;
  }

  bool parse_format() {
    header_.format_tag = static_cast<std::uint16_t>(field(0, 2));
    header_.channels = static_cast<int>(field(2, 2));
    const std::uint64_t rate = field(4, 4);
    if (header_.format_tag == kExtensibleTag) {
      header_.channel_mask = static_cast<std::uint32_t>(field(20, 4));
      header_.format_tag = static_cast<std::uint16_t>(field(24, 2));
    } else {
      header_.block_frames = static_cast<int>(field(18, 2));
    }
    if (rate < static_cast<std::uint64_t>(kLowestRate) || rate > static_cast<std::uint64_t>(kHighestRate)) return false;
    header_.rate = static_cast<int>(rate);
    return header_.channels >= 1 && header_.channels <= kMostChannels;
  }

  const SongFile& file_;
  ChunkReader chunks_;
  bool is_rf64_;
  std::optional<std::uint64_t> long_data_size_;
  WavHeader header_;
};

}  // namespace

bool is_wav(const SongFile& file, std::int64_t offset) noexcept { return family_at(file, offset) != Family::kNone; }

std::optional<WavHeader> read_wav_header(const SongFile& file, std::int64_t offset) {
  return HeaderReader(file, family_at(file, offset)).read(offset);
}

}  // namespace tandem
