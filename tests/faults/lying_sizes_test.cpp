// Files that claim to be larger than they are: what is asked of the memory goes by what is there. The allocator is
// taken over for this whole program, so that the libraries' requests count too.
#include <gtest/gtest.h>

#include <atomic>
#include <vector>

#include "engine/read/song_source.h"
#include "faults/measured.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
}

namespace tandem::test {
namespace {

constexpr std::size_t kMost = std::size_t{1} << 20U;  // bytes

std::atomic<std::size_t> greatest_request{0};

void note(std::size_t size) noexcept {
  std::size_t before = greatest_request.load();
  while (size > before && !greatest_request.compare_exchange_weak(before, size)) {
  }
}

Bytes with_number(Bytes file, std::size_t at, const Bytes& number) {
  std::copy(number.begin(), number.end(), file.begin() + static_cast<std::ptrdiff_t>(at));
  return file;
}

Signal short_song() { return tones(0.5, 500, 0.3); }

// The header's fields one by one: size of the whole, of the format, channels, rate, bytes a second and a frame, bits,
// size of the sound.
std::vector<Bytes> lying_wavs() {
  const Bytes whole = wav_file(short_song(), Encoding::kInt16);
  std::vector<Bytes> all;
  for (const std::size_t at : {4U, 16U, 24U, 28U, 40U})
    for (const std::uint64_t lie : {0x7FFFFFFFULL, 0xFFFFFFFFULL, 0x10000000ULL})
      all.push_back(with_number(whole, at, number_bytes(lie, 4)));
  for (const std::size_t at : {22U, 32U, 34U}) all.push_back(with_number(whole, at, number_bytes(0xFFFF, 2)));
  const Bytes format = wav_chunk("fmt ", wav_format(short_song(), Encoding::kInt16));
  const Bytes data = encode(short_song().samples, Encoding::kInt16);
  all.push_back(wav_file(wav_chunk_saying("LIST", random_bytes(30, 1), 0xFFFFFFF0) + format + wav_chunk("data", data)));
  const Bytes sizes = number_bytes(1ULL << 62U, 8) + number_bytes(1ULL << 62U, 8) + number_bytes(1ULL << 62U, 8);
  all.push_back(
      wav_file(wav_chunk("ds64", sizes + Bytes(4)) + format + wav_chunk_saying("data", data, 0xFFFFFFFF), "RF64"));
  return all;
}

// The count in the first frame, a tag in front and one at the end that claim to be larger than all files.
std::vector<Bytes> lying_mp3s() {
  const Bytes whole = make_mp3(short_song(), {"-b", "128"});
  const Bytes tag = text_bytes("ID3") + Bytes{3, 0, 0, 0x7F, 0x7F, 0x7F, 0x7F};
  const Bytes ape = text_bytes("APETAGEX") + number_bytes(2000, 4) + number_bytes(0x7FFFFFFF, 4) +
                    number_bytes(0x7FFFFFFF, 4) + number_bytes(0, 4) + Bytes(8);
  std::vector<Bytes> all = {tag + whole, whole + ape, tag + whole + ape};
  for (std::size_t at = 36; at < 200; at += 4) all.push_back(with_number(whole, at, Bytes(4, 0xFF)));
  return all;
}

TEST(LyingSizes, AllocateNothing) {
  const TempDirectory directory;
  std::vector<Bytes> files = lying_wavs();
  for (const Bytes& file : lying_mp3s()) files.push_back(file);
  std::vector<StereoFrame> block(4096);
  std::size_t played = 0;
  greatest_request = 0;
  for (const Bytes& file : files) {
    const std::string path = directory.file("song");
    write_file(path, file);
    const auto song = SongSource::open(path);
    if (song == nullptr) continue;
    ++played;
    song->length();
    for (int i = 0; i < 50 && song->read(block) == block.size(); ++i) continue;
    song->seek(1'000'000'000);
    song->read(block);
  }
  EXPECT_GT(played, files.size() / 4);
  EXPECT_GT(greatest_request, 1000U);
  EXPECT_LE(greatest_request, kMost);
  record_fault(
      "song files with a size, count or tag that lies, " + std::to_string(files.size()) + " of them",
      "no request for more than 1024 kB of memory",
      std::to_string(greatest_request / 1024) + " kB at most, " + std::to_string(played) + " played as far as they go");
}

TEST(LyingSizes, WouldBeSeen) {
  greatest_request = 0;
  const std::vector<char> large(10 * kMost);
  EXPECT_GE(greatest_request, large.size());
}

}  // namespace
}  // namespace tandem::test

extern "C" {

void* malloc(std::size_t size) noexcept {
  tandem::test::note(size);
  return __libc_malloc(size);
}

void* calloc(std::size_t count, std::size_t size) noexcept {
  tandem::test::note(count * size);
  return __libc_calloc(count, size);
}

void* realloc(void* old, std::size_t size) noexcept {
  tandem::test::note(size);
  return __libc_realloc(old, size);
}
}
