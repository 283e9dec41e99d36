// The window at the scale that the test program is run at: at 100 % and, by test entries of its own, at 125 to 300 %.

#include <gtest/gtest.h>

#include <QApplication>
#include <QBackingStore>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <cmath>

#include "paint/controls/song_list.h"
#include "paint/panel/panel_background.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "support/picture_difference.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

constexpr int kRounding = 2;  // of an edge that is brought to a whole pixel and back

bool is_near(QRgb a, QRgb b) { return difference(a, b) <= kRounding; }

// The greatest of a box of pixels.
int greatest_difference(const QImage& a, const QImage& b, const QRect& pixels) {
  int greatest = 0;
  for (int y = pixels.top(); y <= pixels.bottom(); ++y)
    for (int x = pixels.left(); x <= pixels.right(); ++x)
      greatest = std::max(greatest, difference(a.pixel(x, y), b.pixel(x, y)));
  return greatest;
}

// The item that gets a press.
class PressWatch : public QObject {
 public:
  PressWatch() { qApp->installEventFilter(this); }
  std::string pressed;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override {
    if (event->type() == QEvent::MouseButtonPress && receiver->isWidgetType())
      pressed = receiver->objectName().toStdString();
    return false;
  }
};

class ScaledWindow : public testing::Test {
 protected:
  double scale() const { return rig.window->devicePixelRatioF(); }
  int pixel(double at) const { return static_cast<int>(std::floor(at * scale() + .5)); }
  QImage shown() {
    rig.painted();
    auto* store = dynamic_cast<QImage*>(rig.window->backingStore()->paintDevice());
    return store->convertToFormat(QImage::Format_RGB32);
  }
  // The needle meters and the level bar after a second of this frame.
  QImage meters_after(const SoundFrame& frame) {
    rig.controls().MMSwitchX1.move(1);
    for (int i = 0; i < 60; ++i) {
      rig.window->visual().feed(std::vector<SoundFrame>(735, frame));
      rig.frame(1.0 / 60);
    }
    return shown();
  }
  // One item on the bare panel, drawn again at a scale.
  QImage drawn(const std::string& name, double at_scale) {
    const auto length = [at_scale](int px) { return static_cast<int>(std::floor(px * at_scale + .5)); };
    QImage picture(length(rig.window->width()), length(rig.window->height()), QImage::Format_RGB32);
    picture.fill(Qt::black);
    QPainter painter(&picture);
    set_up(painter, at_scale);
    paint_background(painter, {WindowSize::Full, rig.controls().PlayList.Visible});
    rig.item(name).draw(painter);
    return picture;
  }
  // The item that is pressed at a point, by a button that does nothing.
  std::string pressed_at(const QPoint& at) {
    PressWatch watch;
    QTest::mousePress(rig.window->windowHandle(), Qt::MiddleButton, {}, at);
    QTest::mouseRelease(rig.window->windowHandle(), Qt::MiddleButton, {}, at);
    return watch.pressed;
  }
  void expect_hit_in_its_corners(const PanelItem& item) {
    const QRect box = item.geometry();
    for (const QPoint& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()})
      EXPECT_EQ(pressed_at(corner), item.place().name) << corner.x() << ' ' << corner.y();
  }

  WindowRig rig;
};

TEST_F(ScaledWindow, HasItsSizesInDevicePixels) {
  const auto expect_size = [this](int width, int height) {
    EXPECT_EQ(rig.window->size(), QSize(width, height));
    EXPECT_EQ(shown().size(), QSize(pixel(width), pixel(height)));
  };
  expect_size(607, 258);
  rig.show_board();
  expect_size(607, 426);
  rig.make_small();
  expect_size(262, 165);
}

TEST_F(ScaledWindow, EveryControlIsHitWhereItIsDrawn) {
  rig.show_board();
  for (const bool list : {true, false}) {
    if (!list) rig.show_equalizer();
    int hit = 0;
    for (const PanelItem* item : rig.window->items()) {
      if (item->place().tab == 0 || !item->isVisible()) continue;
      expect_hit_in_its_corners(*item);
      ++hit;
    }
    EXPECT_GT(hit, 40);
  }
  EXPECT_EQ(pressed_at(control_box("PLAY").box().topLeft() - QPoint(1, 0)), "") << "bare faceplate";
}

