// WAV files as whole songs.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <limits>

#include "support/mp3_maker.h"
#include "support/short_runs.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

Signal short_music() { return music(1.5); }

// Exactly what 16 bits hold of a signal.
Sound as_16_bit(const Signal& signal) {
  Signal rounded = signal;
  for (double& sample : rounded.samples) sample = std::round(sample * 32768.0) / 32768.0;
  return to_stereo(rounded);
}

Bytes format16(const Signal& signal) { return wav_chunk("fmt ", wav_format(signal, Encoding::kInt16)); }

void expect_plays(const Bytes& file, const Sound& expected, const char* what) {
  const SongCheck check = check_song(file);
  EXPECT_TRUE(check.consistent(0.0F)) << what << ": " << check.length << " " << check.measured << " "
                                      << check.sound.size();
  EXPECT_TRUE(check.sound == expected) << what << ": " << check.sound.size() << " for " << expected.size();
}

TEST(WavSong, SixteenBitSamplesComeOutExactly) {
  Signal signal{kSampleRate, 2, {}};
  for (int value = -32768; value <= 32767; ++value) signal.samples.push_back(value / 32768.0);
  expect_plays(wav_file(signal, Encoding::kInt16), to_stereo(signal), "all values");
}

TEST(WavSong, PlaysInEveryUncompressedEncoding) {
  const Signal signal = short_music();
  const Sound expected = to_stereo(signal);
  const std::vector<std::pair<Encoding, double>> encodings = {
      {Encoding::kInt8, 1.0 / 128}, {Encoding::kInt16, 1.0 / 32768}, {Encoding::kInt24, 1e-6},
      {Encoding::kInt32, 1e-6},     {Encoding::kFloat32, 0.0},       {Encoding::kFloat64, 1e-7}};
  for (const auto& [encoding, step] : encodings) {
    const SongCheck check = check_song(wav_file(signal, encoding));
    EXPECT_TRUE(check.consistent(0.0F)) << static_cast<int>(encoding);
    EXPECT_EQ(check.length, signal.frames());
    EXPECT_LE(greatest_difference(check.sound, expected), step) << static_cast<int>(encoding);
  }
}

TEST(WavSong, MonoGoesToBothChannels) {
  const Signal signal = music(1.0, kSampleRate, 1);
  expect_plays(wav_file(signal, Encoding::kInt16), as_16_bit(signal), "mono");
}

TEST(WavSong, EveryChannelIsHeard) {
  for (int channels = 3; channels <= 8; ++channels) {
    const SongCheck check = check_song(wav_file(tones(1.0, 500.0, 0.1, kSampleRate, channels), Encoding::kInt16));
    ASSERT_TRUE(check.consistent(0.0F)) << channels;
    for (int channel = 0; channel < channels; ++channel) {
      const double hertz = 500.0 * (channel + 1);
      const double sum = tone_amplitude(check.sound, 0, hertz) + tone_amplitude(check.sound, 1, hertz);
      EXPECT_GT(sum, 0.02) << channel << " of " << channels;
    }
  }
}

TEST(WavSong, FiveChannelsAndLowFrequencies) {
  const Signal signal = tones(1.0, 500.0, 0.1, kSampleRate, 6);
  const Bytes format = wav_chunk("fmt ", wav_format(signal, Encoding::kInt24, 0x3F));
  const SongCheck check = check_song(wav_file(format + wav_chunk("data", encode(signal.samples, Encoding::kInt24))));
  ASSERT_TRUE(check.consistent(0.0F));
  const std::vector<std::pair<double, double>> gains = {{1.0, 0.0}, {0.0, 1.0},    {0.7071, 0.7071},
                                                        {0.5, 0.5}, {0.7071, 0.0}, {0.0, 0.7071}};
  constexpr double kFullScale = 1.0 + 2 * 0.7071;  // of all channels but the low frequencies on one side
  for (std::size_t channel = 0; channel < gains.size(); ++channel) {
    const double hertz = 500.0 * static_cast<double>(channel + 1);
    EXPECT_NEAR(tone_amplitude(check.sound, 0, hertz), 0.1 * gains[channel].first / kFullScale, 1e-5) << channel;
    EXPECT_NEAR(tone_amplitude(check.sound, 1, hertz), 0.1 * gains[channel].second / kFullScale, 1e-5) << channel;
  }
}

