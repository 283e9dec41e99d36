#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "base/whole_file.h"
#include "fakes/test_panel.h"

namespace tandem {
namespace {

using test::TestPanel;

std::string number_lines(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += number_line(value);
  return text;
}

std::string written(TestPanel& panel) {
  panel.program.settings.write();
  return read_whole_file(panel.directory.file("TP.inf"));
}

const std::string kFlat = number_lines({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
const std::string kBoard = number_lines({7, 512, 20, 25, 1, 1, 500, 1, 3, 1, 1, 1, 0, 0, 0, 0, 0, 0});

TEST(SettingsWriting, TheFactoryStateLineByLine) {
  TestPanel panel;
  EXPECT_EQ(written(panel), kFlat + " 32768 \r\n" + kBoard + " 2500 \r\n 0 \r\n\r\n");
}

TEST(SettingsWriting, TheFactoryFileIsTheFactoryState) {
  TestPanel panel;
  EXPECT_EQ(written(panel), factory_settings());
}

TEST(SettingsWriting, EveryValueComesLiveFromItsControl) {
  TestPanel panel;
  PanelControls& c = panel.controls;
  for (std::size_t band = 0; band < kBands; ++band) c.sl0[band].Position = static_cast<int>(band) - 12;
  c.Volume.Value = 1234;
  c.MMLEDSpin1.Value = 16;
  c.MMLEDSpin2.Value = 2048;
  c.MMLEDSpin3.Value = 200;
  c.MMLEDSpin4.Value = 50;
  c.MMLEDSpin5.Value = 5;
  c.MMLEDSpin6.Value = 15;
  c.MMLEDSpin7.Value = 22050;
  c.MMLEDSpin8.Value = 49;
  c.MMSwitch1.Position = 5;
  c.MMSwitch2.Position = 6;
  c.MMSwitch3.Position = 2;
  c.MMSwitch4.Position = 3;
  c.MMSwitchX1.Position = 1;
  c.MMLEDX1.LEDColor = clLime;
  c.MMLEDX4.LEDColor = clLime;
  c.AMLed2.LEDColor = kLeadDark;
  c.AMLed3.LEDColor = kLeadLit;
  panel.state.BufferMode = 1;
  panel.state.LastFolder = "/music/old";
  EXPECT_EQ(written(panel), number_lines({-12, -11, -10, -9, -8, -7, -6, -5, -4, -3, -2, -1, 0, 1, 2}) +
                                number_lines({1234, 16, 2048, 200, 50, 5, 15, 22050, 49, 5, 6, 2, 3, 1}) +
                                number_lines({1, 0, 0, 1, 0, 3500, 1}) + "/music/old\r\n");
}

TEST(SettingsWriting, OnlyGreenIsOff) {
  TestPanel panel;
  panel.controls.MMLEDX5.LEDColor = clRed;
  EXPECT_NE(written(panel).find(" 0 \r\n 0 \r\n 0 \r\n 0 \r\n 1 \r\n 2500 \r\n"), std::string::npos);
}

TEST(SettingsWriting, WithoutALitLeadTimeTheFileIsALineShort) {
  TestPanel panel;
  panel.controls.AMLed2.LEDColor = kLeadDark;
  EXPECT_EQ(written(panel), kFlat + " 32768 \r\n" + kBoard + " 0 \r\n\r\n");
}

TEST(SettingsWriting, WithTwoLitLeadTimesItIsALineLonger) {
  TestPanel panel;
  panel.controls.AMLedOff.LEDColor = kLeadLit;
  EXPECT_EQ(written(panel), kFlat + " 32768 \r\n" + kBoard + " 280 \r\n 2500 \r\n 0 \r\n\r\n");
}

TEST(SettingsWriting, AFileThatIsThereIsReplaced) {
  TestPanel panel;
  replace_whole_file(panel.directory.file("TP.inf"), std::string(5000, 'x'));
  EXPECT_EQ(written(panel), factory_settings());
}

TEST(SettingsWriting, WhereNothingCanBeWrittenTheErrorReachesTheCaller) {
  TestPanel panel;
  std::filesystem::create_directory(panel.directory.file("TP.inf"));
  EXPECT_THROW(panel.program.settings.write(), RuntimeError);
}

TEST(SettingsWriting, ThePathIsPlainlyJoined) {
  TestPanel panel;
  EXPECT_EQ(SettingsFile(panel.controls, panel.state, "/").path(), "//TP.inf");
  EXPECT_EQ(SettingsFile(panel.controls, panel.state, "/opt/tandem").path(), "/opt/tandem/TP.inf");
}

}  // namespace
}  // namespace tandem
