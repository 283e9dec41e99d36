// Ten real files in a list, each measured to the sample in the sound that comes out.
#include <gmock/gmock.h>

#include <tuple>

#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/ten_songs.h"

namespace tandem::test {
namespace {

using testing::AllOf;
using testing::Gt;
using testing::Le;

struct Heard {
  std::vector<std::size_t> starts;
  std::size_t size = 0;
  double rest = 0;
  std::size_t first_rest = 0;
};

Heard find_all(const PlayerRig& rig) {
  SongFinder finder(rig.sound());
  Heard heard;
  for (const KnownSong& song : ten_songs()) heard.starts.push_back(finder.take(song.sound));
  heard.size = rig.frames();
  heard.rest = finder.rest();
  heard.first_rest = finder.first_rest();
  return heard;
}

// By how many milliseconds song k + 1 starts after song k's length - lead.
double overlap_error(const Heard& heard, std::size_t k, int lead) {
  const double length = static_cast<double>(milliseconds_of(static_cast<Frames>(ten_songs()[k].sound.size())));
  const double start = static_cast<double>(heard.starts[k + 1] - heard.starts[k]) * 1000.0 / kSampleRate;
  return start - (length - lead);
}

class TenFiles : public testing::TestWithParam<std::tuple<int, int>> {};

// Nothing but the ten songs is heard, each whole and at full level from its first frame to its last: what remains after
// all of them were taken out is the rounding to 16 bits.
TEST_P(TenFiles, SoundInOrderEachOverlappingTheOneBeforeByTheLeadTime) {
  const auto [lead, buffer_mode] = GetParam();
  PlayerRig rig;
  rig.choose_lead(lead);
  if (buffer_mode != 0) rig.controls().BufferSwitch.move(buffer_mode);
  for (const KnownSong& song : ten_songs()) rig.add(song.path);
  rig.run(100);
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(90'000));
  const std::size_t stop = rig.frames();
  rig.run(500);

  const Heard heard = find_all(rig);
  EXPECT_LE(heard.rest, 1.6) << "first at frame " << heard.first_rest;
  for (std::size_t k = 0; k + 1 < ten_songs().size(); ++k)
    EXPECT_THAT(overlap_error(heard, k, lead), AllOf(Gt(0.0), Le(20.0))) << ten_songs()[k].path;

  const std::size_t end = heard.starts.back() + ten_songs().back().sound.size();
  EXPECT_LE(end, stop + kChainDelay);
  EXPECT_GT(end + 2 * kStepFrames, stop + kChainDelay);  // and stopped at once
  EXPECT_EQ(longest_silence(rig.sound(), end, rig.frames()), rig.frames() - end);
}

INSTANTIATE_TEST_SUITE_P(LeadsAndBuffers, TenFiles,
                         testing::Combine(testing::Values(280, 1000, 2500, 3500), testing::Values(0, 1)));

// That the decoders bring what was encoded is shown elsewhere; here, that the songs begin where their signatures do.
TEST(TenFilesThemselves, BeginWithTheFirstFrameOfTheirSignature) {
  constexpr Frames kLongestEncoderDelay = 2 * 1152 + 529;
  for (const KnownSong& song : ten_songs()) {
    const Frames late = lag(to_stereo(song.signature), song.sound, 4000, 20000, kLongestEncoderDelay);
    if (song.headless) {
      EXPECT_GE(late, 0) << song.path;
    } else {
      EXPECT_LE(std::abs(late), 1) << song.path;
      EXPECT_NEAR(static_cast<double>(song.sound.size()), static_cast<double>(song.signature.frames()), 1) << song.path;
    }
  }
}

}  // namespace
}  // namespace tandem::test
