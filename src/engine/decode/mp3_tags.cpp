#include "engine/decode/mp3_tags.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace tandem {
namespace {

constexpr std::int64_t kId3v1Bytes = 128;
constexpr std::int64_t kId3v1ExtraBytes = 227;  // "TAG+" before the tag proper
constexpr std::int64_t kApeFrameBytes = 32;     // header or footer
constexpr std::int64_t kLongestLyrics1 = 5100;

bool begins(const std::uint8_t* bytes, std::string_view text) {
  return bytes != nullptr && std::memcmp(bytes, text.data(), text.size()) == 0;
}

std::int64_t little_endian(const std::uint8_t* bytes) {
  return std::int64_t{bytes[0]} | std::int64_t{bytes[1]} << 8 | std::int64_t{bytes[2]} << 16 |
         std::int64_t{bytes[3]} << 24;
}

// Size of the whole ID3v2 tag that begins here, 0 if none does. Its size field counts 7 bits a byte, whether or not the
// tag's content is unsynchronised.
std::int64_t id3v2_bytes(const std::uint8_t* head) {
  if (!begins(head, "ID3") || head[3] == 0xFF || head[4] == 0xFF) return 0;
  std::int64_t size = 0;
  for (int i = 6; i < 10; ++i) {
    if (head[i] >= 0x80) return 0;
    size = size << 7 | head[i];
  }
  const bool footer = (head[5] & 0x10) != 0;
  return size + (footer ? 20 : 10);
}

std::int64_t ape_bytes_at_head(const std::uint8_t* head) {
  return begins(head, "APETAGEX") ? kApeFrameBytes + little_endian(head + 12) : 0;
}

class TailReader {
 public:
  TailReader(const SongFile& file, std::int64_t begin) : file_(file), begin_(begin) {}

  bool matches(std::int64_t offset, std::string_view text) {
    return read(offset, text.size()) && begins(bytes_.data(), text);
  }
  bool read(std::int64_t offset, std::size_t count) {
    return offset >= begin_ && file_.read_at(offset, std::span(bytes_).first(count)) == count;
  }
  const std::array<std::uint8_t, 8192>& bytes() const { return bytes_; }
  std::int64_t begin() const { return begin_; }

 private:
  const SongFile& file_;
  std::int64_t begin_;
  std::array<std::uint8_t, 8192> bytes_{};
};

std::int64_t id3v1_before(TailReader& tail, std::int64_t end) {
  if (!tail.matches(end - kId3v1Bytes, "TAG")) return 0;
  return tail.matches(end - kId3v1Bytes - kId3v1ExtraBytes, "TAG+") ? kId3v1Bytes + kId3v1ExtraBytes : kId3v1Bytes;
}

std::int64_t ape_before(TailReader& tail, std::int64_t end) {
  if (!tail.read(end - kApeFrameBytes, static_cast<std::size_t>(kApeFrameBytes))) return 0;
  const std::uint8_t* foot = tail.bytes().data();
  if (!begins(foot, "APETAGEX")) return 0;
  const bool has_header = (foot[23] & 0x80) != 0;
  return std::max(little_endian(foot + 12), kApeFrameBytes) + (has_header ? kApeFrameBytes : 0);
}

// "LYRICSBEGIN", fields, six digits that count both, "LYRICS200".
std::int64_t lyrics2_before(TailReader& tail, std::int64_t end) {
  if (!tail.read(end - 15, 15) || !begins(tail.bytes().data() + 6, "LYRICS200")) return 0;
  std::int64_t size = 0;
  for (std::size_t i = 0; i < 6; ++i) {
    const int digit = tail.bytes().at(i) - '0';
    if (digit < 0 || digit > 9) return 0;
    size = size * 10 + digit;
  }
  return tail.matches(end - 15 - size, "LYRICSBEGIN") ? size + 15 : 0;
}

std::int64_t lyrics1_before(TailReader& tail, std::int64_t end) {
  if (!tail.matches(end - 9, "LYRICSEND")) return 0;
  const std::int64_t size = std::min(kLongestLyrics1 + 20, end - tail.begin());
  if (!tail.read(end - size, static_cast<std::size_t>(size))) return 0;
  const auto* text = tail.bytes().data();
  constexpr std::string_view kBegin = "LYRICSBEGIN";
  const auto* found = std::search(text, text + size, kBegin.begin(), kBegin.end());
  return found == text + size ? 0 : size - (found - text);
}

// An ID3v2 tag may also stand at the end; its footer repeats the header.
std::int64_t id3v2_before(TailReader& tail, std::int64_t end) {
  if (!tail.matches(end - 10, "3DI") || !tail.read(end - 10, 10)) return 0;
  std::array<std::uint8_t, 10> head{};
  std::copy_n(tail.bytes().begin(), head.size(), head.begin());
  std::copy_n("ID3", 3, head.begin());
  return id3v2_bytes(head.data());
}

}  // namespace

std::int64_t skip_tags(ByteWindow& window, std::int64_t offset) noexcept {
  for (;;) {
    std::int64_t size = id3v2_bytes(window.at(offset, 10));
    if (size == 0) size = ape_bytes_at_head(window.at(offset, static_cast<std::size_t>(kApeFrameBytes)));
    if (size == 0 && begins(window.at(offset, static_cast<std::size_t>(kId3v1Bytes)), "TAG")) size = kId3v1Bytes;
    if (size == 0) return offset;
    offset = std::min(offset + size, window.end());
  }
}

std::int64_t trim_tags(const SongFile& file, std::int64_t begin, std::int64_t end) noexcept {
  TailReader tail(file, begin);
  for (;;) {
    std::int64_t size = id3v1_before(tail, end);
    if (size == 0) size = ape_before(tail, end);
    if (size == 0) size = lyrics2_before(tail, end);
    if (size == 0) size = lyrics1_before(tail, end);
    if (size == 0) size = id3v2_before(tail, end);
    if (size == 0 || size > end - begin) return end;
    end -= size;
  }
}

}  // namespace tandem
