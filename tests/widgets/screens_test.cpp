// The window on several screens side by side, and on one of another scale.

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <string>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

void report(const std::string& fault, const std::string& expected, const std::string& measured) {
  testing::Test::RecordProperty("fault", fault);
  testing::Test::RecordProperty("expected", expected);
  testing::Test::RecordProperty("measured", measured);
}

std::string text(const QPoint& at) { return std::to_string(at.x()) + ", " + std::to_string(at.y()); }
std::string text(const QSize& size) { return std::to_string(size.width()) + " x " + std::to_string(size.height()); }

class Screens : public testing::Test {
 protected:
  void SetUp() override { ASSERT_GE(QGuiApplication::screens().size(), 3); }
  // As window managers move a window to the next screen: its place changes in one step, its screen after that.
  void jump(int screen, const QPoint& at) {
    rig.window->move(at);
    rig.window->windowHandle()->setScreen(QGuiApplication::screens()[screen]);
    rig.window->move(at);
    rig.painted();
  }
  WindowRig rig;
};

TEST_F(Screens, AfterAJumpThePanelsPlaceIsThatOnTheNewScreen) {
  const QScreen* second = QGuiApplication::screens()[1];
  const QPoint at = second->geometry().topLeft() + QPoint(420, 300);
  rig.window->move(at);
  rig.window->windowHandle()->setScreen(QGuiApplication::screens()[1]);
  EXPECT_EQ(rig.controls().Painel.Left.get(), 420 * 15);
  EXPECT_EQ(rig.controls().Painel.Top.get(), 300 * 15);
  EXPECT_EQ(rig.controls().Painel.ScreenWidth, second->geometry().width() * 15);
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(rig.window->pos(), at) << "the small window keeps its corner";
  report("jump to another screen, then another size", "at " + text(at), "at " + text(rig.window->pos()));
}

TEST_F(Screens, OnAScreenOfAnotherScaleAllOfTheWindowIsThere) {
  if (!windows_follow_the_scale_of(QGuiApplication::screens()[2])) GTEST_SKIP() << "no window of Qt's does here";
  jump(2, QGuiApplication::screens()[2]->geometry().topLeft() + QPoint(20, 30));
  EXPECT_EQ(rig.window->devicePixelRatioF(), 2);
  EXPECT_TRUE(rig.window->mask().isEmpty()) << "nothing is cut off";
  const QImage picture = rig.window->grab().toImage();
  EXPECT_EQ(picture.size(), QSize(1214, 516));
  EXPECT_EQ(qAlpha(picture.pixel(1213, 515)), 255);
  report("screen of another scale", "1214 x 516 pixels of the window are seen",
         text(picture.size()) + ", the last of opacity " + std::to_string(qAlpha(picture.pixel(1213, 515))));
}

TEST_F(Screens, OnASmallerScreenItGetsAsSmallAsItMust) {
  const QScreen* small = QGuiApplication::screens()[0];
  jump(1, QGuiApplication::screens()[1]->geometry().topLeft() + QPoint(20, 30));
  rig.window->set_scale(2);
  ASSERT_EQ(rig.window->scale(), 2);
  rig.window->move(small->geometry().topLeft() + QPoint(50, 50));
  rig.window->windowHandle()->setScreen(QGuiApplication::screens()[0]);
  EXPECT_EQ(rig.window->scale(), 1.25);
  EXPECT_TRUE(small->availableGeometry().contains(rig.window->geometry())) << "all of it can be reached";
  jump(1, QGuiApplication::screens()[1]->geometry().topLeft() + QPoint(20, 30));
  EXPECT_EQ(rig.window->scale(), 1.25) << "what fits keeps its size";
  report("a window of twice the size on a screen of 800 x 800", "all of it is there", "all of it, at 125 %");
}

}  // namespace
}  // namespace tandem::test
