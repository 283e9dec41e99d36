#include "program/ten_songs.h"

#include <algorithm>

#include "program/signatures.h"
#include "support/mp3_maker.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {

namespace {

constexpr double kPeak = 0.45;  // two songs at once stay below full scale

class Maker {
 public:
  // Each song a little longer than the one before.
  void mp3(const std::string& name, const std::vector<std::string>& options, int rate = kSampleRate, int channels = 2) {
    keep(name + ".mp3", make_mp3(next(rate, channels), options));
    songs.back().headless = std::find(options.begin(), options.end(), "-t") != options.end();
  }
  void wav(const std::string& name, Encoding encoding, int rate = kSampleRate) {
    keep(name + ".wav", wav_file(next(rate, 2), encoding));
  }

  TempDirectory directory;
  std::vector<KnownSong> songs;

 private:
  double seconds() const { return 8.0 + 0.0371 * static_cast<double>(songs.size()); }
  unsigned seed() const { return 100 + static_cast<unsigned>(songs.size()); }
  Signal next(int rate, int channels) const { return signature(seed(), seconds(), kPeak, rate, channels); }
  void keep(const std::string& name, const Bytes& bytes) {
    KnownSong song{directory.file(name), {}, signature(seed(), seconds(), kPeak)};
    write_file(song.path, bytes);
    song.sound = read_all(*SongSource::open(song.path));
    songs.push_back(std::move(song));
  }
};

}  // namespace

const std::vector<KnownSong>& ten_songs() {
  static Maker maker;
  if (!maker.songs.empty()) return maker.songs;
  maker.mp3("cbr", {"-b", "192"});
  maker.wav("8bit", Encoding::kInt8);
  maker.mp3("vbr", {"-V2"});
  maker.wav("16bit", Encoding::kInt16);
  maker.mp3("vbr_headless", {"-V2", "-t"});
  maker.wav("24bit", Encoding::kInt24);
  maker.mp3("mono22", {"-b", "64"}, 22050, 1);
  maker.wav("float", Encoding::kFloat32);
  maker.mp3("48k", {"-b", "192"}, 48000);
  maker.wav("wav48k", Encoding::kInt16, 48000);
  return maker.songs;
}

}  // namespace tandem::test
