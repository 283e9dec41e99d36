// WAV files in compressed encodings, as libsndfile writes them.
#include <gtest/gtest.h>
#include <sndfile.h>

#include "support/program.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

struct Codec {
  const char* name;
  int format;
  int rate;
  int channels;
  double snr;  // what the encoding keeps of two tones, in dB
};

void write_sound(const std::string& path, const Signal& signal, int format) {
  SF_INFO info{};
  info.samplerate = signal.rate;
  info.channels = signal.channels;
  info.format = format;
  SNDFILE* file = sf_open(path.c_str(), SFM_WRITE, &info);
  ASSERT_NE(file, nullptr) << sf_strerror(nullptr);
  ASSERT_EQ(sf_writef_double(file, signal.samples.data(), signal.frames()), signal.frames());
  sf_close(file);
}

class WavCodec : public testing::TestWithParam<Codec> {};

TEST_P(WavCodec, PlaysWholeAndSeeks) {
  const Codec& codec = GetParam();
  const TempDirectory directory;
  const Signal signal = tones(3.0, 300.0, 0.4, codec.rate, codec.channels);
  write_sound(directory.file("song.wav"), signal, codec.format);
  const SongCheck check = check_song(directory.file("song.wav"));
  EXPECT_TRUE(check.consistent(codec.rate == kSampleRate ? 0.0F : 1e-5F))
      << check.length << " " << check.measured << " " << check.sound.size() << " " << check.difference << " "
      << check.misplaced;
  const Sound expected = to_stereo(tones(3.0, 300.0, 0.4, kSampleRate, codec.channels));
  EXPECT_GT(snr_db(expected, check.sound), codec.snr);
}

INSTANTIATE_TEST_SUITE_P(All, WavCodec,
                         testing::Values(Codec{"alaw", SF_FORMAT_WAV | SF_FORMAT_ALAW, 44100, 2, 30.0},
                                         Codec{"ulaw", SF_FORMAT_WAV | SF_FORMAT_ULAW, 44100, 2, 30.0},
                                         Codec{"ima", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 44100, 2, 30.0},
                                         Codec{"ms", SF_FORMAT_WAV | SF_FORMAT_MS_ADPCM, 44100, 2, 30.0},
                                         Codec{"ima22", SF_FORMAT_WAV | SF_FORMAT_IMA_ADPCM, 22050, 1, 25.0},
                                         Codec{"gsm", SF_FORMAT_WAV | SF_FORMAT_GSM610, 8000, 1, 5.0},
                                         Codec{"g721", SF_FORMAT_WAV | SF_FORMAT_G721_32, 8000, 1, 15.0},
                                         Codec{"extensible24", SF_FORMAT_WAVEX | SF_FORMAT_PCM_24, 44100, 2, 100.0},
                                         Codec{"w64", SF_FORMAT_W64 | SF_FORMAT_PCM_16, 44100, 2, 80.0},
                                         Codec{"rf64", SF_FORMAT_RF64 | SF_FORMAT_FLOAT, 44100, 2, 120.0}),
                         [](const testing::TestParamInfo<Codec>& tested) { return tested.param.name; });

// By sox, because libsndfile itself notes a wrong count for IMA ADPCM.
TEST(WavCodecLength, FactChunkTrimsTheLastBlock) {
  const TempDirectory directory;
  const Signal signal = tones(3.0, 300.0, 0.4);
  write_file(directory.file("plain.wav"), wav_file(signal, Encoding::kInt16));
  for (const std::string& encoding : {std::string("ima-adpcm"), std::string("ms-adpcm")}) {
    const std::string song = directory.file("song.wav");
    run_program({"sox", directory.file("plain.wav"), "-e", encoding, song});
    EXPECT_EQ(check_song(song).length, signal.frames()) << encoding;
  }
}

TEST(WavCodecLength, CutFilesPlayWhatIsThere) {
  const TempDirectory directory;
  for (const int encoding : {SF_FORMAT_IMA_ADPCM, SF_FORMAT_MS_ADPCM, SF_FORMAT_ALAW}) {
    write_sound(directory.file("song.wav"), tones(3.0, 300.0, 0.4), SF_FORMAT_WAV | encoding);
    const Bytes file = read_file(directory.file("song.wav"));
    const SongCheck check = check_song(slice(file, 0, file.size() / 2 + 77));
    EXPECT_TRUE(check.consistent(0.0F)) << encoding << " " << check.length << " " << check.sound.size() << " "
                                        << check.difference;
    EXPECT_NEAR(static_cast<double>(check.length), 1.5 * kSampleRate, 3000) << encoding;
  }
}

}  // namespace
}  // namespace tandem::test
