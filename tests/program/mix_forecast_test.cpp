#include "shell/mix_forecast.h"

#include "program/three_songs.h"

namespace tandem::test {
namespace {

class MixForecastTest : public ThreeSongsTest {
 protected:
  MixForecast look() { return mix_forecast(rig_.player().program, rig_.player().engine.sounding()); }
};

TEST_F(MixForecastTest, StoppedNothingIsDue) {
  EXPECT_EQ(look().quiet, 1000);
  EXPECT_EQ(look().deck, -1);
}

TEST_F(MixForecastTest, NothingIsKnownUntilTheNextSongIsLoadedAndSomethingSounds) {
  rig_.play();
  EXPECT_EQ(look().quiet, 0);
  EXPECT_EQ(look().deck, -1);
}

TEST_F(MixForecastTest, ATickThatStartsASongIsNeverSavedAndComesAtTheForetoldPosition) {
  rig_.play();
  rig_.run(500);
  for (int song = 1; song < 3; ++song) {
    MixForecast before;
    while (rig_.state().CurrentSong == song) {
      before = look();
      if (before.deck >= 0) {
        EXPECT_EQ(before.deck, rig_.state().ActiveDeck);
        EXPECT_EQ(before.mix_point, 5000 - kLead);
        const std::int64_t left = before.mix_point - rig_.deck(static_cast<std::size_t>(before.deck)).Position();
        EXPECT_GE(left, 0);
        EXPECT_EQ(before.quiet, std::clamp<std::int64_t>(left - 150, 0, 1000));
      }
      rig_.run(10);
      ASSERT_FALSE(rig_.stopped());
    }
    EXPECT_EQ(before.quiet, 0);
    EXPECT_GT(rig_.deck(static_cast<std::size_t>(before.deck)).Position(), before.mix_point);
    EXPECT_EQ(look().deck, -1) << "the overlap is on";
  }
}

TEST_F(MixForecastTest, TheLastLineAwaitsNothing) {
  rig_.play();
  rig_.run(500);
  rig_.controls().PlayList.put_ListIndex(2);
  EXPECT_EQ(look().deck, -1);
  EXPECT_EQ(look().quiet, 1000);
}

}  // namespace
}  // namespace tandem::test
