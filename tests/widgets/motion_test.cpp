// What moves by itself: the title, the hover light, pointers and caps; and what is left of it with reduced motion.

#include <gtest/gtest.h>

#include <QApplication>
#include <QProxyStyle>
#include <algorithm>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

constexpr double kColumn = 1.0 / 30;  // seconds a dot column

QImage picture_of(WindowRig& rig, const char* name) { return rig.window->grab(control_box(name).box()).toImage(); }

// Which dots of the label's picture are lit, column by column. The glass shines differently from place to place.
std::vector<int> lit_columns(const QImage& picture) {
  std::vector<int> columns;
  for (int x = 0; x + 1 < picture.width(); x += 2) {
    int dots = 0;
    for (int row = 0; row < 7; ++row)
      if (qGray(picture.pixel(x, 2 * row)) > 128) dots |= 1 << row;
    columns.push_back(dots);
  }
  return columns;
}

// The text has moved by `way` dot columns to the left.
bool has_moved(const QImage& before, const QImage& after, int way) {
  const std::vector<int> from = lit_columns(before);
  const std::vector<int> to = lit_columns(after);
  return from != to && std::equal(from.begin() + way, from.end(), to.begin());
}

class Title : public testing::Test {
 protected:
  Title() {
    rig.controls().SongLabel.Scrolling = true;
    rig.controls().SongLabel.Caption = "A LONG TITLE OF A SONG   ";
    rig.frame(0);
    rest = picture_of(rig, "SongLabel");
  }
  WindowRig rig;
  QImage rest;
};

TEST_F(Title, RestsFor800MillisecondsThenGoesByWholeColumns) {
  rig.painted();
  rig.frame(0.8);
  EXPECT_TRUE(rig.painted().isEmpty());
  EXPECT_EQ(picture_of(rig, "SongLabel"), rest);
  rig.frame(kColumn * 0.9);
  EXPECT_EQ(picture_of(rig, "SongLabel"), rest);
  rig.frame(kColumn * 0.2);
  EXPECT_TRUE(has_moved(rest, picture_of(rig, "SongLabel"), 1));
  rig.frame(kColumn * 4);
  EXPECT_TRUE(has_moved(rest, picture_of(rig, "SongLabel"), 5));
}

TEST_F(Title, ComesRoundAsARing) {
  rig.frame(0.8 + kColumn * 25 * 6 + 0.001);
  EXPECT_EQ(picture_of(rig, "SongLabel"), rest);
}

TEST_F(Title, BeginsAgainWithANewText) {
  rig.frame(0.8 + kColumn * 10);
  rig.controls().SongLabel.Caption = "ANOTHER TITLE OF A SONG   ";
  const QImage other = picture_of(rig, "SongLabel");
  EXPECT_NE(other, rest);
  rig.frame(0.79);
  EXPECT_EQ(picture_of(rig, "SongLabel"), other);
}

TEST_F(Title, StepsByWholeCellsWithReducedMotion) {
  rig.window->set_reduced_motion(true);
  rig.frame(0.8 + kColumn * 5.9);
  EXPECT_EQ(picture_of(rig, "SongLabel"), rest);
  rig.frame(kColumn * 0.2);
  EXPECT_TRUE(has_moved(rest, picture_of(rig, "SongLabel"), 6));
}

TEST_F(Title, StandsStillWithoutScrolling) {
  rig.controls().SongLabel.Scrolling = false;
  rig.frame(5);
  EXPECT_EQ(picture_of(rig, "SongLabel"), rest);
  EXPECT_FALSE(rig.frame(1));
}

// The panel switches scrolling on for a long title and leaves it on when a short one follows.
TEST_F(Title, StandsStillWhenItFits) {
  rig.controls().SongLabel.Caption = "SALT AIR.MP3";
  const QImage switched_on = picture_of(rig, "SongLabel");
  EXPECT_FALSE(rig.frame(5));
  EXPECT_EQ(picture_of(rig, "SongLabel"), switched_on);
  rig.controls().SongLabel.Scrolling = false;
  rig.frame(0);
  EXPECT_EQ(picture_of(rig, "SongLabel"), switched_on) << "no second beginning of the text in the free cells";
}

TEST(Hover, FadesInWithin80Milliseconds) {
  WindowRig rig;
  const QImage rest = picture_of(rig, "STOPBtn");
  rig.move(rig.middle("STOPBtn"));
  rig.frame(0.016);  // its time begins here
  rig.frame(0.040);
  const QImage half = picture_of(rig, "STOPBtn");
  EXPECT_NE(half, rest);
  EXPECT_TRUE(rig.frame(0.030));
  EXPECT_FALSE(rig.frame(0.011));
  const QImage whole = picture_of(rig, "STOPBtn");
  EXPECT_NE(whole, half);
  rig.move({300, 60});
  rig.frame(0);
  rig.frame(0.081);
  EXPECT_EQ(picture_of(rig, "STOPBtn"), rest);
}

