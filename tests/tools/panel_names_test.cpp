#include "script/panel_names.h"

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <utility>

#include "fakes/test_panel.h"
#include "script/unknown_word.h"

namespace tandem {
namespace {

using test::TestPanel;

struct Names : testing::Test {
  TestPanel panel;
  PanelNames names{panel.program};
  std::string value(const std::string& expression) const { return names.value(expression); }
  void expect_values(std::initializer_list<std::pair<const char*, const char*>> expected) const {
    for (const auto& [expression, text] : expected) EXPECT_EQ(value(expression), text) << expression;
  }
};

TEST_F(Names, ControlsPrintTheirProperties) {
  expect_values({{"PLAY.Picture", "Icone(0)"},
                 {"NextBtn.Picture", "None"},
                 {"PAUSE.BackColor", "32896"},
                 {"NextBtn.Enabled", "True"},
                 {"MMPanelX1(0).Visible", "False"},
                 {"MMPanelX1(0).Caption", "\"10 BANDS EQUALIZER\""},
                 {"INDIC.Caption", "\"VOLUME\""},
                 {"INDIC.LEDColor", "65535"},
                 {"SongLabel.Scrolling", "False"},
                 {"MeterVol.Progress", "100"},
                 {"AMLed2.LEDColor", "33023"},
                 {"SliderP.MinValue", "-20"},
                 {"Slider1.MaxValue", "100"},
                 {"Volume.Value", "32768"},
                 {"MMSwitch2.NumPositions", "7"},
                 {"MMLEDSpin7.Value", "500"},
                 {"dbLabel0(14).Caption", "\" 0\""},
                 {"Painel.Width", "9105"},
                 {"TimerDelay.Interval", "1500"}});
}

TEST_F(Names, ValuesAreReadAgain) {
  panel.controls.sl0[3].Position = -7;
  EXPECT_EQ(value("sl0(3).Position"), "-7");
  panel.controls.sl0[3].Position = 2;
  EXPECT_EQ(value("sl0(3).Position"), "2");
}

TEST_F(Names, TextsAreQuoted) {
  panel.controls.SongLabel.Caption = "a \"b\" \\c";
  EXPECT_EQ(value("SongLabel.Caption"), R"("a \"b\" \\c")");
}

TEST_F(Names, ReachLinesOfLists) {
  panel.add_songs(2);
  expect_values({{"PlayList.List(0)", "\"01 - /music/a.mp3\""},
                 {"PlayList.List(7)", "\"\""},
                 {"PlayList.List(-1)", "\"\""},
                 {"PlayList.ListCount", "2"},
                 {"PlayList.ListIndex", "-1"},
                 {"ListAux2.List(1)", "\"02 - /music/b.mp3\""},
                 {"PlayList.Selected(0)", "False"}});
}

TEST_F(Names, ReachComponents) {
  panel.program.panel.load();
  panel.add_songs(1);
  panel.controls.PLAY.click.raise();
  panel.sound.deck[0]->position = 1234;
  panel.program.sound.Pitch[1]->put_Value(-5.0F);
  panel.program.sound.EQ->put_Gain(3, 4.5);
  expect_values({{"AudioFile(0).FileName", "\"/music/a.mp3\""},
                 {"AudioFile(0).Position", "1234"},
                 {"AudioFile(0).Length", "200000"},
                 {"TempFile.FileName", "\"/music/a.mp3\""},
                 {"Pitch(1).Value", "-5"},
                 {"WaveMixer.Mute(0)", "False"},
                 {"WaveMixer.Mute(1)", "True"},
                 {"WaveMixer.Volume", "32768"},
                 {"EQ.Filters(3).Gain", "4.5"},
                 {"EQ.Filters(3).LowEdge", "130"},
                 {"EQ.Filters(3).HighEdge", "260"},
                 {"EQ.Filters.Count", "15"},
                 {"EQ.Bypassed", "False"},
                 {"WaveOut.BufferSize", "5120"},
                 {"MixTimer.Interval", "10"},
                 {"ListTimer.Enabled", "False"},
                 {"MMConnectorX1.Spectrum", "\"MMSpectrum1\""},
                 {"MMConnectorX1.Oscilloscope", "\"\""},
                 {"MMSpectrum1.FFTLength", "64"},
                 {"MMSpectrum1.LogAmp", "False"},
                 {"MMMeterX1.Visible", "False"}});
}

TEST_F(Names, ReachRunStateAndSongTable) {
  panel.add_songs(1);
  panel.state.MixStarted = kTrue;
  panel.state.EqLevels[2] = -3;
  expect_values({{"SongCount", "1"},
                 {"MixStarted", "True"},
                 {"NextSongLoaded", "False"},
                 {"SeekDragging", "False"},
                 {"LastFolder", "\"/music\""},
                 {"EqLevels(2)", "-3"},
                 {"SongTable(1).SongFile", "\"/music/a.mp3\""},
                 {"SongTable(200).SongLength", "0"}});
}

TEST_F(Names, EveryExpressionHasAValue) {
  panel.program.panel.load();
  EXPECT_GT(names.values().all().size(), 800U);
  for (const auto& [expression, read] : names.values().all()) EXPECT_FALSE(read().empty()) << expression;
}

TEST_F(Names, UnknownOnesAreReported) {
  for (const char* word :
       {"", "PLAY", "PLAY.", "PLAY.Colour", "sl0(15).Position", "sl0.Position", "SongTable(201).SongFile",
        "AudioFile(2).FileName", "PlayList.List", "PlayList.List()", "PlayList.List(x)", "PlayList.List(1)x", "Nothing",
        "EQ.Filters(3).Gain" /* before the bands are added */})
    EXPECT_THROW(value(word), UnknownWord) << word;
}

}  // namespace
}  // namespace tandem
