// MPEG audio files as whole songs: what encoders make.
#include <gtest/gtest.h>

#include <algorithm>
#include <string_view>

#include "support/mp3_maker.h"
#include "support/song_check.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

// Lossy coding leaves the signal well above its noise at these bit rates.
constexpr double kCodingSnr = 15.0;

struct Case {
  std::vector<std::string> options;
  int channels = 2;
};

void expect_like(const Sound& reference, const Sound& sound, double snr) {
  EXPECT_EQ(lag(reference, sound, 20000, 20000, 1200), 0);
  EXPECT_GT(snr_db(reference, sound), snr);
}

TEST(Mp3Song, TaggedFilesSoundExactlyWhereTheOriginalDid) {
  const std::vector<Case> cases = {{{"-b", "320"}},    {{"-b", "128"}},         {{"-V2"}},
                                   {{"--abr", "160"}}, {{"-V4", "-m", "m"}, 1}, {{"-b", "192", "-p"}}};
  for (const Case& tried : cases) {
    SCOPED_TRACE(tried.options.front() + tried.options.back());
    const Signal signal = music(3.0, kSampleRate, tried.channels);
    const SongCheck check = check_song(make_mp3(signal, tried.options));
    EXPECT_TRUE(check.consistent(0.0F)) << check.length << " " << check.measured << " " << check.sound.size() << " "
                                        << check.difference;
    EXPECT_EQ(check.length, signal.frames());
    expect_like(to_stereo(signal), check.sound, kCodingSnr);
  }
}

TEST(Mp3Song, OtherRatesAreConvertedInPlace) {
  for (const int rate : {48000, 32000, 24000, 22050, 16000, 12000, 11025, 8000}) {
    SCOPED_TRACE(rate);
    const Signal signal = tones(3.0, 330.0, 0.3, rate);
    const SongCheck check = check_song(make_mp3(signal, {"-b", "64"}));
    EXPECT_TRUE(check.consistent(kResampledTolerance))
        << check.length << " " << check.measured << " " << check.sound.size() << " " << check.difference;
    EXPECT_EQ(check.length, 3 * kSampleRate);
    expect_like(to_stereo(tones(3.0, 330.0, 0.3)), check.sound, kCodingSnr);
  }
}

// A leading frame of silence that holds the length in another encoder's tag.
TEST(Mp3Song, AVbriFrameNeverSounds) {
  const Bytes plain = make_mp3(music(3.0), {"-b", "128", "-t"});
  constexpr std::size_t kFrame = 417;  // 128 kbit/s at 44.1 kHz without padding
  constexpr std::string_view kMark = "VBRI";
  Bytes file(kFrame);
  std::copy(plain.begin(), plain.begin() + 4, file.begin());
  file[2] &= 0xFDU;  // no padding
  std::copy(kMark.begin(), kMark.end(), file.begin() + 36);
  file.resize(kFrame + plain.size());
  std::copy(plain.begin(), plain.end(), file.begin() + kFrame);
  const SongCheck without = check_song(plain);
  const SongCheck with = check_song(file);
  EXPECT_TRUE(with.consistent(0.0F));
  EXPECT_EQ(with.length, without.length);
  EXPECT_TRUE(std::ranges::equal(with.sound, without.sound, [](const StereoFrame& a, const StereoFrame& b) {
    return a.left == b.left && a.right == b.right;
  }));
}

TEST(Mp3Song, WithoutInformationFrameEveryFrameSounds) {
  for (const std::string& option : {std::string("-V2"), std::string("-b128")}) {
    const Signal signal = music(3.0);
    const SongCheck check = check_song(make_mp3(signal, {option, "-t"}));
    EXPECT_TRUE(check.consistent(0.0F));
    EXPECT_EQ(check.length % 1152, 0);
    // The encoder's delay of 576 and the decoder's of 529 cannot be known and stay.
    EXPECT_EQ(lag(to_stereo(signal), check.sound, 20000, 20000, 1300), 1105);
  }
}

TEST(Mp3Song, OfFreeFormatPlaysWhole) {
  const Signal signal = music(3.0);
  const SongCheck check = check_song(make_mp3(signal, {"--freeformat", "-b", "450"}));
  EXPECT_TRUE(check.consistent(0.0F)) << check.length << " " << check.measured << " " << check.sound.size();
  EXPECT_EQ(check.length, signal.frames());
  expect_like(to_stereo(signal), check.sound, kCodingSnr);
}

