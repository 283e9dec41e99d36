// The window's three sizes, what changes them, and where the window stands.

#include <gtest/gtest.h>

#include <QEvent>
#include <QScreen>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

const QSize kFull(607, 258);
const QSize kSmall(262, 165);
const QSize kWithBoard(607, 426);

TEST(WindowSize, IsExactInAllThreeStates) {
  WindowRig rig;
  EXPECT_EQ(rig.window->size(), kFull);
  rig.key(Qt::Key_F3);
  EXPECT_EQ(rig.window->size(), kWithBoard);
  rig.key(Qt::Key_F3);
  EXPECT_EQ(rig.window->size(), kFull);
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(rig.window->size(), kSmall);
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(rig.window->size(), kFull);
}

// The panel puts its height and its width one after the other.
TEST(WindowSize, HasNoOtherSizeOnTheWay) {
  WindowRig rig;
  class Sizes : public QObject {
   public:
    std::vector<QSize> seen;

   protected:
    bool eventFilter(QObject* window, QEvent* event) override {
      if (event->type() == QEvent::Resize) seen.push_back(static_cast<QWidget*>(window)->size());
      return false;
    }
  } sizes;
  rig.window->installEventFilter(&sizes);
  rig.make_small();
  rig.key(Qt::Key_M, Qt::ControlModifier);
  EXPECT_EQ(sizes.seen, (std::vector<QSize>{kSmall, kFull}));
}

class Toggles : public testing::TestWithParam<const char*> {};

TEST_P(Toggles, AClickChangesTheSize) {
  WindowRig rig;
  rig.click(GetParam());
  EXPECT_EQ(rig.window->size(), kSmall);
  rig.click(GetParam());
  EXPECT_EQ(rig.window->size(), kFull);
}

INSTANTIATE_TEST_SUITE_P(Display, Toggles,
                         testing::Values("MMLEDLABELX1", "SongLabel", "MMLEDLABELX2", "LblPosition", "LblTempTot",
                                         "MMLEDLABELX3", "ClockLabel", "MeterVol"));

TEST(WindowSize, TheDisplaysFreeAreaChangesIt) {
  WindowRig rig;
  rig.click(rig.in("MMPanelX1(1)", 130, 60));
  EXPECT_EQ(rig.window->size(), kSmall);
}

TEST(WindowSize, TheReadOutAndTheRightButtonDoNot) {
  WindowRig rig;
  rig.click("INDIC");
  rig.click(rig.middle("SongLabel"), Qt::RightButton);
  EXPECT_EQ(rig.window->size(), kFull);
}

TEST(WindowSize, AClickThatIsLetGoElsewhereDoesNothing) {
  WindowRig rig;
  rig.press(rig.middle("SongLabel"));
  rig.release({400, 60});
  EXPECT_EQ(rig.window->size(), kFull);
}

TEST(WindowSize, ADoubleClickOnTheHeadChangesIt) {
  WindowRig rig;
  rig.double_click({300, 7});
  EXPECT_EQ(rig.window->size(), kSmall);
}

TEST(WindowSize, TheEqualizersFreeAreaChangesIt) {
  WindowRig rig;
  rig.show_equalizer();
  rig.click(QPoint(300, 122));
  EXPECT_EQ(rig.window->size(), kSmall);
}

TEST(WindowSize, FrequencyAndGainRowsSwallowClicks) {
  WindowRig rig;
  rig.show_equalizer();
  for (int band = 0; band < 15; ++band) {
    const std::string index = "(" + std::to_string(band) + ")";
    rig.click("Label2" + index);
    rig.click("dbLabel0" + index);
    EXPECT_EQ(rig.window->size(), kFull) << band;
    EXPECT_EQ(rig.controls().sl0[static_cast<std::size_t>(band)].value(), 0) << band;
  }
}

TEST(WindowSize, MinimiseAndCloseHangOnTheRightEdge) {
  WindowRig rig;
  EXPECT_EQ(rig.item("Minimise").geometry(), QRect(571, 1, 16, 13));
  rig.make_small();
  EXPECT_EQ(rig.item("Minimise").geometry(), QRect(226, 1, 16, 13));
  EXPECT_EQ(rig.item("Close").geometry(), QRect(243, 1, 16, 13));
}

TEST(WindowSize, FullSizeIsCentredAndSmallKeepsItsCorner) {
  WindowRig rig;
  rig.window->move(30, 40);
  rig.make_small();
  EXPECT_EQ(rig.window->pos(), QPoint(30, 40));
  rig.key(Qt::Key_M, Qt::ControlModifier);
  const QSize screen = rig.window->screen()->size();
  EXPECT_EQ(rig.window->pos(), QPoint((screen.width() - 607) / 2, (screen.height() - 258) / 2));
}

TEST(WindowPlace, FollowsThePointerInBothDirections) {
  WindowRig rig;
  rig.window->move(10, 10);
  rig.press({300, 7});
  rig.move({302, 8});  // too little to be meant
  EXPECT_EQ(rig.window->pos(), QPoint(10, 10));
  rig.move({340, 57});
  EXPECT_EQ(rig.window->pos(), QPoint(50, 60));
  rig.release({300, 7});
  EXPECT_EQ(rig.controls().Painel.Left, 50 * 15);
  EXPECT_EQ(rig.controls().Painel.Top, 60 * 15);
  rig.move({400, 100});
  EXPECT_EQ(rig.window->pos(), QPoint(50, 60));
}

TEST(WindowPlace, TheBareFaceplateDragsTooAndControlsDoNot) {
  WindowRig rig;
  rig.window->move(10, 10);
  rig.press({260, 150});
  rig.move({280, 170});
  rig.release({260, 150});
  EXPECT_EQ(rig.window->pos(), QPoint(30, 30));
  rig.press(rig.middle("PLAY"));
  rig.move({200, 200});
  rig.release({200, 200});
  EXPECT_EQ(rig.window->pos(), QPoint(30, 30));
}

TEST(WindowButtons, CloseAndItsKeysCloseTheWindow) {
  WindowRig rig;
  rig.click("Close");
  EXPECT_EQ(rig.closes, 1);
  WindowRig second;
  second.key(Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(second.closes, 1);
  WindowRig third;
  third.key(Qt::Key_F4, Qt::AltModifier);
  EXPECT_EQ(third.closes, 1);
}

TEST(WindowButtons, MinimiseIconifiesTheWindow) {
  WindowRig rig;
  rig.click("Minimise");
  EXPECT_TRUE(rig.window->isMinimized());
}

}  // namespace
}  // namespace tandem::test
