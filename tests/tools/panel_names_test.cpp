#include "script/panel_names.h"

#include <gtest/gtest.h>

#include <string>

#include "fakes/test_panel.h"
#include "script/unknown_word.h"

namespace tandem {
namespace {

using test::TestPanel;

struct Names : testing::Test {
  TestPanel panel;
  PanelNames names{panel.program};
  std::string value(const std::string& expression) const { return names.value(expression); }
};

TEST_F(Names, ControlsPrintTheirProperties) {
  EXPECT_EQ(value("PLAY.Picture"), "Icone(0)");
  EXPECT_EQ(value("NextBtn.Picture"), "None");
  EXPECT_EQ(value("PAUSE.BackColor"), "32896");
  EXPECT_EQ(value("NextBtn.Enabled"), "True");
  EXPECT_EQ(value("MMPanelX1(0).Visible"), "False");
  EXPECT_EQ(value("MMPanelX1(0).Caption"), "\"10 BANDS EQUALIZER\"");
  EXPECT_EQ(value("INDIC.Caption"), "\"VOLUME\"");
  EXPECT_EQ(value("INDIC.LEDColor"), "65535");
  EXPECT_EQ(value("SongLabel.Scrolling"), "False");
  EXPECT_EQ(value("MeterVol.Progress"), "100");
  EXPECT_EQ(value("AMLed2.LEDColor"), "33023");
  EXPECT_EQ(value("SliderP.MinValue"), "-20");
  EXPECT_EQ(value("Slider1.MaxValue"), "100");
  EXPECT_EQ(value("Volume.Value"), "32768");
  EXPECT_EQ(value("MMSwitch2.NumPositions"), "7");
  EXPECT_EQ(value("MMLEDSpin7.Value"), "500");
  EXPECT_EQ(value("dbLabel0(14).Caption"), "\" 0\"");
  EXPECT_EQ(value("Painel.Width"), "9105");
  EXPECT_EQ(value("TimerDelay.Interval"), "1500");
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

TEST_F(Names, LinesOfLists) {
  panel.add_songs(2);
  EXPECT_EQ(value("PlayList.List(0)"), "\"01 - /music/a.mp3\"");
  EXPECT_EQ(value("PlayList.List(7)"), "\"\"");
  EXPECT_EQ(value("PlayList.List(-1)"), "\"\"");
  EXPECT_EQ(value("PlayList.ListCount"), "2");
  EXPECT_EQ(value("PlayList.ListIndex"), "-1");
  EXPECT_EQ(value("ListAux2.List(1)"), "\"02 - /music/b.mp3\"");
  EXPECT_EQ(value("PlayList.Selected(0)"), "False");
}

TEST_F(Names, ReachComponents) {
  panel.program.panel.load();
  panel.add_songs(1);
  panel.controls.PLAY.click.raise();
  panel.sound.deck[0]->position = 1234;
  panel.program.sound.Pitch[1]->put_Value(-5.0F);
  panel.program.sound.EQ->put_Gain(3, 4.5);
  EXPECT_EQ(value("AudioFile(0).FileName"), "\"/music/a.mp3\"");
  EXPECT_EQ(value("AudioFile(0).Position"), "1234");
  EXPECT_EQ(value("AudioFile(0).Length"), "200000");
  EXPECT_EQ(value("TempFile.FileName"), "\"/music/a.mp3\"");
  EXPECT_EQ(value("Pitch(1).Value"), "-5");
  EXPECT_EQ(value("WaveMixer.Mute(0)"), "False");
  EXPECT_EQ(value("WaveMixer.Mute(1)"), "True");
  EXPECT_EQ(value("WaveMixer.Volume"), "32768");
  EXPECT_EQ(value("EQ.Filters(3).Gain"), "4.5");
  EXPECT_EQ(value("EQ.Filters(3).LowEdge"), "130");
  EXPECT_EQ(value("EQ.Filters(3).HighEdge"), "260");
  EXPECT_EQ(value("EQ.Filters.Count"), "15");
  EXPECT_EQ(value("EQ.Bypassed"), "False");
  EXPECT_EQ(value("WaveOut.BufferSize"), "5120");
  EXPECT_EQ(value("MixTimer.Interval"), "10");
  EXPECT_EQ(value("ListTimer.Enabled"), "False");
  EXPECT_EQ(value("MMConnectorX1.Spectrum"), "\"MMSpectrum1\"");
  EXPECT_EQ(value("MMConnectorX1.Oscilloscope"), "\"\"");
  EXPECT_EQ(value("MMSpectrum1.FFTLength"), "64");
  EXPECT_EQ(value("MMSpectrum1.LogAmp"), "False");
  EXPECT_EQ(value("MMMeterX1.Visible"), "False");
}

TEST_F(Names, RunStateAndSongTable) {
  panel.add_songs(1);
  panel.state.MixStarted = kTrue;
  panel.state.EqLevels[2] = -3;
  EXPECT_EQ(value("SongCount"), "1");
  EXPECT_EQ(value("MixStarted"), "True");
  EXPECT_EQ(value("NextSongLoaded"), "False");
  EXPECT_EQ(value("SeekDragging"), "False");
  EXPECT_EQ(value("LastFolder"), "\"/music\"");
  EXPECT_EQ(value("EqLevels(2)"), "-3");
  EXPECT_EQ(value("SongTable(1).SongFile"), "\"/music/a.mp3\"");
  EXPECT_EQ(value("SongTable(200).SongLength"), "0");
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
