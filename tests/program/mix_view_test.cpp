// What sounds, read from a whole player: for the marks in the list and on the position slider.

#include "shell/mix_view.h"

#include "program/three_songs.h"

namespace tandem::test {
namespace {

class MixViewTest : public ThreeSongsTest {
 protected:
  MixView look() { return mix_view(rig_.player().program); }
};

TEST_F(MixViewTest, StoppedNothingSoundsButLengthsAreKnown) {
  const MixView view = look();
  EXPECT_FALSE(view.counted);
  EXPECT_FALSE(view.other);
  EXPECT_FALSE(view.mix_at);
  EXPECT_EQ(view.lengths, (std::vector<std::int32_t>{5000, 5000, 5000}));
  EXPECT_EQ(view.songs_left, 0);
}

TEST_F(MixViewTest, OneSongSoundsWithItsMixPointAndWhatIsLeft) {
  rig_.play();
  rig_.run(2000);
  const MixView view = look();
  ASSERT_TRUE(view.counted);
  EXPECT_EQ(view.counted->line, 0);
  EXPECT_EQ(view.counted->name, "a.wav");
  EXPECT_FALSE(view.other);
  EXPECT_EQ(view.mix_at, 5000 - kLead);
  EXPECT_EQ(view.songs_left, 3);
  EXPECT_EQ(view.left, 15000 - view.counted->position);
}

TEST_F(MixViewTest, InAnOverlapTheCounterStaysWithTheOutgoingSong) {
  rig_.play();
  ASSERT_TRUE(rig_.run_until([this] { return look().other.has_value(); }, 6000));
  rig_.run(300);
  const MixView view = look();
  ASSERT_TRUE(view.counted && view.other);
  EXPECT_FALSE(view.skipped) << "ends by itself";
  EXPECT_EQ(view.counted->line, 0);
  EXPECT_EQ(view.other->line, 1);
  EXPECT_NEAR(view.other->position, 300, 50);
  EXPECT_GT(view.counted->position, 5000 - kLead);
  rig_.run(kLead);
  EXPECT_FALSE(look().other);
  EXPECT_EQ(look().counted->line, 1);
}

TEST_F(MixViewTest, ASkippedSongFadesOut) {
  rig_.play();
  rig_.run(500);
  EXPECT_FALSE(look().skipped);
  rig_.next();
  ASSERT_TRUE(rig_.run_until([this] { return look().other.has_value(); }, 1000));
  EXPECT_TRUE(look().skipped);
  ASSERT_TRUE(rig_.run_until([this] { return !look().other; }, 5000));
  EXPECT_FALSE(look().skipped);
}

TEST_F(MixViewTest, PauseHoldsWhatSounds) {
  rig_.play();
  ASSERT_TRUE(rig_.run_until([this] { return look().other.has_value(); }, 6000));
  EXPECT_FALSE(look().paused);
  rig_.pause();
  EXPECT_TRUE(look().paused);
  EXPECT_TRUE(look().other.has_value());
  rig_.pause();
  EXPECT_FALSE(look().paused);
}

TEST_F(MixViewTest, TheLastSongHasNoMixPoint) {
  rig_.play();
  ASSERT_TRUE(rig_.run_until([this] { return look().counted && look().counted->line == 2 && !look().other; }, 15000));
  EXPECT_FALSE(look().mix_at);
  EXPECT_EQ(look().songs_left, 1);
}

TEST_F(MixViewTest, ASongIsMarkedAtItsOwnLineWhateverIsSelected) {
  rig_.play();
  rig_.run(500);
  rig_.controls().PlayList.user_select(2);
  EXPECT_EQ(look().counted->line, 0);
}

}  // namespace
}  // namespace tandem::test