TEST_F(ScaledWindow, ClicksDoWhatTheyDoAtOneHundred) {
  rig.add_songs(4);
  const QPointF third = list_row_box(control_box("PlayList").box(), 2, 0).center();
  rig.click(third.toPoint());
  EXPECT_EQ(rig.controls().PlayList.ListIndex(), 2);
  rig.click(rig.caption("MMSwitchX1", 2));
  EXPECT_EQ(rig.controls().MMSwitchX1.value(), 2);
  rig.show_equalizer();
  rig.click(rig.in("sl0(3)", 11, 150 + 3 * (12 - 9) - 144));
  EXPECT_EQ(rig.controls().sl0[3].value(), 9);
  rig.click("ShowControls");
  EXPECT_EQ(rig.window->height(), 426);
  rig.click("MMLEDX1");
  EXPECT_EQ(rig.controls().MMLEDX1.LEDColor.get(), clLime);
}

TEST_F(ScaledWindow, TheLevelBarShowsTheLeftChannelOnTheLeft) {
  const QImage picture = meters_after(SoundFrame{1, 0});
  const auto lit = [&](int x) { return is_near(picture.pixel(pixel(x), pixel(104)), palette::kLime); };
  EXPECT_TRUE(lit(429));
  EXPECT_FALSE(lit(435));
}

// A spot is its whole colour, and between two spots there is nothing of it.
TEST_F(ScaledWindow, SpotsOfTheLevelBarAreWholePixels) {
  const QImage picture = meters_after(SoundFrame{1, 1});
  constexpr QRgb kGround = 0xFF020303;
  std::vector<int> runs = {0};
  for (int y = pixel(66); y < pixel(105); ++y) {  // below the glass's light
    for (int x = pixel(427); x < pixel(432); ++x)
      EXPECT_TRUE(is_near(picture.pixel(x, y), palette::kLime) || is_near(picture.pixel(x, y), kGround))
          << x << ' ' << y << std::hex << ' ' << picture.pixel(x, y);
    const bool goes_on = is_near(picture.pixel(pixel(428), y), picture.pixel(pixel(428), y - 1));
    if (!goes_on) runs.push_back(0);
    ++runs.back();
  }
  for (std::size_t i = 1; i + 1 < runs.size(); ++i) {
    const int usual = i % 2 == (runs[1] > runs[2] ? 1 : 0) ? 3 : 1;
    EXPECT_NEAR(runs[i], usual * scale(), scale() == std::floor(scale()) ? 0 : 1) << i;
  }
  EXPECT_GT(runs.size(), 18U);
}

TEST_F(ScaledWindow, TheSelectedRowBeginsAndEndsOnAWholePixel) {
  rig.add_songs(3);
  rig.controls().PlayList.user_select(1);
  const QImage picture = shown();
  const QRectF row = list_row_box(control_box("PlayList").box(), 1, 0);
  const int x = pixel(row.right() - 12);
  const int first = pixel(row.top());
  const int beyond = pixel(row.bottom());
  for (int y = first; y < beyond; ++y) EXPECT_GT(qBlue(picture.pixel(x, y)), 0x70) << y;
  EXPECT_LT(qBlue(picture.pixel(x, first - 1)), 0x20);
  EXPECT_LT(qBlue(picture.pixel(x, beyond)), 0x20);
}

// Between its rim and its tile, both of which may end within a pixel.
TEST_F(ScaledWindow, AKeysFrameIsItsWholeColour) {
  rig.controls().ShowControls.BackColor = clLime;
  const QImage picture = shown();
  const QRect key = control_box("ShowControls").box();
  const int y = pixel(key.center().y());
  const int first = static_cast<int>(std::ceil((key.left() + 1) * scale()));
  const int beyond = static_cast<int>(std::floor((key.left() + 2.5) * scale()));
  ASSERT_LT(first, beyond);
  for (int x = first; x < beyond; ++x) EXPECT_EQ(picture.pixel(x, y), palette::kLime) << x;
  EXPECT_NE(picture.pixel(first - 1, y), palette::kLime);
}

TEST_F(ScaledWindow, IsDrawnAtItsScaleAndNotMadeLarger) {
  const QRect key = control_box("LoadSong").box();
  const QRect pixels(QPoint(pixel(key.left()), pixel(key.top())), QPoint(pixel(key.right()), pixel(key.bottom())));
  const QImage picture = shown();
  const QImage made_larger =
      drawn("LoadSong", 1).scaled(picture.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_LE(greatest_difference(picture, drawn("LoadSong", scale()), pixels), kRounding);
  EXPECT_EQ(greatest_difference(picture, made_larger, pixels) > 10 * kRounding, scale() > 1);
}

}  // namespace
}  // namespace tandem::test