TEST(WavSong, AnyRateIsConverted) {
  for (const int rate :
       {8000, 11025, 16000, 22050, 32000, 44056, 44099, 47999, 48000, 88200, 96000, 176400, 192000, 384000}) {
    if (test::kShortRuns && rate != 22050 && rate != 96000) continue;
    SCOPED_TRACE(rate);
    Signal signal = tones(1.0, 997.0, 0.5, rate);
    signal.samples.resize(signal.samples.size() - 14);  // not a whole second
    const SongCheck check = check_song(wav_file(signal, Encoding::kFloat32));
    EXPECT_TRUE(check.consistent(kResampledTolerance))
        << check.length << " " << check.sound.size() << " " << check.difference << " " << check.misplaced;
    const double exact = static_cast<double>(signal.frames()) * kSampleRate / rate;
    EXPECT_EQ(check.length, std::llround(exact));
    // The ends are left out: a tone that begins at once is not band-limited.
    const Sound expected = to_stereo(tones(1.0, 997.0, 0.5));
    EXPECT_GT(snr_db(std::span(expected).subspan(10000, 20000), std::span(check.sound).subspan(10000, 20000)), 120.0);
  }
}

TEST(WavSong, NotANumberIsSilence) {
  for (const Encoding encoding : {Encoding::kFloat32, Encoding::kFloat64}) {
    Signal signal = tones(0.1, 500.0, 0.5);
    signal.samples[100] = std::numeric_limits<double>::quiet_NaN();
    signal.samples[103] = std::numeric_limits<double>::infinity();
    signal.samples[105] = -std::numeric_limits<double>::infinity();
    const SongCheck check = check_song(wav_file(signal, encoding));
    ASSERT_EQ(check.length, signal.frames());
    for (const std::size_t sample : {100U, 103U, 105U}) signal.samples[sample] = 0.0;
    EXPECT_LE(greatest_difference(check.sound, to_stereo(signal)), 1e-7F);
  }
}

TEST(WavSong, SizesThatLieAreReplacedByWhatIsThere) {
  const Signal signal = short_music();
  const Sound expected = as_16_bit(signal);
  const Bytes data = encode(signal.samples, Encoding::kInt16);
  for (const std::uint64_t size : {0ULL, 0x7FFFFFFFULL, 0xFFFFFFFFULL, 0xFFFFFFF0ULL}) {
    expect_plays(wav_file(format16(signal) + wav_chunk_saying("data", data, size)), expected, "data size");
  }
  for (const std::uint64_t size : {0ULL, 10ULL, 0xFFFFFFFFULL}) {
    Bytes file = wav_file(signal, Encoding::kInt16);
    const Bytes lie = number_bytes(size, 4);
    std::copy(lie.begin(), lie.end(), file.begin() + 4);
    expect_plays(file, expected, "RIFF size");
  }
}

// Beyond 4 GiB the size's 32 bits wrap. The sound's end is a mark, most of the file a hole.
TEST(WavSong, ASizeThatHasWrappedIsRecognised) {
  constexpr std::uint64_t kWrap = std::uint64_t{1} << 32U;
  constexpr std::uint64_t kDataBytes = kWrap + 4'000'000;
  const Signal signal = short_music();
  const TempDirectory directory;
  for (const Bytes& after : {Bytes{}, wav_chunk("LIST", Bytes(26, 1))}) {
    const Bytes head = wav_file(format16(signal) + wav_chunk_saying("data", Bytes{}, kDataBytes % kWrap));
    write_file(directory.file("song"), head);
    std::filesystem::resize_file(directory.file("song"), head.size() + kDataBytes);
    std::ofstream(directory.file("song"), std::ios::binary | std::ios::app)
        .write(reinterpret_cast<const char*>(after.data()), static_cast<std::streamsize>(after.size()));
    EXPECT_EQ(measure_song(directory.file("song"))->length, static_cast<Frames>(kDataBytes / 4)) << after.size();
  }
}

// A great chunk after little sound is no reason to take it for sound.
TEST(WavSong, AGreatChunkAfterTheSoundNeverSounds) {
  constexpr std::uint64_t kChunkBytes = (std::uint64_t{1} << 32U) - 16;
  const Signal signal = short_music();
  const TempDirectory directory;
  const Bytes data = encode(signal.samples, Encoding::kInt16);
  const Bytes head =
      wav_file(format16(signal) + wav_chunk("data", data) + wav_chunk_saying("junk", Bytes{}, kChunkBytes));
  write_file(directory.file("song"), head);
  std::filesystem::resize_file(directory.file("song"), head.size() + kChunkBytes);
  EXPECT_EQ(measure_song(directory.file("song"))->length, signal.frames());
}

TEST(WavSong, TruncatedFilePlaysWhatIsThere) {
  const Signal signal = short_music();
  const Bytes file = wav_file(signal, Encoding::kInt16);
  const Sound all = as_16_bit(signal);
  const SongCheck check = check_song(slice(file, 0, 44 + 4 * 1000 + 3));
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.sound, Sound(all.begin(), all.begin() + 1000));
}

