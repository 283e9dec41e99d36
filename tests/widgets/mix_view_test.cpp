// What the window shows and says of an overlap, from a view of it.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>
#include <QImage>
#include <utility>

#include "widgets/accessibility/accessible_events.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

int descriptions = 0;

void count_descriptions(QAccessibleEvent* event) { descriptions += event->type() == QAccessible::DescriptionChanged; }

class ShownMix : public testing::Test {
 protected:
  ShownMix() {
    rig.add_songs(3);
    rig.controls().Slider1.put_maximum(200000);
  }
  static MixView one_song() {
    MixView view;
    view.counted = {0, "a.mp3", 60000, 200000};
    view.mix_at = 196500;
    view.lengths = {200000, 180000, 0};
    view.left = 320000;
    view.songs_left = 2;
    return view;
  }
  static MixView two_songs() {
    MixView view = one_song();
    view.counted->position = 198000;
    view.other = {1, "b.mp3", 1500, 180000};
    return view;
  }
  std::string said(const std::string& name) {
    return QAccessible::queryAccessibleInterface(&rig.item(name))->text(QAccessible::Description).toStdString();
  }
  std::string said_of_line(int line) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(&rig.item("PlayList"));
    return list->child(line)->text(QAccessible::Description).toStdString();
  }
  // Frames that are still wanted after what was begun before has come to rest.
  bool moves_for_ever() {
    bool moving = true;
    for (int i = 0; i < 120; ++i) moving = rig.frame(1.0 / 60);
    return moving;
  }

  void frames(int count) {
    for (int i = 0; i < count; ++i) rig.frame(1.0 / 60);
  }
  QImage slider(const MixView& view) {
    rig.window->show_mix(view);
    return rig.window->grab(rig.item("Slider1").geometry().adjusted(0, -8, 0, 8)).toImage();
  }
  // Of the lamp of the longest lead with its halo.
  int lamp_light() {
    const QRect about = rig.item("AMLed3").geometry().adjusted(-2, -2, 2, 2);
    const QImage picture = rig.window->grab(about).toImage();
    int sum = 0;
    for (int y = 0; y < picture.height(); ++y)
      for (int x = 0; x < picture.width(); ++x) sum += qRed(picture.pixel(x, y));
    return sum;
  }

  WindowRig rig;
};

TEST_F(ShownMix, WithOneSongThePositionSaysWhereTheNextBegins) {
  rig.window->show_mix(one_song());
  EXPECT_NE(said("Slider1").find("next song at 3:16"), std::string::npos) << said("Slider1");
  EXPECT_EQ(said_of_line(0), "playing, 3:20");
  EXPECT_EQ(said_of_line(1), "3:00");
  EXPECT_EQ(said_of_line(2), "");
  EXPECT_FALSE(moves_for_ever());
}

TEST_F(ShownMix, TheTotalTimesTipSaysWhatIsLeft) {
  rig.window->show_mix(one_song());
  EXPECT_EQ(rig.item("LblTempTot").toolTip().toStdString(), "Left in the list: 5:20, 2 songs");
  rig.window->show_mix({});
  EXPECT_EQ(rig.item("LblTempTot").toolTip().toStdString(), "");
}

TEST_F(ShownMix, WithTwoSongsThePositionSaysWhichEndsAndWhichBegan) {
  rig.window->show_mix(two_songs());
  EXPECT_EQ(said("Slider1"), "Mixing: a.mp3 ends in 2 s, b.mp3");
  EXPECT_EQ(said_of_line(0), "playing, 3:20");
  EXPECT_EQ(said_of_line(1), "overlapping, 3:00");
}

TEST_F(ShownMix, ASkippedSongFadesOutWithoutASecondThatItDoesNotReach) {
  MixView skipped = two_songs();
  skipped.counted->position = 60000;
  skipped.skipped = true;
  rig.window->show_mix(skipped);
  EXPECT_EQ(said("Slider1"), "Mixing: a.mp3 fades out, b.mp3");
}