TEST(Hover, AKeyLooksPressedWhileThePointerHoldsItAndIsOnIt) {
  WindowRig rig;
  rig.move(rig.middle("STOPBtn"));
  while (rig.frame(1.0 / 60)) {
  }
  const QImage under_the_pointer = picture_of(rig, "STOPBtn");
  rig.press(rig.middle("STOPBtn"));
  EXPECT_NE(picture_of(rig, "STOPBtn"), under_the_pointer);
  rig.move({300, 60});
  const QImage held_beside = picture_of(rig, "STOPBtn");
  rig.move(rig.middle("STOPBtn"));
  EXPECT_NE(picture_of(rig, "STOPBtn"), held_beside);
  rig.release(rig.middle("STOPBtn"));
  while (rig.frame(1.0 / 60)) {
  }
  EXPECT_EQ(picture_of(rig, "STOPBtn"), under_the_pointer);
}

TEST(Hover, TheDisplaysLineIsOnWhereverAPressChangesTheSize) {
  WindowRig rig;
  const auto line = [&rig] {
    rig.frame(0);
    rig.frame(1);
    return rig.window->grab(QRect(5, 60, 1, 1)).toImage().pixel(0, 0);
  };
  const QRgb out = line();
  rig.move({60, 35});  // the free area
  const QRgb on = line();
  EXPECT_NE(on, out);
  for (const char* label : {"SongLabel", "LblPosition", "LblTempTot", "ClockLabel", "MMLEDLABELX2", "MeterVol"}) {
    rig.move(rig.middle(label));
    EXPECT_EQ(line(), on) << label;
    EXPECT_EQ(rig.item(label).cursor().shape(), Qt::PointingHandCursor) << label;
  }
  rig.move(rig.middle("INDIC"));
  EXPECT_EQ(line(), out) << "the read-out cannot be pressed";
  rig.move(rig.middle("SongLabel"));
  EXPECT_EQ(line(), on);
  rig.move(rig.middle("PLAY"));
  EXPECT_EQ(line(), out);
}

TEST(Hover, ComesAtOnceWithReducedMotion) {
  WindowRig rig;
  rig.window->set_reduced_motion(true);
  const QImage rest = picture_of(rig, "STOPBtn");
  rig.move(rig.middle("STOPBtn"));
  EXPECT_FALSE(rig.frame(0));
  EXPECT_NE(picture_of(rig, "STOPBtn"), rest);
}

TEST(Pointers, ReachTheirPlaceInAbout90Milliseconds) {
  WindowRig rig;
  rig.controls().MMSwitchX1.move(0);
  while (rig.frame(1)) {
  }
  const QImage rest = picture_of(rig, "MMSwitchX1");
  rig.controls().MMSwitchX1.move(2);
  rig.frame(0);
  rig.frame(0.045);
  const QImage way = picture_of(rig, "MMSwitchX1");
  rig.frame(0.1);
  const QImage end = picture_of(rig, "MMSwitchX1");
  EXPECT_NE(way, end);
  EXPECT_NE(way, rest);
  rig.frame(1);
  EXPECT_EQ(picture_of(rig, "MMSwitchX1"), end);
}

// A desktop whose style moves nothing, as it is set where motion is to be reduced.
class StillStyle : public QProxyStyle {
 public:
  int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                QStyleHintReturn* answer) const override {
    return hint == SH_Widget_Animation_Duration ? 0 : QProxyStyle::styleHint(hint, option, widget, answer);
  }
};

TEST(ReducedMotion, IsReadFromTheDesktopsStyle) {
  {
    const WindowRig rig;
    EXPECT_FALSE(rig.window->reduced_motion());
  }
  const QString usual = QApplication::style()->objectName();
  QApplication::setStyle(new StillStyle);
  {
    const WindowRig rig;
    EXPECT_TRUE(rig.window->reduced_motion());
  }
  QApplication::setStyle(usual);
}

TEST(Pointers, JumpWithReducedMotion) {
  WindowRig rig;
  rig.window->set_reduced_motion(true);
  rig.controls().Bypass.move(0);
  EXPECT_FALSE(rig.frame(0));
  const QImage end = picture_of(rig, "Bypass");
  rig.frame(1);
  EXPECT_EQ(picture_of(rig, "Bypass"), end);
}

}  // namespace
}  // namespace tandem::test
