#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "base/whole_file.h"
#include "controls/panel_groups.h"
#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;

struct StartUp : PanelTest {
  // The factory file with some lines replaced.
  void settings(std::initializer_list<std::pair<std::size_t, const char*>> lines) {
    std::string text;
    const std::string factory = factory_settings();
    std::size_t line = 1;
    for (std::size_t from = 0; from < factory.size(); ++line) {
      const std::size_t end = factory.find('\n', from) + 1;
      std::string kept = factory.substr(from, end - from);
      for (const auto& [number, replacement] : lines)
        if (number == line) kept = std::string(replacement) + "\r\n";
      text += kept;
      from = end;
    }
    replace_whole_file(panel.directory.file("TP.inf"), text);
  }
  void load() { panel.program.panel.load(); }
  std::size_t call(const std::string& operation) const {
    const auto& calls = panel.sound.calls;
    const auto found = std::find(calls.begin(), calls.end(), operation);
    EXPECT_NE(found, calls.end()) << operation;
    return static_cast<std::size_t>(found - calls.begin());
  }
};

TEST_F(StartUp, WithFactorySettingsTheOutputIsStartedOnce) {
  settings({});
  load();
  EXPECT_THAT(panel.sound.calls_of({"WaveOut"}), ElementsAre("WaveOut.start()"));
  EXPECT_EQ(panel.sound.calls.back(), "WaveOut.start()");
}

TEST_F(StartUp, ASavedBufferModeReachesTheOutputFirst) {
  settings({{36, " 1 "}});
  load();
  EXPECT_THAT(panel.sound.calls_of({"WaveOut"}),
              ElementsAre("WaveOut.stop()", "WaveOut.close()", "WaveOut.BufferSize(10240)", "WaveOut.open()",
                          "WaveOut.start()", "WaveOut.start()"));
  EXPECT_EQ(controls.BufferSwitch.Position, 1);
}

TEST_F(StartUp, AnyOtherBufferModeThanZeroIsPositionOne) {
  settings({{36, "-7 "}});
  load();
  EXPECT_EQ(controls.BufferSwitch.Position, 1);
  EXPECT_EQ(panel.program.sound.WaveOut->BufferSize(), 10240);
}

TEST_F(StartUp, TheBandsComeFirst) {
  load();
  EXPECT_EQ(panel.program.sound.EQ->FilterCount(), 15);
  EXPECT_EQ(call("EQ.Filters.add(0, 32, 0)"), 0U);
  EXPECT_EQ(call("EQ.Filters.add(12000, 20000, 0)"), 14U);
  EXPECT_EQ(state.BandIndex, 15);
  EXPECT_EQ(state.BandHigh, 20000);
}

TEST_F(StartUp, SavedValuesFollowInTheirOrder) {
  settings({{1, " 5 "}, {16, " 1000 "}, {17, " 3 "}, {25, " 2 "}, {29, " 2 "}, {30, " 1 "}});
  load();
  const std::vector<std::size_t> order{call("EQ.Filters(0).Gain(5)"),
                                       call("WaveMixer.Volume(1000)"),
                                       call("MMSpectrum1.Decay(3)"),
                                       call("MMSpectrum1.Kind(2)"),
                                       call("MMConnectorX1.Oscilloscope(MMOscopeX1)"),
                                       call("MMSpectrum1.DrawGrid(True)"),
                                       call("WaveOut.start()")};
  EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
}

TEST_F(StartUp, SetsGeometryLabelsAndFlags) {
  controls.LblPosition.Caption = "x";
  controls.Painel.Width = 1;
  controls.PlayList.AddItem("x");
  state.SongCount = 7;
  state.MixStarted = kTrue;
  state.NextSongLoaded = kTrue;
  state.SeekDragging = kTrue;
  load();
  EXPECT_EQ(controls.LblPosition.Caption.get(), "00:00");
  EXPECT_EQ(controls.Image1.Height, 1250);
  EXPECT_EQ(controls.Image1.Width, 3615);
  EXPECT_EQ(controls.Painel.Height, 3870);
  EXPECT_EQ(controls.Painel.Width, 9105);
  EXPECT_EQ(controls.PlayList.ListCount(), 0);
  EXPECT_EQ(state.SongCount, 0);
  EXPECT_EQ(state.MixStarted, kFalse);
  EXPECT_EQ(state.NextSongLoaded, kFalse);
  EXPECT_EQ(state.SeekDragging, kFalse);
}

