#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"
#include "shaping/band_table.h"

namespace tandem {
namespace {

using test::PanelTest;
using test::TestPanel;
using testing::ElementsAre;

struct Equalizer : PanelTest {
  Equalizer() { panel.program.equalizer.add_bands(); }
};

TEST_F(Equalizer, FifteenFlatBandsLowToHigh) {
  EXPECT_THAT(
      panel.sound.calls,
      ElementsAre("EQ.Filters.add(0, 32, 0)", "EQ.Filters.add(32, 64, 0)", "EQ.Filters.add(64, 130, 0)",
                  "EQ.Filters.add(130, 260, 0)", "EQ.Filters.add(260, 470, 0)", "EQ.Filters.add(470, 540, 0)",
                  "EQ.Filters.add(540, 630, 0)", "EQ.Filters.add(630, 1200, 0)", "EQ.Filters.add(1200, 2500, 0)",
                  "EQ.Filters.add(2500, 4000, 0)", "EQ.Filters.add(4000, 5400, 0)", "EQ.Filters.add(5400, 6300, 0)",
                  "EQ.Filters.add(6300, 8300, 0)", "EQ.Filters.add(8300, 12000, 0)",
                  "EQ.Filters.add(12000, 20000, 0)"));
}

TEST_F(Equalizer, ThreeIsTheBandFrom130To260) {
  panel.sound.calls.clear();
  controls.sl0[3].move(5);
  EXPECT_THAT(panel.sound.calls, ElementsAre("EQ.Filters(3).Gain(5)"));
  EXPECT_EQ(panel.program.sound.EQ->filter(3).LowEdge, 130.0);
  EXPECT_EQ(panel.program.sound.EQ->filter(3).HighEdge, 260.0);
  EXPECT_EQ(panel.program.sound.EQ->filter(3).Gain, 5.0);
  EXPECT_EQ(controls.dbLabel0[3].Caption.get(), " 5");
  controls.sl0[3].move(-12);
  EXPECT_EQ(controls.dbLabel0[3].Caption.get(), "-12");
  EXPECT_EQ(panel.program.sound.EQ->filter(3).Gain, -12.0);
}

TEST_F(Equalizer, TheTextHasABlankInThePlaceOfTheSign) {
  for (const auto& [position, text] : {std::pair{0, " 0"}, {7, " 7"}, {12, " 12"}, {-3, "-3"}}) {
    controls.sl0[14].move(position);
    EXPECT_EQ(controls.dbLabel0[14].Caption.get(), text);
  }
}

TEST_F(Equalizer, TheBypassTakesItOutOfTheCircuit) {
  panel.sound.calls.clear();
  controls.Bypass.move(0);
  controls.Bypass.move(1);
  EXPECT_THAT(panel.sound.calls, ElementsAre("EQ.Bypassed(True)", "EQ.Bypassed(False)"));
}

TEST(EqualizerErrors, AFailedComponentCallIsShownAndEndsTheHandler) {
  TestPanel panel;  // without bands
  panel.controls.sl0[0].move(3);
  EXPECT_THAT(panel.messages, ElementsAre("Index out of range"));
  EXPECT_EQ(panel.controls.dbLabel0[0].Caption.get(), " 0");
  EXPECT_TRUE(panel.silent_errors.empty());
}

}  // namespace
}  // namespace tandem
