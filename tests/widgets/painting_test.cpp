// What is painted and when: only what has changed, and nothing that nobody can see.

#include <gtest/gtest.h>

#include <QCoreApplication>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

QRect with_margin(const char* name) {
  return control_box(name).box().adjusted(-5, -5, 5, 5).intersected(QRect(0, 0, 607, 258));
}

TEST(Painting, NothingWhileNothingChanges) {
  WindowRig rig;
  rig.player->run(1000);  // the clock shows the time
  rig.painted();
  for (int i = 0; i < 30; ++i) rig.frame(1.0 / 60);
  rig.player->run(5000);  // the panel's refresh writes its labels anew
  EXPECT_TRUE(rig.painted().isEmpty());
  EXPECT_FALSE(rig.frame(1.0 / 60)) << "nothing moves";
}

TEST(Painting, OnlyTheBoxThatHasChanged) {
  WindowRig rig;
  rig.controls().LblPosition.Caption = "01:23";
  EXPECT_EQ(rig.painted().boundingRect(), with_margin("LblPosition"));
  rig.controls().PLAY.Picture = 1;
  EXPECT_EQ(rig.painted().boundingRect(), with_margin("PLAY"));
  rig.controls().Volume.put(1000);
  const QRegion both = QRegion(with_margin("Volume")) + with_margin("MeterVol");
  EXPECT_TRUE((rig.painted() - both).isEmpty());
}

TEST(Painting, NothingForAValueThatIsAsItWas) {
  WindowRig rig;
  rig.controls().LblPosition.Caption = "01:23";
  rig.painted();
  rig.controls().LblPosition.Caption = "01:23";
  rig.controls().PLAY.Enabled = true;
  EXPECT_TRUE(rig.painted().isEmpty());
}

TEST(Painting, NothingForAControlThatIsNotShown) {
  WindowRig rig;
  rig.controls().sl0[2].put(5);
  rig.controls().MMLEDX1.LEDColor = clLime;
  EXPECT_TRUE(rig.painted().isEmpty());
  rig.make_small();
  rig.painted();
  rig.controls().SliderP.put(5);
  EXPECT_FALSE(rig.painted().intersects(QRect(212, 166, 30, 90)));
}

TEST(Painting, NothingWhileHiddenOrMinimised) {
  WindowRig rig;
  rig.window->hide();
  rig.controls().LblPosition.Caption = "01:23";
  EXPECT_TRUE(rig.painted().isEmpty());
  EXPECT_FALSE(rig.window->exposed());
  rig.window->show();
  EXPECT_TRUE(rig.painted().contains(QRect(0, 0, 607, 258)));
  rig.window->showMinimized();
  rig.painted();
  rig.controls().LblPosition.Caption = "01:24";
  EXPECT_TRUE(rig.painted().isEmpty());
  EXPECT_FALSE(rig.window->exposed());
}

TEST(Painting, AFrameOfADisplayPaintsTheDisplayAlone) {
  WindowRig rig;
  rig.controls().MMSwitchX1.move(1);
  while (rig.frame(1.0 / 60)) {
  }
  rig.painted();
  const std::vector<SoundFrame> loud(4410, SoundFrame{0.5F, 0.5F});
  rig.window->visual().feed(loud);
  EXPECT_TRUE(rig.frame(1.0 / 60));
  const QRegion painted = rig.painted();
  EXPECT_FALSE(painted.isEmpty());
  EXPECT_TRUE((painted - control_box("Display well").box()).isEmpty());
}

TEST(Painting, ListAndEqualizerTakeEachOthersPlace) {
  WindowRig rig;
  rig.key(Qt::Key_F2);
  EXPECT_TRUE(rig.painted().contains(control_box("PlayList").box()));
  EXPECT_FALSE(rig.item("PlayList").isVisible());
  EXPECT_TRUE(rig.item("sl0(14)").isVisible());
  rig.key(Qt::Key_F2);
  EXPECT_TRUE(rig.painted().contains(control_box("PlayList").box()));
  EXPECT_TRUE(rig.item("SaveList").isVisible());
  EXPECT_FALSE(rig.item("MMPanelX1(0)").isVisible());
}

}  // namespace
}  // namespace tandem::test