TEST_F(StartUp, LevelsReachEqualizerAndTexts) {
  settings({{1, "-12 "}, {15, " 7 "}});
  load();
  EXPECT_EQ(panel.program.sound.EQ->filter(0).Gain, -12.0);
  EXPECT_EQ(controls.dbLabel0[0].Caption.get(), "-12");
  EXPECT_EQ(panel.program.sound.EQ->filter(14).Gain, 7.0);
  EXPECT_EQ(controls.dbLabel0[14].Caption.get(), " 7");
}

TEST_F(StartUp, TheVolumeReachesMixerAndGauge) {
  settings({{16, " 16384 "}});
  load();
  EXPECT_EQ(panel.sound.mixer->Volume(), 16384);
  EXPECT_EQ(controls.MeterVol.Progress, 50);
}

TEST_F(StartUp, TheAnalyserFollowsSpinnersAndSwitchesThroughTheirNotifications) {
  settings({{17, " 9 "},
            {20, " 30 "},
            {21, " 4 "},
            {23, " 700 "},
            {24, " 12 "},
            {25, " 5 "},
            {26, " 6 "},
            {27, " 2 "},
            {28, " 3 "}});
  load();
  const MMSpectrumX& analyser = *panel.program.sound.MMSpectrum1;
  EXPECT_EQ(analyser.get(SpectrumSetting::Decay), 9);
  EXPECT_EQ(analyser.get(SpectrumSetting::PeakDelay), 30);
  EXPECT_EQ(analyser.get(SpectrumSetting::PeakCount), 4);
  EXPECT_EQ(analyser.get(SpectrumSetting::ReferenceFrequency), 700);
  EXPECT_EQ(analyser.get(SpectrumSetting::PeakSpeed), 12);
  EXPECT_EQ(analyser.get(SpectrumSetting::Kind), 5);
  EXPECT_EQ(analyser.get(SpectrumSetting::Window), 6);
  EXPECT_EQ(analyser.get(SpectrumSetting::DecayMode), 2);
  EXPECT_EQ(analyser.get(SpectrumSetting::Gain), 3);
}

TEST_F(StartUp, ButtonSpinnersAreRestoredOnTheBoardOnly) {
  settings({{18, " 1024 "}, {19, " 7 "}, {22, " 8 "}});
  load();
  EXPECT_EQ(controls.MMLEDSpin2.Value, 1024);
  EXPECT_EQ(controls.MMLEDSpin3.Value, 7);
  EXPECT_EQ(controls.MMLEDSpin6.Value, 8);
  const MMSpectrumX& analyser = *panel.program.sound.MMSpectrum1;
  EXPECT_EQ(analyser.get(SpectrumSetting::FFTLength), 64);
  EXPECT_EQ(analyser.get(SpectrumSetting::VerticalScale), 40);
  EXPECT_EQ(analyser.get(SpectrumSetting::HorizontalScale), 1);
}

TEST_F(StartUp, OptionFlagsLightTheirLampsAndSetTheAnalyser) {
  settings({{30, "-1 "}, {31, " 1 "}, {32, " 2 "}, {33, " 0 "}, {34, " 1 "}});
  load();
  std::vector<Colour> lamps;
  for (const auto lamp : kOptionLamps) lamps.push_back((controls.*lamp).LEDColor);
  EXPECT_THAT(lamps, ElementsAre(clLime, clLime, clLime, clGreen, clLime));
  EXPECT_THAT(panel.sound.calls, AllOf(Contains("MMSpectrum1.DrawGrid(True)"), Contains("MMSpectrum1.SolidBars(False)"),
                                       Contains("MMSpectrum1.SolidMarks(False)"), Contains("MMSpectrum1.DrawMode(1)"),
                                       Contains("MMSpectrum1.DrawInactive(True)"),
                                       Contains("MMSpectrum1.LogAmp(False)"), Contains("MMSpectrum1.DrawPeaks(True)")));
}

