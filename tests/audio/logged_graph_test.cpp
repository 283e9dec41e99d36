#include "logged_graph/logged_graph.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/fake_sound.h"

namespace tandem {
namespace {

using test::FakeSound;
using testing::ElementsAre;

struct LoggedSound : testing::Test {
  FakeSound fakes;
  TimerQueue timers;
  SoundGraph sound = fakes.make_graph(timers);
};

TEST_F(LoggedSound, LogsTheDecks) {
  sound.AudioFile[0]->put_FileName("/a b.mp3");
  sound.AudioFile[1]->put_Position(5000);
  sound.AudioFile[0]->finish(4000);
  sound.TempFile->put_FileName("/c");
  sound.Pitch[1]->put_Value(-5.0F);
  EXPECT_THAT(fakes.calls, ElementsAre("AudioFile(0).FileName(/a b.mp3)", "AudioFile(1).Position(5000)",
                                       "AudioFile(0).finish(4000)", "TempFile.FileName(/c)", "Pitch(1).Value(-5)"));
}

TEST_F(LoggedSound, LogsMixerAndEqualizer) {
  sound.WaveMixer->put_Mute(0, true);
  sound.WaveMixer->put_Volume(16384);
  sound.EQ->add_filter(0.0, 32.0, 0.0);
  sound.EQ->put_Gain(0, 5.5);
  sound.EQ->put_Bypassed(true);
  EXPECT_THAT(fakes.calls, ElementsAre("WaveMixer.Mute(0, True)", "WaveMixer.Volume(16384)", "EQ.Filters.add(0, 32, 0)",
                                       "EQ.Filters(0).Gain(5.5)", "EQ.Bypassed(True)"));
}

TEST_F(LoggedSound, LogsTheOutput) {
  sound.WaveOut->put_BufferSize(10240);
  sound.WaveOut->open();
  sound.WaveOut->start();
  sound.WaveOut->pause();
  sound.WaveOut->restart();
  sound.WaveOut->stop();
  sound.WaveOut->close();
  EXPECT_THAT(fakes.calls, ElementsAre("WaveOut.BufferSize(10240)", "WaveOut.open()", "WaveOut.start()",
                                       "WaveOut.pause()", "WaveOut.restart()", "WaveOut.stop()", "WaveOut.close()"));
}

TEST_F(LoggedSound, LogsDisplaysAndTimers) {
  sound.MMConnectorX1->put_target(MMConnectorX::Slot::LeftMeter, "MMMeterX1");
  sound.MMConnectorX1->put_target(MMConnectorX::Slot::Oscilloscope, "");
  sound.MMSpectrum1->put(SpectrumSetting::FFTLength, 64);
  sound.MMSpectrum1->put(SpectrumSetting::DrawGrid, 1);
  sound.MMLevelX1->put_Visible(true);
  sound.MMOscopeX1->put_Enabled(false);
  sound.MixTimer->put_Interval(10);
  sound.ListTimer->put_Enabled(true);
  EXPECT_THAT(fakes.calls,
              ElementsAre("MMConnectorX1.LeftMeter(MMMeterX1)", "MMConnectorX1.Oscilloscope()",
                          "MMSpectrum1.FFTLength(64)", "MMSpectrum1.DrawGrid(True)", "MMLevelX1.Visible(True)",
                          "MMOscopeX1.Enabled(False)", "MixTimer.Interval(10)", "ListTimer.Enabled(True)"));
}

TEST_F(LoggedSound, PassesEverythingOnAndReadsSilently) {
  fakes.files.lengths["/a.mp3"] = 1234;
  sound.TempFile->put_FileName("/a.mp3");
  sound.WaveMixer->put_Mute(1, false);
  fakes.calls.clear();
  EXPECT_EQ(sound.TempFile->Length(), 1234);
  EXPECT_EQ(sound.TempFile->FileName(), "/a.mp3");
  EXPECT_FALSE(sound.WaveMixer->Mute(1));
  EXPECT_EQ(sound.Helper->time_text(225000), "3:45");
  EXPECT_TRUE(fakes.calls.empty());
}

TEST_F(LoggedSound, NotificationsComeThrough) {
  int finished = -1;
  int lost = 0;
  int ticks = 0;
  sound.WaveMixer->input_finished.connect([&](int input) { finished = input; });
  sound.WaveOut->device_lost.connect([&] { ++lost; });
  sound.Timer->tick.connect([&] { ++ticks; });
  fakes.mixer->end_input(1);
  fakes.output->device_lost.raise();
  timers.advance(200);
  EXPECT_EQ(finished, 1);
  EXPECT_EQ(lost, 1);
  EXPECT_EQ(ticks, 1);
}

TEST_F(LoggedSound, TimersThatAreDueTogetherTickInTheirOrder) {
  std::string order;
  sound.MixTimer->tick.connect([&] { order += "mix "; });
  sound.Timer->tick.connect([&] { order += "song "; });
  sound.ListTimer->tick.connect([&] { order += "list"; });
  sound.ListTimer->put_Enabled(true);
  sound.ListTimer->put_Interval(10);
  sound.Timer->put_Interval(10);
  sound.MixTimer->put_Interval(10);
  timers.advance(10);
  EXPECT_EQ(order, "mix song list");
}

}  // namespace
}  // namespace tandem
