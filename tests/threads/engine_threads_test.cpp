// The engine on its own threads, in time that the test moves.
#include <gtest/gtest.h>

#include <random>

#include "threads/threads_rig.h"

namespace tandem::test {
namespace {

constexpr int kLead = 280;
constexpr int kNever = 1'000'000;

// How far past its mix point the song that is left stood when the next one was started, in milliseconds, with a panel
// that works at every so many steps of 10 ms.
class LateOverlap {
 public:
  explicit LateOverlap(double seconds) : length_(static_cast<std::int32_t>(seconds * 1000)) {
    rig_.choose_lead(kLead);
    for (const char* name : {"a.wav", "b.wav", "c.wav"}) rig_.add_song(name, seconds);
    rig_.controls().PLAY.click.raise();
  }
  void run_until_before_the_moment(int milliseconds) {
    while (rig_.position(rig_.program().state.ActiveDeck) < length_ - kLead - milliseconds) rig_.run(10);
  }
  int measure(int panel_every) {
    const std::int16_t song = rig_.program().state.CurrentSong;
    const std::int16_t deck = rig_.program().state.ActiveDeck;
    for (int i = 0; i < 3000 && rig_.program().state.CurrentSong == song; ++i) rig_.run(10, panel_every);
    EXPECT_NE(rig_.program().state.CurrentSong, song) << "the next song never came";
    return rig_.position(deck) - (length_ - kLead);
  }
  ThreadsRig& rig() { return rig_; }

 private:
  std::int32_t length_;
  ThreadsRig rig_;
};

TEST(EngineThreads, TheNextSongStartsInTheStepAfterItsMoment) {
  LateOverlap overlap(1.5);
  const int late = overlap.measure(1);
  EXPECT_GT(late, 0);
  EXPECT_LE(late, 10);
}

// Whichever of its turns comes next after the moment.
TEST(EngineThreads, APanelThatComesLateMakesNoLateOverlap) {
  constexpr int kPanelEvery = 3;
  for (int phase = 0; phase < kPanelEvery; ++phase) {
    LateOverlap overlap(1.5);
    overlap.rig().run(10 * phase);
    const int late = overlap.measure(kPanelEvery);
    overlap.rig().run(10);
    EXPECT_LE(overlap.rig().ready(), 4U * kStepFrames) << "no more is made than the wait has cost";
    EXPECT_GT(late, 0) << phase;
    EXPECT_LE(late, 10) << phase;
  }
}

TEST(EngineThreads, APanelThatDoesNotComeIsNotWaitedForLong) {
  LateOverlap overlap(1.5);
  overlap.run_until_before_the_moment(40);
  overlap.rig().run(200, kNever);
  const int late = overlap.measure(1);
  EXPECT_GE(late, 100) << "the song has gone on";
  EXPECT_LE(late, 200);
}

TEST(EngineThreads, ADeepQueueWaitsLonger) {
  LateOverlap overlap(1.5);
  overlap.rig().engine().set_deep_queue(true);
  const int late = overlap.measure(15);
  EXPECT_GT(late, 0);
  EXPECT_LE(late, 10);
}

// Runs until `steps` more have been made; how long it took, in steps of the clock.
int time_for(ThreadsRig& rig, std::uint64_t steps) {
  const std::uint64_t target = rig.engine().chain().steps() + steps;
  int passed = 0;
  for (; rig.engine().chain().steps() < target && passed < 2000; ++passed) rig.run(10);
  return passed;
}

TEST(EngineThreads, AnOutputThatDemandsGetsWhatItPlays) {
  ThreadsRig rig;
  rig.add_song("a.wav", 1.9);
  rig.add_song("b.wav", 1.9);
  rig.demand_ahead(3 * 1280);
  rig.controls().PLAY.click.raise();
  EXPECT_LE(time_for(rig, 300), 400);
  EXPECT_EQ(rig.program().state.CurrentSong, 2);
}

TEST(EngineThreads, AnOutputThatDemandsNoMoreIsPacedByTheClock) {
  ThreadsRig rig;
  rig.add_song("a.wav", 1.9);
  rig.demand_ahead(3 * 1280);
  time_for(rig, 50);
  rig.end_demands();
  EXPECT_LE(time_for(rig, 100), 150);
}

TEST(EngineThreads, AQueueThatIsMadeDeepDoesNotRunDry) {
  ThreadsRig rig;
  for (const char* name : {"a.wav", "b.wav", "c.wav"}) rig.add_song(name, 1.9);
  rig.controls().PLAY.click.raise();
  rig.run(300);
  const int before = rig.dry();
  rig.engine().set_deep_queue(true);
  rig.run(1000);
  EXPECT_EQ(rig.dry(), before);
}

TEST(EngineThreads, EveryControlIsMovedWhileItPlays) {
  ThreadsRig rig;
  rig.choose_lead(kLead);
  for (int i = 0; i < 12; ++i) rig.add_song("song" + std::to_string(i) + ".wav", 1.0 + 0.1 * i);
  PanelControls& controls = rig.controls();
  std::mt19937 random(20261121);
  const auto number = [&random](int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); };
  controls.PLAY.click.raise();
  const std::uint64_t before = rig.engine().chain().steps();
  for (int i = 0; i < 600; ++i) {
    switch (number(9)) {
      case 0:
        controls.Volume.move(number(32769));
        break;
      case 1:
        controls.sl0[static_cast<std::size_t>(number(15))].move(number(25) - 12);
        break;
      case 2:
        controls.SliderP.move(number(41) - 20);
        break;
      case 3:
        controls.Slider1.user_press();
        controls.Slider1.move(number(900));
        controls.Slider1.user_release();
        break;
      case 4:
        if (controls.NextBtn.Enabled) controls.NextBtn.click.raise();
        break;
      case 5:
        if (number(4) == 0) controls.BufferSwitch.move(number(2));
        break;
      case 6:
        if (number(6) == 0) controls.STOPBtn.click.raise();
        break;
      case 7:
        controls.PLAY.click.raise();
        break;
      default:
        rig.engine().set_deep_queue(number(2) == 0);
    }
    rig.run(10 * (1 + number(8)), 1 + number(3));
  }
  controls.PLAY.click.raise();
  rig.run(200);
  EXPECT_GT(rig.engine().chain().steps(), before + 1000);
}

}  // namespace
}  // namespace tandem::test