TEST(Mp3Song, LowBitRatesSeekOverALongReservoir) {
  for (const int rate : {44100, 24000, 8000}) {
    const std::string bits = rate == 44100 ? "32" : "8";
    const SongCheck check = check_song(make_mp3(music(5.0, rate), {"-b", bits, "--resample", std::to_string(rate)}));
    EXPECT_TRUE(check.consistent(rate == 44100 ? 0.0F : kResampledTolerance)) << rate << " " << check.difference;
  }
}

TEST(Mp3Song, OfLayerTwoPlaysWhole) {
  for (const int rate : {44100, 48000, 24000}) {
    const Signal signal = tones(3.0, 330.0, 0.3, rate);
    const SongCheck check = check_song(make_layer2(signal));
    EXPECT_TRUE(check.consistent(rate == 44100 ? 0.0F : kResampledTolerance)) << rate << " " << check.difference;
    const double seconds = static_cast<double>(check.length) / kSampleRate;
    EXPECT_NEAR(seconds, 3.0, 0.1);  // whole frames, up to 48 ms each
    EXPECT_NEAR(tone_amplitude(std::span(check.sound).subspan(kSampleRate, kSampleRate), 0, 330.0), 0.3, 0.01);
  }
}

TEST(Mp3Song, OfLayerOnePlaysWhole) {
  const SongCheck check = check_song(make_layer1(300));
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.length, 300 * 384);
  EXPECT_GT(rms(check.sound), 0.01);
}

TEST(Mp3Song, RateAndModeMayChangeWithinTheStream) {
  const Bytes stereo48 = make_mp3(tones(2.0, 330.0, 0.3, 48000), {"-b", "128", "-t"});
  const Bytes mono44 = make_mp3(tones(2.0, 330.0, 0.3, 44100, 1), {"-b", "64", "-t"});
  const Bytes stereo44 = make_mp3(tones(2.0, 330.0, 0.3), {"-b", "128", "-t"});
  const Bytes low = make_mp3(tones(2.0, 330.0, 0.3, 22050), {"-b", "64", "-t"});
  Frames sum = 0;
  for (const Bytes& part : {stereo48, mono44, stereo44, low}) sum += check_song(part).length;
  const SongCheck check = check_song(stereo48 + mono44 + stereo44 + low);
  EXPECT_TRUE(check.consistent(kResampledTolerance))
      << check.length << " " << check.sound.size() << " " << check.difference;
  EXPECT_EQ(check.length, sum);
  for (const Frames second : {1, 3, 5, 7}) {
    const auto stretch =
        std::span(check.sound).subspan(static_cast<std::size_t>(second * kSampleRate), kSampleRate / 3);
    EXPECT_NEAR(tone_amplitude(stretch, 0, 330.0), 0.3, 0.02) << second;
  }
}

TEST(Mp3Song, WithinAWavFilePlaysWhole) {
  const Signal signal = music(3.0);
  const Bytes mp3 = make_mp3(signal, {"-V2"});
  const Bytes format = number_bytes(0x55, 2) + number_bytes(2, 2) + number_bytes(44100, 4) + number_bytes(16000, 4) +
                       number_bytes(1, 2) + number_bytes(0, 2) + number_bytes(12, 2) + number_bytes(1, 2) +
                       number_bytes(2, 4) + number_bytes(417, 2) + number_bytes(1, 2) + number_bytes(1393, 2);
  const Bytes list = wav_chunk("LIST", Bytes(26, 0));
  const SongCheck check = check_song(wav_file(wav_chunk("fmt ", format) + wav_chunk("data", mp3) + list));
  EXPECT_TRUE(check.consistent(0.0F));
  EXPECT_EQ(check.length, signal.frames());
  expect_like(to_stereo(signal), check.sound, kCodingSnr);
}

TEST(Mp3Song, IsWholeHoweverShort) {
  for (const Frames frames : {1, 100, 1152, 2000}) {
    const Signal signal = music(static_cast<double>(frames) / kSampleRate);
    const SongCheck check = check_song(make_mp3(signal, {"-b", "128"}));
    EXPECT_TRUE(check.consistent(0.0F)) << frames;
    EXPECT_EQ(check.length, frames);
  }
}

}  // namespace
}  // namespace tandem::test
