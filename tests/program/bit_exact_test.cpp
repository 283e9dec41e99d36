// What goes in comes out: at pitch 0, flat equalizer and full volume the chain only delays; and it never wraps.
#include <gtest/gtest.h>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "support/bytes.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

constexpr Frames kSong = 3 * kSampleRate;

struct Noise {
  Signal signal;
  std::string path;
};

Noise add_noise(PlayerRig& rig, unsigned seed, double peak, Frames frames = kSong) {
  Noise noise{full_noise(seed, frames, peak), rig.file(std::to_string(seed) + ".wav")};
  write_file(noise.path, wav_file(noise.signal, Encoding::kInt16));
  rig.add(noise.path);
  return noise;
}

int sample_of(const Signal& signal, std::size_t frame, std::size_t channel) {
  return static_cast<int>(signal.samples[2 * frame + channel] * 32768.0);
}

// Frames within [from, to) of the sound, of which frame `start` is the song's first, that are not the song's.
std::size_t wrong_frames(const PlayerRig& rig, const Signal& signal, std::size_t start, std::size_t from,
                         std::size_t to) {
  std::size_t wrong = 0;
  for (std::size_t i = from; i < to; ++i) {
    const Sample16 heard = rig.sound()[start + i];
    if (heard.left != sample_of(signal, i, 0) || heard.right != sample_of(signal, i, 1)) ++wrong;
  }
  return wrong;
}

TEST(BitExact, FullScaleNoiseComesOutAsItIs) {
  PlayerRig rig;
  const Noise noise = add_noise(rig, 1, 1.0);
  const std::size_t start = rig.next_start();
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(4000));
  rig.run(100);
  EXPECT_EQ(wrong_frames(rig, noise.signal, start, 0, kSong), 0U);
  EXPECT_EQ(longest_silence(rig.sound(), start + kSong, rig.frames()), rig.frames() - start - kSong);
}

TEST(BitExact, WithABypassedEqualizerThatIsNotFlat) {
  PlayerRig rig;
  const Noise noise = add_noise(rig, 2, 1.0);
  rig.controls().sl0[3].move(6);
  rig.controls().Bypass.move(0);
  rig.run(100);  // fades from filter to filter
  const std::size_t start = rig.next_start();
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(4000));
  rig.run(100);
  EXPECT_EQ(wrong_frames(rig, noise.signal, start, 0, kSong), 0U);
}

TEST(BitExact, AgainAfterAnEqualizerThatWasInCircuit) {
  PlayerRig rig;
  const Noise noise = add_noise(rig, 3, 0.25);
  const std::size_t start = rig.next_start();
  rig.controls().sl0[3].move(6);
  rig.play();
  rig.run(1000);
  rig.controls().Bypass.move(0);
  rig.run(500);
  ASSERT_TRUE(rig.run_until_stopped(4000));
  rig.run(100);
  EXPECT_GT(wrong_frames(rig, noise.signal, start, 10'000, 40'000), 29'000U);
  EXPECT_EQ(wrong_frames(rig, noise.signal, start, 60'000, kSong), 0U);
}

// Two songs of noise that overlap by a second; the first one has begun.
struct TwoSongs {
  explicit TwoSongs(double peak) {
    rig.choose_lead(1000);
    first = add_noise(rig, 4, peak);
    second = add_noise(rig, 5, peak);
    start = rig.next_start();
    rig.play();
  }

  PlayerRig rig;
  Noise first, second;
  std::size_t start = 0;  // of the first one
};

// From the first frame of the second song to the last of the first, and on to the end of the second.
TEST(BitExact, TwoSongsAreSummedFrameByFrame) {
  TwoSongs songs(0.49);
  auto& [rig, first, second, start] = songs;
  ASSERT_TRUE(rig.run_until_stopped(8000));
  rig.run(100);
  SongFinder finder(rig.sound());
  EXPECT_EQ(finder.take(to_stereo(first.signal)), start);
  const std::size_t mixed = finder.take(to_stereo(second.signal));
  EXPECT_GT(mixed, start + kSong - 45'000);
  EXPECT_LT(mixed, start + kSong - 43'000);
  EXPECT_EQ(finder.rest(), 0.0);
}

// Wrapping would turn the sign of a sum beyond full scale.
TEST(Limiting, TwoFullScaleSongsAtOnceNeverWrap) {
  TwoSongs songs(1.0);
  auto& [rig, first, second, start] = songs;
  ASSERT_TRUE(rig.run_until([&songs] { return !songs.rig.mixer().Mute(1); }, 4000));
  const std::size_t mixed = rig.next_start();
  ASSERT_TRUE(rig.run_until_stopped(8000));
  rig.run(100);
  std::size_t turned = 0;
  std::size_t beyond = 0;
  for (std::size_t i = mixed; i < start + kSong; ++i) {
    const int sum = sample_of(first.signal, i - start, 0) + sample_of(second.signal, i - mixed, 0);
    const int heard = rig.sound()[i].left;
    if (std::abs(sum) > 2000 && (sum > 0) != (heard > 0)) ++turned;
    if (std::abs(sum) > 32768) ++beyond;
  }
  EXPECT_GT(beyond, 1000U);
  EXPECT_EQ(turned, 0U);
}

}  // namespace
}  // namespace tandem::test