TEST_F(ShownMix, ASkippedSongHasNoMarkAtItsEndBecauseItFadesWhereItStands) {
  MixView unmarked = two_songs();
  unmarked.mix_at.reset();
  MixView skipped = two_songs();
  skipped.skipped = true;
  const QImage without = slider(unmarked);
  EXPECT_EQ(slider(skipped), without);
  EXPECT_NE(slider(two_songs()), without);
}

TEST_F(ShownMix, AScreenReaderLearnsThatAnOverlapBeginsAndEnds) {
  const AccessibilityHandler before = set_accessibility_handler(count_descriptions);
  rig.window->show_mix(one_song());
  descriptions = 0;
  rig.window->show_mix(two_songs());
  EXPECT_EQ(std::exchange(descriptions, 0), 1);
  MixView later = two_songs();
  later.counted->position += 1000;
  rig.window->show_mix(later);
  EXPECT_EQ(std::exchange(descriptions, 0), 0) << "not at every second of it";
  rig.window->show_mix(one_song());
  EXPECT_EQ(descriptions, 1);
  set_accessibility_handler(before);
}

TEST_F(ShownMix, TheLitLeadLampBreathesUntilTheOverlapEndsOrIsPaused) {
  rig.window->show_mix(two_songs());
  EXPECT_TRUE(moves_for_ever());
  MixView paused = two_songs();
  paused.paused = true;
  rig.window->show_mix(paused);
  EXPECT_FALSE(moves_for_ever()) << "a mix that is paused over night costs no pictures";
  rig.window->show_mix(two_songs());
  EXPECT_TRUE(moves_for_ever());
  rig.window->show_mix(one_song());
  EXPECT_FALSE(moves_for_ever());
}

TEST_F(ShownMix, TheLeadLampBreathesOutWhenTheOverlapEnds) {
  rig.click("AMLed3");
  frames(30);
  const int calm = lamp_light();
  rig.window->show_mix(two_songs());
  frames(1 + 25);  // the first one begins
  const int bright = lamp_light();
  ASSERT_GT(bright, calm + calm / 20);
  rig.window->show_mix(one_song());
  int before = bright;
  for (int i = 0; i < 35; ++i) {
    const int now = lamp_light();
    EXPECT_LE(now, before) << "it does not brighten again, " << i;
    EXPECT_GT(now, before - (bright - calm) / 4) << "nor break off, " << i;
    before = now;
    frames(1);
  }
  EXPECT_EQ(lamp_light(), calm);
  EXPECT_FALSE(rig.frame(1.0 / 60)) << "and rests";
}

TEST_F(ShownMix, AfterAPauseTheLeadLampGoesOnAsBrightAsItStood) {
  rig.click("AMLed3");
  rig.window->show_mix(two_songs());
  frames(20);
  MixView paused = two_songs();
  paused.paused = true;
  rig.window->show_mix(paused);
  const int held = lamp_light();
  rig.window->show_mix(two_songs());
  EXPECT_EQ(lamp_light(), held);
  frames(2);
  EXPECT_NE(lamp_light(), held);
}

TEST_F(ShownMix, APauseWithoutAMixPaintsNothing) {
  MixView paused = one_song();
  paused.paused = true;
  rig.window->show_mix(paused);
  rig.painted();
  rig.window->show_mix(paused);
  EXPECT_TRUE(rig.painted().isEmpty());
}

// An overlap lasts 3.5 seconds and a step of the incoming song's place is a sixth of a pixel.
TEST_F(ShownMix, ThePositionIsPaintedAgainOnlyWhereItsMarksHaveMoved) {
  rig.window->set_reduced_motion(true);  // no lamp breathes
  rig.window->show_mix(two_songs());
  frames(30);
  rig.painted();
  MixView later = two_songs();
  later.other->position += 100;
  rig.window->show_mix(later);
  EXPECT_TRUE(rig.painted().isEmpty());
  later.other->position += 20000;
  rig.window->show_mix(later);
  EXPECT_FALSE(rig.painted().isEmpty());
}

}  // namespace
}  // namespace tandem::test