TEST_F(StartUp, AnOffLedStyleIsAppliedAsASwitchingOff) {
  load();
  EXPECT_THAT(panel.sound.calls, AllOf(Contains("MMSpectrum1.SolidBars(True)"),
                                       Contains("MMSpectrum1.SolidMarks(True)"), Contains("MMSpectrum1.DrawMode(2)")));
}

TEST_F(StartUp, TheDefaultLampEndsOlive) {
  load();
  EXPECT_EQ(controls.MMLEDX6.LEDColor, clOlive);
}

TEST_F(StartUp, TheChosenDisplayIsConnectedAndShown) {
  for (const int choice : {0, 1, 2}) {
    settings({{29, std::to_string(choice).c_str()}});
    load();
    const SoundGraph& sound = panel.program.sound;
    const MMConnectorX& connector = *sound.MMConnectorX1;
    EXPECT_EQ(connector.target(MMConnectorX::Slot::Spectrum), choice == 0 ? "MMSpectrum1" : "");
    EXPECT_EQ(connector.target(MMConnectorX::Slot::LeftMeter), choice == 1 ? "MMMeterX1" : "");
    EXPECT_EQ(connector.target(MMConnectorX::Slot::RightMeter), choice == 1 ? "MMMeterX2" : "");
    EXPECT_EQ(connector.target(MMConnectorX::Slot::Level), choice == 1 ? "MMLevelX1" : "");
    EXPECT_EQ(connector.target(MMConnectorX::Slot::Oscilloscope), choice == 2 ? "MMOscopeX1" : "");
    EXPECT_EQ(sound.MMSpectrum1->Visible(), choice == 0);
    EXPECT_EQ(sound.MMMeterX1->Enabled(), choice == 1);
    EXPECT_EQ(sound.MMMeterX2->Visible(), choice == 1);
    EXPECT_EQ(sound.MMLevelX1->Visible(), choice == 1);
    EXPECT_EQ(sound.MMOscopeX1->Enabled(), choice == 2);
  }
}

TEST_F(StartUp, AChoiceBeyondTheSelectorIsLimitedByIt) {
  settings({{29, " 9 "}});
  load();
  EXPECT_EQ(controls.MMSwitchX1.Position, 2);
  EXPECT_TRUE(panel.program.sound.MMOscopeX1->Visible());
}

TEST_F(StartUp, LeadTimesLightTheirLamp) {
  for (const LeadTime& lead : kLeadTimes) {
    settings({{35, std::to_string(lead.milliseconds).c_str()}});
    load();
    for (const LeadTime& each : kLeadTimes)
      EXPECT_EQ((controls.*each.lamp).LEDColor, each.milliseconds == lead.milliseconds ? 33023 : 16512);
    EXPECT_EQ(state.MixTimeMs, lead.milliseconds);
  }
}

TEST_F(StartUp, AnOddLeadTimeIsKeptAndTheLampsStayAsDesigned) {
  settings({{35, " 500 "}});
  load();
  EXPECT_EQ(state.MixTimeMs, 500);
  EXPECT_EQ(controls.AMLed2.LEDColor, 33023);
  EXPECT_EQ(controls.AMLedOff.LEDColor, 16512);
}

TEST_F(StartUp, WithoutAFileTheFactoryValuesStand) {
  load();
  EXPECT_EQ(state.MixTimeMs, 2500);
  EXPECT_EQ(controls.Volume.Value, 32768);
  EXPECT_EQ(controls.MMLEDSpin7.Value, 500);
  EXPECT_THAT(panel.sound.calls_of({"WaveOut"}), ElementsAre("WaveOut.start()"));
}

TEST_F(StartUp, ATooLargeNumberReachesTheCallerAndTheOutputIsNotStarted) {
  settings({{17, " 99999 "}});
  EXPECT_THROW(load(), RuntimeError);
  EXPECT_THAT(panel.sound.calls, Not(Contains("WaveOut.start()")));
}

TEST_F(StartUp, SettingsRoundTripOverTwoRuns) {
  settings({{3, "-4 "}, {16, " 777 "}, {35, " 1000 "}, {36, " 1 "}, {37, "/music"}});
  const std::string before = read_whole_file(panel.directory.file("TP.inf"));
  load();
  panel.program.panel.unload();
  EXPECT_EQ(read_whole_file(panel.directory.file("TP.inf")), before);
}

}  // namespace
}  // namespace tandem
