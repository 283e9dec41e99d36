// The window's own scale: chosen by the screen, changed while it runs, with everything where it is drawn.

#include <gtest/gtest.h>

#include <QApplication>
#include <QScreen>
#include <QTest>
#include <QToolTip>
#include <cmath>

#include "widgets/window/window_scale.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

TEST(WindowScale, SuitsTheScreenByItself) {
  EXPECT_EQ(scale_that_suits({1366, 768}), 1);
  EXPECT_EQ(scale_that_suits({1920, 1080}), 1.5);
  EXPECT_EQ(scale_that_suits({1920, 1040}), 1.5) << "with a bar at the edge";
  EXPECT_EQ(scale_that_suits({2560, 1440}), 2);
  EXPECT_EQ(scale_that_suits({3840, 2160}), 3.25);
  EXPECT_EQ(scale_that_suits({640, 480}), 1) << "never smaller";
}

class ScaledBy : public testing::TestWithParam<double> {
 protected:
  ScaledBy() {
    // Greater than the rig's screen, which it may be as far as its board fits.
    rig.window->set_scale(GetParam());
  }
  double scale() const { return rig.window->scale(); }
  QPoint at(const QPoint& panel) const { return (QPointF(panel) * scale()).toPoint(); }
  WindowRig rig;
};

TEST_P(ScaledBy, ThePanelKeepsItsSizesInItsOwnPx) {
  const auto size = [this](int width, int height) {
    return QSize(static_cast<int>(std::floor(width * scale() + .5)),
                 static_cast<int>(std::floor(height * scale() + .5)));
  };
  EXPECT_EQ(rig.window->size(), size(607, 258));
  EXPECT_EQ(rig.controls().Painel.Width.get(), 9105);
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(rig.window->size(), size(262, 165));
  rig.key(Qt::Key_M, Qt::ControlModifier);
  const QPoint centre = rig.window->screen()->geometry().center();
  const QPoint middle = rig.window->frameGeometry().center();
  EXPECT_LE((middle - centre).manhattanLength(), 4) << "the panel centres itself";
}

TEST_P(ScaledBy, TipsAndDialogsHaveThePanelsLettersAtItsSize) {
  for (const QFont& font : {QToolTip::font(), QApplication::font()}) {
    EXPECT_EQ(font.families().value(0), "Roboto Condensed");
    EXPECT_EQ(font.pixelSize(), std::lround(10.5 * scale()));
  }
}

TEST_P(ScaledBy, ControlsAreHitWhereTheyAreDrawn) {
  rig.add_songs(3);
  rig.click(at(rig.middle("ShowControls")));
  EXPECT_EQ(rig.controls().ShowControls.BackColor.get(), clLime);
  rig.click(at(rig.caption("MMSwitch1", 5)));
  EXPECT_EQ(rig.controls().MMSwitch1.value(), 5);
  rig.press(at(rig.in("Slider1", 9, 7)));
  rig.release(at(rig.in("Slider1", 9, 7)));
  EXPECT_EQ(rig.controls().Slider1.value(), 0);
  rig.click(at(rig.in("PlayList", 60, 5 + 13 + 6)));
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 1);
}

TEST_P(ScaledBy, WhatIsPaintedInPartsIsWhatIsPaintedWhole) {
  rig.add_songs(3);
  rig.click(at(rig.middle("PLAY")));
  rig.key(Qt::Key_F3);
  rig.painted();
  const QImage parts = rig.window->grab().toImage();
  rig.window->update();
  rig.painted();
  const QImage whole = rig.window->grab().toImage();
  EXPECT_EQ(parts, whole);
}

INSTANTIATE_TEST_SUITE_P(Steps, ScaledBy, testing::Values(1.0, 1.25));

TEST(WindowScale, ChangesByKeysAndWheelInSteps) {
  WindowRig rig;
  rig.key(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_EQ(rig.window->scale(), 1.25);
  rig.key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(rig.window->scale(), 1);
  rig.wheel(rig.middle("PLAY"), 1, Qt::ControlModifier);
  EXPECT_EQ(rig.window->scale(), 1.25);
  rig.wheel({300, 5}, -1, Qt::ControlModifier);  // on the bare head
  EXPECT_EQ(rig.window->scale(), 1);
  rig.key(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_EQ(rig.window->scale(), 1) << "not below 100 %";
}

TEST(WindowScale, KeepsThePlaceAndStaysOnTheScreen) {
  WindowRig rig;
  rig.window->move(40, 30);
  rig.painted();
  rig.window->set_scale(1.25);
  EXPECT_EQ(rig.window->pos(), QPoint(40, 30));
  EXPECT_EQ(rig.controls().Painel.Left.get(), 40 * 12);
  rig.window->set_scale(1);
  const QRect area = rig.window->screen()->availableGeometry();
  rig.window->move(area.right() - 606, area.bottom() - 257);
  rig.painted();
  rig.window->set_scale(1.25);
  EXPECT_TRUE(area.contains(rig.window->geometry())) << rig.window->x() << ' ' << rig.window->y();
}

TEST(WindowScale, MovesNoPartOfThePanelsState) {
  WindowRig rig;
  const std::int32_t volume = rig.controls().Volume.value();
  const Twips width = rig.controls().Painel.Width;
  rig.window->set_scale(1.25);
  EXPECT_EQ(rig.controls().Volume.value(), volume);
  EXPECT_EQ(rig.controls().Painel.Width.get(), width);
}

}  // namespace
}  // namespace tandem::test
