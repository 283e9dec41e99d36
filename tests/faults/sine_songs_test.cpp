// The ear of the tests in real time: it finds one frame that is lost, repeated or silent.
#include "faults/sine_songs.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "engine/core/frames.h"

namespace tandem::test {
namespace {

constexpr std::size_t kHeader = 44;
constexpr int kSecond = kSampleRate;

class SineSongs : public testing::Test {
 protected:
  static std::vector<Sample16> song(std::size_t number, double seconds) {
    const Bytes file = sine_song(number, seconds);
    std::vector<Sample16> frames((file.size() - kHeader) / sizeof(Sample16));
    std::copy_n(file.data() + kHeader, frames.size() * sizeof(Sample16),
                reinterpret_cast<std::uint8_t*>(frames.data()));
    return frames;
  }
  // Three seconds, then the other song over its last second.
  static std::vector<Sample16> two_songs() {
    std::vector<Sample16> sound = song(0, 3);
    const std::vector<Sample16> other = song(1, 3);
    sound.resize(5 * kSecond);
    for (std::size_t i = 0; i < other.size(); ++i) {
      Sample16& frame = sound[std::size_t{2} * kSecond + i];
      frame.left = static_cast<std::int16_t>(frame.left + other[i].left);
      frame.right = static_cast<std::int16_t>(frame.right + other[i].right);
    }
    return sound;
  }
  std::vector<Sample16> sound = two_songs();
};

TEST_F(SineSongs, AreWhole) {
  const Heard heard = listen(sound);
  EXPECT_EQ(heard.breaks.size(), 0U);
  EXPECT_LE(heard.longest_silence, 1U);
  EXPECT_NEAR(static_cast<double>(heard.frames()), 5.0 * kSecond, 10);  // the fades begin below one unit
}

TEST_F(SineSongs, ShowALostFrame) {
  for (const std::ptrdiff_t at : {kSecond, 2 * kSecond + 20000, 4 * kSecond}) {
    std::vector<Sample16> cut = sound;
    cut.erase(cut.begin() + at);
    EXPECT_EQ(listen(cut).breaks.size(), 1U) << at;
  }
}

TEST_F(SineSongs, ShowLostBuffers) {
  for (const std::ptrdiff_t lost : {64, 441, 1024, 1280, 2205, 2560, 44100}) {
    std::vector<Sample16> cut = sound;
    cut.erase(cut.begin() + kSecond, cut.begin() + kSecond + lost);
    EXPECT_EQ(listen(cut).breaks.size(), 1U) << lost;
  }
}

TEST_F(SineSongs, ShowASilenceAndLoseNothingByIt) {
  sound.insert(sound.begin() + kSecond + 7, 5000, Sample16{});
  sound.insert(sound.begin(), 3000, Sample16{});
  sound.insert(sound.end(), 3000, Sample16{});
  const Heard heard = listen(sound);
  EXPECT_GE(heard.breaks.size(), 1U);
  EXPECT_GE(heard.longest_silence, 5000U);
  EXPECT_LE(heard.longest_silence, 5001U);
  const Heard rest = listen(without_silences(sound));
  EXPECT_EQ(rest.breaks.size(), 0U);
}

}  // namespace
}  // namespace tandem::test