TEST(WavSong, PlaysWithOtherChunksAnywhere) {
  const Signal signal = short_music();
  const Sound expected = as_16_bit(signal);
  const Bytes data = wav_chunk("data", encode(signal.samples, Encoding::kInt16));
  const Bytes odd = wav_chunk("LIST", random_bytes(31, 4));
  const Bytes junk = wav_chunk("junk", Bytes(100'001));
  expect_plays(wav_file(odd + format16(signal) + junk + data + odd), expected, "around");
  expect_plays(wav_file(data + odd + format16(signal)), expected, "format behind");
  expect_plays(make_id3v2(3000) + wav_file(format16(signal) + data), expected, "ID3 in front");
}

TEST(WavSong, PlaysInBigEndian) {
  const Signal signal = short_music();
  const Bytes chunks = wav_chunk("fmt ", wav_format(signal, Encoding::kInt16, 0, true), true) +
                       wav_chunk("data", encode(signal.samples, Encoding::kInt16, true), true);
  expect_plays(wav_file(chunks, "RIFX", true), as_16_bit(signal), "RIFX");
}

TEST(WavSong, PlaysWithSizesOf64Bits) {
  const Signal signal = short_music();
  const Bytes data = encode(signal.samples, Encoding::kInt16);
  for (const std::uint64_t stated : {std::uint64_t{data.size()}, std::uint64_t{0}}) {
    const Bytes sizes = number_bytes(data.size() + 100, 8) + number_bytes(stated, 8) + Bytes(12);
    const Bytes chunks = wav_chunk("ds64", sizes) + format16(signal) + wav_chunk_saying("data", data, 0xFFFFFFFF);
    expect_plays(wav_file(chunks, "RF64"), as_16_bit(signal), "RF64");
    expect_plays(wav_file(chunks, "BW64"), as_16_bit(signal), "BW64");
  }
}

TEST(WavSong, PlaysInTheSixtyFourBitFamily) {
  const Signal signal = short_music();
  const Bytes data = encode(signal.samples, Encoding::kInt16);
  const Bytes tail = {0xF3, 0xAC, 0xD3, 0x11, 0x8C, 0xD1, 0x00, 0xC0, 0x4F, 0x8E, 0xDB, 0x8A};
  const Bytes riff_tail = {0x2E, 0x91, 0xCF, 0x11, 0xA5, 0xD6, 0x28, 0xDB, 0x04, 0xC1, 0x00, 0x00};
  const auto chunk = [&](const char* name, const Bytes& content, std::uint64_t size) {
    return text_bytes(name) + tail + number_bytes(size, 8) + content + Bytes((8 - content.size() % 8) % 8);
  };
  const Bytes format = wav_format(signal, Encoding::kInt16);
  for (const std::uint64_t stated : {std::uint64_t{data.size() + 24}, std::uint64_t{24}, std::uint64_t{0}}) {
    const Bytes chunks = chunk("fmt ", format, format.size() + 24) + chunk("data", data, stated);
    const Bytes head = text_bytes("riff") + riff_tail + number_bytes(chunks.size() + 40, 8) + text_bytes("wave") + tail;
    const SongCheck check = check_song(head + chunks);
    EXPECT_TRUE(check.consistent(0.0F)) << stated;
    ASSERT_GE(check.length, signal.frames()) << stated;
    EXPECT_LE(check.length, signal.frames() + 1) << stated;  // without a size the last chunk's padding may be counted
    EXPECT_EQ(greatest_difference(check.sound, as_16_bit(signal)), 0.0F) << stated;
  }
}

TEST(WavSong, UnplayableFilesAreRefused) {
  const Signal signal = tones(0.1, 500.0, 0.5);
  const Bytes data = wav_chunk("data", encode(signal.samples, Encoding::kInt16));
  Signal none = signal;
  none.channels = 0;
  Signal still = signal;
  still.rate = 0;
  Bytes unknown = wav_format(signal, Encoding::kInt16);
  unknown[0] = 0x34;
  unknown[1] = 0x12;
  const Bytes list = wav_chunk("LIST", Bytes(20));
  EXPECT_FALSE(check_song(wav_file(format16(none) + data)).opened) << "no channels";
  EXPECT_FALSE(check_song(wav_file(format16(still) + data)).opened) << "no rate";
  EXPECT_FALSE(check_song(wav_file(data)).opened) << "no format";
  EXPECT_FALSE(check_song(wav_file(format16(signal))).opened) << "no data";
  EXPECT_FALSE(check_song(wav_file(format16(signal) + wav_chunk("data", {}))).opened) << "empty data";
  EXPECT_FALSE(check_song(wav_file(format16(signal) + wav_chunk("data", {}) + list)).opened)
      << "empty data before a list";
  EXPECT_FALSE(check_song(wav_file(wav_chunk("fmt ", unknown) + data)).opened) << "unknown encoding";
  EXPECT_FALSE(check_song(Bytes(64) + wav_file(signal, Encoding::kInt16)).opened) << "zeros in front";
  EXPECT_FALSE(check_song(wav_file(Bytes())).opened) << "nothing";
}

}  // namespace
}  // namespace tandem::test
