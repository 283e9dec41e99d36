#include <gtest/gtest.h>

#include "controls/kinds/dial.h"
#include "controls/kinds/slider.h"
#include "controls/kinds/spinner.h"

namespace tandem {
namespace {

// Counts the changes of a control.
struct Changes {
  explicit Changes(ValuedControl& control) {
    control.change.connect([this] { ++count; });
  }
  int count = 0;
};

TEST(ValuedControl, APutIsLimitedToTheRange) {
  Slider slider(-12, 12, NotifyOnPut::Always);
  slider.Position = 40;
  EXPECT_EQ(slider.Position, 12);
  slider.Position = -40;
  EXPECT_EQ(slider.Position, -12);
}

TEST(ValuedControl, NotifyAlwaysReportsAPutThatChangesNothing) {
  Slider slider(-12, 12, NotifyOnPut::Always);
  const Changes changes(slider);
  slider.Position = 0;
  slider.Position = 5;
  EXPECT_EQ(changes.count, 2);
}

TEST(ValuedControl, NotifyOnChangeReportsOnlyAChange) {
  Switch control(2, 0, NotifyOnPut::OnChange);
  const Changes changes(control);
  control.Position = 0;
  EXPECT_EQ(changes.count, 0);
  control.Position = 1;
  EXPECT_EQ(changes.count, 1);
}

TEST(ValuedControl, NotifyNeverIsSilentButForTheUser) {
  Slider slider(0, 100, NotifyOnPut::Never);
  const Changes changes(slider);
  slider.Position = 50;
  EXPECT_EQ(changes.count, 0);
  slider.move(50);
  EXPECT_EQ(changes.count, 1);
}

TEST(ValuedControl, TheNotificationComesWithinThePut) {
  Slider slider(-20, 20, NotifyOnPut::Always);
  std::int32_t seen = 99;
  slider.change.connect([&] { seen = slider.Position; });
  slider.Position = 7;
  EXPECT_EQ(seen, 7);
}

TEST(ValuedControl, ANewMaximumLimitsTheValueSilently) {
  Slider slider(0, 100, NotifyOnPut::Always);
  slider.Position = 80;
  const Changes changes(slider);
  slider.put_maximum(60);
  EXPECT_EQ(slider.Position, 60);
  EXPECT_EQ(changes.count, 0);
}

TEST(ValuedControl, AMaximumBelowTheMinimumGivesTheMinimum) {
  Slider slider(0, 100, NotifyOnPut::Never);
  slider.put_maximum(-5);
  EXPECT_EQ(slider.Position, 0);
}

TEST(ValuedControl, TheViewHearsOfAChangeOnly) {
  Slider slider(0, 100, NotifyOnPut::Always);
  int seen = 0;
  slider.view_changed.connect([&] { ++seen; });
  slider.Position = 0;
  EXPECT_EQ(seen, 0);
  slider.Position = 1;
  EXPECT_EQ(seen, 1);
}

TEST(Slider, PressAndReleaseComeInPairs) {
  Slider slider(0, 100, NotifyOnPut::Never);
  int presses = 0;
  int releases = 0;
  slider.press.connect([&] { ++presses; });
  slider.release.connect([&] { ++releases; });
  slider.user_release();
  slider.user_press();
  slider.user_press();
  EXPECT_TRUE(slider.held());
  slider.user_release();
  slider.user_release();
  EXPECT_EQ(presses, 1);
  EXPECT_EQ(releases, 1);
}

TEST(Spinner, AButtonStepsTheValueThenRaisesItsEvent) {
  Spinner spinner(2, 0, 50, 25, 1);
  const Changes changes(spinner);
  std::int32_t at_event = 0;
  spinner.up_click.connect([&] { at_event = spinner.Value; });
  spinner.user_up();
  EXPECT_EQ(at_event, 26);
  EXPECT_EQ(changes.count, 1);
  spinner.user_down();
  EXPECT_EQ(spinner.Value, 25);
}

TEST(Spinner, WithoutAStepTheButtonOnlyRaisesItsEvent) {
  Spinner spinner(4, 8, 2048, 512, 0);
  const Changes changes(spinner);
  int downs = 0;
  spinner.down_click.connect([&] { ++downs; });
  spinner.user_down();
  EXPECT_EQ(spinner.Value, 512);
  EXPECT_EQ(changes.count, 0);
  EXPECT_EQ(downs, 1);
}

TEST(Spinner, StaysInItsRangeAtTheEnds) {
  Spinner spinner(2, 0, 5, 5, 1);
  spinner.user_up();
  EXPECT_EQ(spinner.Value, 5);
}

TEST(Switch, HasAsManyPositionsAsSaid) {
  Switch control(7, 1, NotifyOnPut::Always);
  EXPECT_EQ(control.NumPositions(), 7);
  control.Position = 9;
  EXPECT_EQ(control.Position, 6);
}

}  // namespace
}  // namespace tandem
