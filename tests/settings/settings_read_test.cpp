#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "base/whole_file.h"
#include "fakes/test_panel.h"

namespace tandem {
namespace {

using test::TestPanel;
using testing::Each;
using testing::ElementsAre;

// The lines of a settings file, one of which may be replaced.
class Lines {
 public:
  Lines() {
    const std::string text = factory_settings();
    for (std::size_t from = 0; from < text.size(); from = text.find('\n', from) + 1)
      lines_.push_back(text.substr(from, text.find('\n', from) + 1 - from));
  }
  Lines& put(std::size_t line, const std::string& text) {  // from 1
    lines_.at(line - 1) = text + "\r\n";
    return *this;
  }
  Lines& keep(std::size_t count) {
    lines_.resize(count);
    return *this;
  }
  std::string text() const {
    std::string all;
    for (const std::string& line : lines_) all += line;
    return all;
  }

 private:
  std::vector<std::string> lines_;
};

struct SettingsReading : testing::Test {
  TestPanel panel;
  RunState& state = panel.state;
  PanelControls& controls = panel.controls;

  void read(const std::string& text) {
    replace_whole_file(panel.directory.file("TP.inf"), text);
    panel.program.settings.read();
  }
  RuntimeErrorKind error_of(const std::string& text) {
    try {
      read(text);
    } catch (const RuntimeError& error) {
      report = error.what();
      return error.kind();
    }
    ADD_FAILURE() << "no error";
    return RuntimeErrorKind::Cancelled;
  }
  std::string report;
};

TEST_F(SettingsReading, TheFactoryFileHasThirtySevenLines) {
  const std::string text = factory_settings();
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 37);
}

TEST_F(SettingsReading, EveryLineGoesToItsVariable) {
  std::string text;
  for (int line = 1; line <= 36; ++line) text += number_line(line);
  read(text + "/music\r\n");
  EXPECT_THAT(state.EqLevels, ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 0));
  EXPECT_EQ(state.SavedVolume, 16);
  EXPECT_THAT(state.SpinValues, ElementsAre(17, 18, 19, 20, 21, 22, 23, 24, 0));
  EXPECT_THAT(state.SwitchPositions, ElementsAre(25, 26, 27, 28, 0));
  EXPECT_EQ(state.DisplayChoice, 29);
  EXPECT_THAT(state.OptionFlags, ElementsAre(30, 31, 32, 33, 34, 0));
  EXPECT_EQ(state.MixTimeMs, 35);
  EXPECT_EQ(state.BufferMode, 36);
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(SettingsReading, LevelsGoIntoTheirSlidersAtOnceAndAreLimitedByThem) {
  read(Lines().put(1, "-12 ").put(2, " 30 ").text());
  EXPECT_EQ(controls.sl0[0].Position, -12);
  EXPECT_EQ(state.EqLevels[1], 30);
  EXPECT_EQ(controls.sl0[1].Position, 12);
}

TEST_F(SettingsReading, ALevelIsInItsSliderBeforeTheNextIsRead) {
  EXPECT_EQ(error_of(Lines().put(1, "5").put(2, "40000").text()), RuntimeErrorKind::Overflow);
  EXPECT_EQ(controls.sl0[0].Position, 5);
}

TEST_F(SettingsReading, ANegativeLevelComesBack) {
  controls.sl0[7].Position = -12;
  panel.program.settings.write();
  controls.sl0[7].Position = 3;
  panel.program.settings.read();
  EXPECT_EQ(state.EqLevels[7], -12);
  EXPECT_EQ(controls.sl0[7].Position, -12);
}

TEST_F(SettingsReading, WhatIsWrittenComesBackByteForByte) {
  controls.sl0[3].Position = 7;
  state.LastFolder = "/m\u00fcsic/\xff odd";
  panel.program.settings.write();
  const std::string text = read_whole_file(panel.directory.file("TP.inf"));
  panel.program.settings.read();
  EXPECT_EQ(state.LastFolder, "/m\u00fcsic/\xff odd");
  panel.program.settings.write();
  EXPECT_EQ(read_whole_file(panel.directory.file("TP.inf")), text);
}

TEST_F(SettingsReading, AFolderIsCutAtItsComma) {
  read(Lines().put(37, "/music/a, b").text());
  EXPECT_EQ(state.LastFolder, "/music/a");
}

TEST_F(SettingsReading, AnEmptyFolderLineIsEmptyText) {
  state.LastFolder = "old";
  read(factory_settings());
  EXPECT_EQ(state.LastFolder, "");
}

TEST_F(SettingsReading, LeadingBlanksOfTheFolderGoAndQuotesStay) {
  read(Lines().put(37, "  \"/music\"").text());
  EXPECT_EQ(state.LastFolder, "\"/music\"");
}

TEST_F(SettingsReading, AnOddLeadTimeIsKept) {
  read(Lines().put(35, " 500 ").text());
  EXPECT_EQ(state.MixTimeMs, 500);
}

TEST_F(SettingsReading, LineEndsOfEitherKindAndNoneAtTheEnd) {
  std::string text = Lines().put(37, "/music").text();
  std::string unix_text;
  for (const char letter : text)
    if (letter != '\r') unix_text += letter;
  read(unix_text.substr(0, unix_text.size() - 1));
  EXPECT_EQ(state.SavedVolume, 32768);
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(SettingsReading, AMissingFileGivesTheFactoryValues) {
  controls.sl0[0].Position = 5;
  panel.program.settings.read();
  EXPECT_EQ(controls.sl0[0].Position, 0);
  EXPECT_EQ(state.SavedVolume, 32768);
  EXPECT_THAT(state.SpinValues, ElementsAre(7, 512, 20, 25, 1, 1, 500, 1, 0));
  EXPECT_THAT(state.SwitchPositions, ElementsAre(3, 1, 1, 1, 0));
  EXPECT_EQ(state.DisplayChoice, 0);
  EXPECT_THAT(state.OptionFlags, Each(0));
  EXPECT_EQ(state.MixTimeMs, 2500);
  EXPECT_EQ(state.BufferMode, 0);
  EXPECT_EQ(state.LastFolder, "");
}

TEST_F(SettingsReading, WhatWasReadOfAShortFileIsDiscarded) {
  for (const std::size_t count : {0U, 1U, 15U, 16U, 34U, 35U, 36U}) {
    read(Lines().put(1, " 5 ").put(16, " 100 ").put(35, " 280 ").keep(count).text());
    EXPECT_EQ(state.EqLevels[0], 0) << count;
    EXPECT_EQ(controls.sl0[0].Position, 0) << count;
    EXPECT_EQ(state.SavedVolume, 32768) << count;
    EXPECT_EQ(state.MixTimeMs, 2500) << count;
  }
}

TEST_F(SettingsReading, AFileWithoutLeadTimeLineRunsPastItsEnd) {
  controls.AMLed2.LEDColor = kLeadDark;
  state.LastFolder = "/music";
  state.BufferMode = 1;
  panel.program.settings.write();
  panel.program.settings.read();
  EXPECT_EQ(state.MixTimeMs, 2500);  // so the factory values stand
  EXPECT_EQ(state.BufferMode, 0);
  EXPECT_EQ(state.LastFolder, "");
}

TEST_F(SettingsReading, TwoLeadTimeLinesShiftWhatFollows) {
  controls.AMLedOff.LEDColor = kLeadLit;
  state.BufferMode = 1;
  state.LastFolder = "/music";
  panel.program.settings.write();
  panel.program.settings.read();
  EXPECT_EQ(state.MixTimeMs, 280);
  EXPECT_EQ(state.BufferMode, 2500);
  EXPECT_EQ(state.LastFolder, "1 ");
}

TEST_F(SettingsReading, LinesBeyondTheLastAreNotRead) {
  read(Lines().put(37, "/music").text() + "more\r\n");
  EXPECT_EQ(state.LastFolder, "/music");
}

TEST_F(SettingsReading, ATooLargeNumberIsAnErrorThatNamesTheFile) {
  EXPECT_EQ(error_of(Lines().put(17, " 32768 ").text()), RuntimeErrorKind::Overflow);
  EXPECT_EQ(report, "Overflow: " + panel.directory.file("TP.inf") + ", line 17");
  EXPECT_EQ(error_of(Lines().put(35, "-32769 ").text()), RuntimeErrorKind::Overflow);
}

TEST_F(SettingsReading, TheVolumeIsWider) {
  read(Lines().put(16, " 2147483647 ").text());
  EXPECT_EQ(state.SavedVolume, 2147483647);
  EXPECT_EQ(error_of(Lines().put(16, " 2147483648 ").text()), RuntimeErrorKind::Overflow);
}

TEST_F(SettingsReading, WordsReadZeroAndFractionsAreRounded) {
  read(Lines().put(17, "seven").put(18, "64.5").put(19, "65.5").text());
  EXPECT_EQ(state.SpinValues[0], 0);
  EXPECT_EQ(state.SpinValues[1], 64);
  EXPECT_EQ(state.SpinValues[2], 66);
}

TEST_F(SettingsReading, BinaryBytesAreWordsToo) {
  std::string bytes;
  for (int i = 0; i < 4096; ++i) bytes += static_cast<char>(static_cast<unsigned char>((i * 7 + 128) % 256));
  read(bytes + bytes);  // no crash; 37 fields of no number, or the factory values
  EXPECT_EQ(state.EqLevels[0], 0);
}

TEST_F(SettingsReading, AFileThatCannotBeReadIsAnError) {
  std::filesystem::create_directory(panel.directory.file("TP.inf"));
  EXPECT_THROW(panel.program.settings.read(), RuntimeError);
}

}  // namespace
}  // namespace tandem
