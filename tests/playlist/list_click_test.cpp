#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "fakes/panel_test.h"

namespace tandem {
namespace {

using test::PanelTest;
using testing::ElementsAre;

struct ListClicks : PanelTest {
  ListClicks() { panel.add_songs(3); }
  // A click while this title is shown; what it is then.
  std::string clicked(const std::string& title) {
    controls.SongLabel.Caption = title;
    panel.select(0);
    return controls.SongLabel.Caption.get();
  }
};

TEST_F(ListClicks, TheLineIsRemembered) {
  panel.select(2);
  EXPECT_EQ(state.SelectedEntry, 2);
  EXPECT_EQ(state.LoopIndex, 12);  // the last separator in "03 - /music/c.mp3"
}

TEST_F(ListClicks, ATitleOfFourteenCharactersIsPaddedAndScrolls) {
  EXPECT_EQ(clicked("1234567890.MP3"), "1234567890.MP3" + std::string(14, ' '));
  EXPECT_TRUE(controls.SongLabel.Scrolling);
}

TEST_F(ListClicks, ATitleOfThirteenDoesNotScroll) {
  controls.SongLabel.Scrolling = true;
  EXPECT_EQ(clicked("123456789.MP3"), "123456789.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(ListClicks, ATitleWithBlanksInFrontStays) {
  controls.SongLabel.Scrolling = false;
  EXPECT_EQ(clicked("              1234567890.MP3"), "              1234567890.MP3");
  EXPECT_FALSE(controls.SongLabel.Scrolling);
}

TEST_F(ListClicks, EveryFurtherClickPadsALongTitleAgain) {
  clicked("1234567890.MP3");
  panel.select(1);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "1234567890.MP3" + std::string(28, ' '));
}

TEST_F(ListClicks, TheTitleIsNotThatOfTheSelectedLine) {
  controls.SongLabel.Caption = "A.MP3";
  panel.select(2);
  EXPECT_EQ(controls.SongLabel.Caption.get(), "A.MP3");
}

TEST_F(ListClicks, AnOverlongLineEndsTheHandlerSilently) {
  controls.PlayList.AddItem("04 - /" + std::string(40000, 'x') + "/y");
  panel.select(3);
  EXPECT_THAT(panel.silent_errors, ElementsAre(RuntimeErrorKind::Overflow));
  EXPECT_EQ(state.SelectedEntry, 3);
}

TEST_F(ListClicks, ListAndEqualizerShareOneArea) {
  const auto list_is_shown = [&] {
    for (const Control* control : {static_cast<Control*>(&controls.PlayList), static_cast<Control*>(&controls.LoadList),
                                   static_cast<Control*>(&controls.SaveList), static_cast<Control*>(&controls.UpList),
                                   static_cast<Control*>(&controls.DownList)})
      if (!control->Visible) return false;
    return true;
  };
  EXPECT_TRUE(list_is_shown());
  controls.ShowPlayList.click.raise();
  EXPECT_FALSE(list_is_shown());
  EXPECT_FALSE(controls.DownList.Visible);
  EXPECT_TRUE(controls.MMPanelX1[0].Visible);
  EXPECT_EQ(controls.ShowPlayList.BackColor, 0xFF0000);
  controls.ShowPlayList.click.raise();
  EXPECT_TRUE(list_is_shown());
  EXPECT_FALSE(controls.MMPanelX1[0].Visible);
  EXPECT_EQ(controls.ShowPlayList.BackColor, 0xFFFF00);
}

TEST_F(ListClicks, AnyColourButBlueHidesTheList) {
  controls.ShowPlayList.BackColor = clRed;
  controls.ShowPlayList.click.raise();
  EXPECT_FALSE(controls.PlayList.Visible);
  EXPECT_EQ(controls.ShowPlayList.BackColor, 0xFF0000);
}

}  // namespace
}  // namespace tandem
