#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "controls/panel_groups.h"
#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;

struct LeadTimes : PanelTest {
  // Which lamps are lit, as letters: O 1 2 3.
  std::string lit() const {
    std::string names;
    const std::array<char, 4> letters{'O', '1', '2', '3'};
    for (std::size_t i = 0; i < letters.size(); ++i) {
      const Colour colour = (controls.*kLeadTimes[i].lamp).LEDColor;
      if (colour == 33023) names += letters[i];
      if (colour != 33023 && colour != 16512) names += '?';
    }
    return names;
  }
};

using Buffers = LeadTimes;

TEST_F(LeadTimes, EachLampChoosesItsTime) {
  const struct {
    Lamp& lamp;
    int milliseconds;
    const char* lit;
  } choices[] = {{controls.AMLedOff, 280, "O"},
                 {controls.AMLed1, 1000, "1"},
                 {controls.AMLed3, 3500, "3"},
                 {controls.AMLed2, 2500, "2"}};
  for (const auto& choice : choices) {
    choice.lamp.click.raise();
    EXPECT_EQ(state.MixTimeMs, choice.milliseconds);
    EXPECT_EQ(lit(), choice.lit);
  }
}

TEST_F(LeadTimes, ALitLampGoesDarkForTheThirdButKeepsItsTime) {
  for (Lamp* lamp : {&controls.AMLedOff, &controls.AMLed1, &controls.AMLed3}) {
    lamp->click.raise();
    const std::int16_t chosen = state.MixTimeMs;
    lamp->click.raise();
    EXPECT_EQ(lit(), "2");
    EXPECT_EQ(state.MixTimeMs, chosen);
  }
}

TEST_F(LeadTimes, TheThirdStaysLitWhenItIsClicked) {
  state.MixTimeMs = 1234;
  controls.AMLed2.click.raise();
  EXPECT_EQ(lit(), "2");
  EXPECT_EQ(state.MixTimeMs, 1234);
}

TEST_F(LeadTimes, WithAnotherLitLampTheThirdStaysDark) {
  controls.AMLed2.LEDColor = 16512;
  controls.AMLed1.LEDColor = 33023;
  controls.AMLed3.LEDColor = 33023;
  controls.AMLed1.click.raise();
  EXPECT_EQ(lit(), "3");
}

TEST_F(Buffers, LargeOnesRestartTheOutputAndStop) {
  controls.BufferSwitch.move(1);
  EXPECT_THAT(panel.sound.calls, ElementsAre("WaveOut.stop()", "WaveOut.close()", "WaveOut.BufferSize(10240)",
                                             "WaveOut.open()", "WaveOut.start()", "MixTimer.Interval(0)",
                                             "WaveMixer.Mute(0, True)", "WaveMixer.Mute(1, True)"));
  EXPECT_EQ(state.BufferMode, 1);
}

TEST_F(Buffers, BecomeSmallAgain) {
  controls.BufferSwitch.move(1);
  panel.sound.calls.clear();
  controls.BufferSwitch.move(0);
  EXPECT_THAT(panel.sound.calls_of({"WaveOut"}),
              ElementsAre("WaveOut.stop()", "WaveOut.close()", "WaveOut.BufferSize(5120)", "WaveOut.open()",
                          "WaveOut.start()"));
  EXPECT_EQ(state.BufferMode, 0);
}

TEST_F(Buffers, TheModeIsSetBetweenSizeAndOpen) {
  // The recorded operations alone don't show it: the variable is read while the output is opened.
  struct Watch : MMWaveOutX {
    RunState& state;
    std::int16_t at_size = -1;
    std::int16_t at_open = -1;
    explicit Watch(RunState& run_state) : state(run_state) {}
    std::int32_t BufferSize() const override { return 0; }
    void put_BufferSize(std::int32_t /*bytes*/) override { at_size = state.BufferMode; }
    void open() override { at_open = state.BufferMode; }
    void close() override {}
    void start() override {}
    void stop() override {}
    void pause() override {}
    void restart() override {}
  };
  auto watch = std::make_unique<Watch>(state);
  const Watch* seen = watch.get();
  panel.program.sound.WaveOut = std::move(watch);
  controls.BufferSwitch.move(1);
  EXPECT_EQ(seen->at_size, 0);
  EXPECT_EQ(seen->at_open, 1);
}

TEST_F(Buffers, AChangeStopsPlaying) {
  panel.add_songs(2);
  controls.PLAY.click.raise();
  panel.tick();
  controls.BufferSwitch.move(1);
  EXPECT_EQ(panel.program.sound.MixTimer->Interval(), 0);
  EXPECT_TRUE(panel.sound.mixer->Mute(0));
  EXPECT_EQ(controls.STOPBtn.Picture, 5);
}

}  // namespace
}  // namespace tandem
