// What is painted and when: only what has changed, and nothing that cannot be seen.

#include <gtest/gtest.h>

#include <QBackingStore>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QWindow>
#include <array>
#include <vector>

#include "widgets/window/direct_drawing.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

QRect with_margin(const char* name) {
  return control_box(name).box().adjusted(-5, -5, 5, 5).intersected(QRect(0, 0, 607, 258));
}

TEST(Painting, StopsWhileNothingChanges) {
  WindowRig rig;
  rig.player->run(1000);  // the clock shows the time
  rig.painted();
  for (int i = 0; i < 30; ++i) rig.frame(1.0 / 60);
  rig.player->run(5000);  // the panel's refresh writes its labels again
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

// What the window keeps for the screen, and the window painted again.
QImage kept(WindowRig& rig) {
  QBackingStore* store = rig.window->backingStore();
  return static_cast<QImage*>(store->paintDevice())->convertToFormat(QImage::Format_RGB32);
}
QImage painted_again(WindowRig& rig) { return rig.window->grab().toImage().convertToFormat(QImage::Format_RGB32); }

// 0 spectrum, 1 needle meters, 2 oscilloscope.
class PaintingOfDisplays : public testing::TestWithParam<int> {};

TEST_P(PaintingOfDisplays, AFrameIsOnTheScreenAtOnceAndAsItWouldBePainted) {
  WindowRig rig;
  rig.controls().MMSwitchX1.move(GetParam());
  while (rig.frame(1.0 / 60)) {
  }
  rig.painted();
  const QImage still = kept(rig);
  for (int i = 0; i < 20; ++i) {
    rig.window->visual().feed(std::vector<SoundFrame>(735, SoundFrame{0.5F - 0.02F * static_cast<float>(i % 3), 0.3F}));
    EXPECT_TRUE(rig.frame(1.0 / 60));
  }
  // The level bar beside the meters is painted as everything else is.
  const QRegion painted = rig.painted() - control_box("MMLevelX1").box();
  EXPECT_TRUE(painted.isEmpty()) << "no frame of a display is worth a paint event";
  const QImage now = kept(rig);
  EXPECT_NE(now, still);
  EXPECT_EQ(now, painted_again(rig));
  EXPECT_EQ(now.copy(0, 0, 607, 14), still.copy(0, 0, 607, 14));
}

INSTANTIATE_TEST_SUITE_P(All, PaintingOfDisplays, testing::Values(0, 1, 2));

TEST(Painting, DirectDrawingIsRefusedWhereItWouldNotBeWhatIsPainted) {
  WindowRig rig;
  const QImage picture(20, 10, QImage::Format_RGB32);
  const QRect box(0, 0, 20, 10);
  EXPECT_TRUE(draw_directly(*rig.window, picture, {300, 20}, {&box, 1}, {}));
  EXPECT_FALSE(draw_directly(*rig.window, picture, {600, 20}, {&box, 1}, {})) << "beyond the window";
  rig.window->hide();
  EXPECT_FALSE(draw_directly(*rig.window, picture, {300, 20}, {&box, 1}, {}));
}

// As a compositor has it, where a picture may begin within a px. What stands about it stays.
TEST(Painting, AStoreWithTransparencyIsDrawnDirectlyAtAFractionalScale) {
  WindowRig rig;
  QScreen* screen = QGuiApplication::screens().at(3);
  if (!windows_follow_the_scale_of(screen)) GTEST_SKIP() << "no window of Qt's does here";
  rig.window->setAttribute(Qt::WA_TranslucentBackground);
  rig.window->windowHandle()->setScreen(screen);
  rig.window->move(screen->geometry().topLeft() + QPoint(20, 30));
  rig.painted();
  ASSERT_EQ(rig.window->devicePixelRatioF(), 1.5);
  auto* store = dynamic_cast<QImage*>(rig.window->backingStore()->paintDevice());
  *store = QImage((QSizeF(rig.window->size()) * 1.5).toSize(), QImage::Format_ARGB32_Premultiplied);
  store->setDevicePixelRatio(1.5);
  store->fill(0x80405060);
  QImage expected = store->copy();
  QImage picture(21, 11, QImage::Format_RGB32);
  picture.fill(0xFF102030);
  const QPoint at(301, 22);
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x) expected.setPixel(at + QPoint(x, y), 0xFF102030);
  const QRect whole = picture.rect();
  EXPECT_TRUE(draw_directly(*rig.window, picture, at, {&whole, 1}, {}));
  EXPECT_EQ(*store, expected);
}

TEST(Painting, WhatCanGoAShorterWayToTheScreenIsTakenFromWhatTheWindowKeeps) {
  WindowRig rig;
  QImage picture(20, 10, QImage::Format_RGB32);
  picture.fill(0xFF102030);
  const std::array<QRect, 2> boxes = {QRect(0, 0, 3, 4), QRect(10, 5, 10, 5)};
  std::vector<QRect> shown;
  QRgb colour = 0;
  for (const bool can : {true, false}) {
    shown.clear();
    const Present present = [&](const QImage& window, std::span<const QRect> parts) {
      shown.assign(parts.begin(), parts.end());
      colour = window.pixel(parts.front().topLeft());
      return can;
    };
    EXPECT_TRUE(draw_directly(*rig.window, picture, {300, 20}, boxes, present)) << can;
    EXPECT_EQ(shown, (std::vector<QRect>{QRect(300, 20, 3, 4), QRect(310, 25, 10, 5)}));
    EXPECT_EQ(colour & 0xFFFFFFU, 0x102030U);
  }
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
