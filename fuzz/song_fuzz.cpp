// Any bytes as a song file: it is refused, or it can be measured, sought in and read, with one length throughout. The
// last 16 bytes also say where to seek.
#include <algorithm>
#include <cmath>

#include "engine/read/song_measure.h"
#include "engine/read/song_source.h"
#include "fuzz_target.h"
#include "support/bytes.h"
#include "support/temp_directory.h"

using namespace tandem;

namespace {

constexpr std::size_t kSeeks = 4;
constexpr Frames kMostRead = 600'000;  // not every hour of a file that claims to be long
constexpr std::size_t kBlock = 4096;

const std::string& song_path() {
  static const test::TempDirectory directory;
  static const std::string path = directory.file("song");
  return path;
}

Frames read_some(SongSource& source, Frames most) {
  static StereoFrame block[kBlock];
  const std::size_t got = source.read(std::span(block, static_cast<std::size_t>(most)));
  for (const StereoFrame& frame : std::span(block, got))
    fuzz::require(std::isfinite(frame.left) && std::isfinite(frame.right), "every sample is a number");
  return static_cast<Frames>(got);
}

void seek_and_read(SongSource& source, Frames length, const std::uint8_t* four) {
  const auto fraction = static_cast<std::uint32_t>(four[0] | four[1] << 8 | four[2] << 16) & 0xFFFFFFU;
  const auto beyond = static_cast<Frames>(four[3]) - 128;  // a little outside both ends too
  const Frames to = length / 0xFFFFFF * fraction + length % 0xFFFFFF * fraction / 0xFFFFFF + beyond;
  source.seek(to);
  const Frames from = std::clamp<Frames>(to, 0, length);
  const Frames got = read_some(source, 1000);
  fuzz::require(got == std::min<Frames>(length - from, 1000), "after a seek comes what is there");
}

void read_to_end(SongSource& source, Frames length) {
  source.seek(0);
  Frames read = 0;
  for (Frames got = kBlock; got == static_cast<Frames>(kBlock) && read < kMostRead; read += got)
    got = read_some(source, kBlock);
  fuzz::require(read == length || (read >= kMostRead && read <= length), "the song is as long as it says");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  test::write_file(song_path(), {data, data + size});
  const auto source = SongSource::open(song_path());
  const auto measured = measure_song(song_path());
  fuzz::require(measured && (source != nullptr) == measured->opens, "measuring and opening agree");
  if (!source) return 0;
  const Frames length = source->length();
  fuzz::require(length > 0 && length == measured->length, "one length");
  if (size >= 4 * kSeeks)
    for (std::size_t i = 0; i < kSeeks; ++i) seek_and_read(*source, length, data + size - 4 * (i + 1));
  read_to_end(*source, length);
  return 0;
}
