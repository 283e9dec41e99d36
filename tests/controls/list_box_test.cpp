#include "controls/kinds/list_box.h"

#include <gtest/gtest.h>

#include <string>

#include "base/runtime_error.h"

namespace tandem {
namespace {

struct FourLines : testing::Test {
  ListBox list;
  FourLines() {
    for (const char* line : {"a", "b", "c", "d"}) list.AddItem(line);
  }
};

TEST_F(FourLines, ALineThatDoesNotExistReadsEmpty) {
  EXPECT_EQ(list.List(0), "a");
  EXPECT_EQ(list.List(4), "");
  EXPECT_EQ(list.List(-1), "");
}

TEST_F(FourLines, TheSelectionFollowsItsLine) {
  list.put_ListIndex(2);
  list.RemoveItem(0);
  EXPECT_EQ(list.ListIndex(), 1);
  list.RemoveItem(2);
  EXPECT_EQ(list.ListIndex(), 1);
}

TEST_F(FourLines, RemovingTheSelectedLineOrAllSelectsNone) {
  list.put_ListIndex(2);
  list.RemoveItem(2);
  EXPECT_EQ(list.ListIndex(), -1);
  list.put_ListIndex(0);
  list.Clear();
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(FourLines, AnIndexOutsideIsARangeError) {
  for (const std::int32_t index : {-2, 4}) {
    EXPECT_THROW(list.put_ListIndex(index), RuntimeError);
    EXPECT_THROW(list.RemoveItem(index), RuntimeError);
    EXPECT_THROW(list.put_List(index, "x"), RuntimeError);
    EXPECT_THROW(list.put_Selected(index, true), RuntimeError);
  }
  list.put_ListIndex(-1);
  EXPECT_THROW(list.RemoveItem(-1), RuntimeError);
}

TEST_F(FourLines, SelectingFromCodeIsNoClick) {
  int clicks = 0;
  list.click.connect([&] { ++clicks; });
  list.put_ListIndex(1);
  list.put_Selected(2, true);
  EXPECT_EQ(clicks, 0);
  EXPECT_TRUE(list.Selected(2));
  EXPECT_FALSE(list.Selected(1));
}

TEST_F(FourLines, UnselectingAnotherLineChangesNothing) {
  list.put_ListIndex(1);
  list.put_Selected(3, false);
  EXPECT_EQ(list.ListIndex(), 1);
  list.put_Selected(1, false);
  EXPECT_EQ(list.ListIndex(), -1);
}

TEST_F(FourLines, ADoubleClickIsAClickFirst) {
  std::string events;
  list.click.connect([&] { events += "click "; });
  list.double_click.connect([&] { events += "double"; });
  list.user_double_click(3);
  EXPECT_EQ(events, "click double");
  EXPECT_EQ(list.ListIndex(), 3);
}

struct Presses : FourLines {
  Presses() {
    list.click.connect([this] { events += "click" + std::to_string(list.ListIndex()) + " "; });
    list.double_click.connect([this] { events += "double "; });
  }
  std::string events;
};

TEST_F(Presses, TheSecondOfADoubleClickIsNoSecondClick) {
  list.user_select(3);
  list.user_second_press(3);
  EXPECT_EQ(events, "click3 double ");
}

TEST_F(Presses, TheSecondOnAnotherLineIsAClickThere) {
  list.user_select(3);
  list.user_second_press(2);
  EXPECT_EQ(events, "click3 click2 ");
}

TEST_F(Presses, TheSecondCountsThoughCodeHasSelectedAnotherLineMeanwhile) {
  list.user_select(3);
  list.put_ListIndex(1);
  list.user_second_press(3);
  EXPECT_EQ(events, "click3 double ");
}

TEST_F(Presses, OnceLinesHaveMovedTheSecondIsAClick) {
  list.user_select(1);
  list.RemoveItem(0);
  list.user_second_press(1);
  EXPECT_EQ(events, "click1 click1 ");
  list.Clear();
  list.AddItem("new");
  list.AddItem("new");
  list.user_second_press(1);
  EXPECT_EQ(events, "click1 click1 click1 ");
}

}  // namespace
}  // namespace tandem
