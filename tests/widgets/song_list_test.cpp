// The song list: rows, scrolling, thumb, selection, removal; and what is dropped on the window.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QPicture>
#include <QToolTip>
#include <filesystem>
#include <fstream>

#include "paint/controls/song_list.h"
#include "paint/strokes/ink.h"
#include "widgets/items/song_list_item.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

class SongList : public testing::Test {
 protected:
  ListBox& list() { return rig.controls().PlayList; }
  int top() const { return static_cast<SongListItem&>(rig.item("PlayList")).top(); }
  QPoint row(int index) const {
    return list_row_box(control_box("PlayList").box(), index, 0).center().toPoint() - QPoint(60, 0);
  }
  QRectF thumb() { return list_thumb_box(control_box("PlayList").box(), top(), list().ListCount()); }
  WindowRig rig;
};

TEST_F(SongList, AClickSelectsARow) {
  rig.add_songs(3);
  rig.click(row(1));
  EXPECT_EQ(list().ListIndex(), 1);
  rig.click(row(5));  // below the last song
  EXPECT_EQ(list().ListIndex(), 1);
}

TEST_F(SongList, ADoubleClickRemovesTheRow) {
  rig.add_songs(3);
  const std::string third = list().List(2);
  rig.double_click(row(1));
  ASSERT_EQ(list().ListCount(), 2);
  EXPECT_NE(list().List(1).find("song 3.wav"), std::string::npos) << third;
}

TEST_F(SongList, DeleteRemovesTheSelectedRow) {
  rig.add_songs(3);
  rig.click(row(0));
  rig.key(Qt::Key_Delete);
  ASSERT_EQ(list().ListCount(), 2);
  EXPECT_NE(list().List(0).find("song 2.wav"), std::string::npos);
}

TEST_F(SongList, KeysMoveTheSelectionAndScroll) {
  rig.add_songs(25);
  rig.focus("PlayList");
  rig.key(Qt::Key_Home);
  EXPECT_EQ(list().ListIndex(), 0);
  for (int i = 0; i < 12; ++i) rig.key(Qt::Key_Down);
  EXPECT_EQ(list().ListIndex(), 12);
  EXPECT_EQ(top(), 3);
  rig.key(Qt::Key_End);
  EXPECT_EQ(list().ListIndex(), 24);
  EXPECT_EQ(top(), 15);
  rig.key(Qt::Key_PageUp);
  EXPECT_EQ(list().ListIndex(), 14);
  EXPECT_EQ(top(), 14);
  rig.key(Qt::Key_Up);
  EXPECT_EQ(list().ListIndex(), 13);
  rig.key(Qt::Key_Home);
  EXPECT_EQ(top(), 0);
}

// A removed song leaves no line selected; the keys go on from its place.
TEST_F(SongList, SongsAreRemovedOneAfterAnotherByKeys) {
  rig.add_songs(6);
  rig.click(row(2));
  for (const char* next : {"song 4.wav", "song 5.wav"}) {
    rig.key(Qt::Key_Delete);
    EXPECT_EQ(list().ListIndex(), -1);
    rig.key(Qt::Key_Down);
    EXPECT_EQ(list().ListIndex(), 2);
    EXPECT_TRUE(list().List(2).ends_with(next)) << list().List(2);
  }
  rig.key(Qt::Key_Delete);
  rig.key(Qt::Key_Up);
  EXPECT_EQ(list().ListIndex(), 1);
  rig.key(Qt::Key_End);
  rig.key(Qt::Key_Delete);
  rig.key(Qt::Key_Down);
  EXPECT_EQ(list().ListIndex(), 1) << "there is none below";
  rig.key(Qt::Key_Delete);
  EXPECT_EQ(list().ListCount(), 1);
}

TEST_F(SongList, PagesGoOnFromARemovedSongToo) {
  rig.add_songs(30);
  rig.focus("PlayList");
  const auto row_after = [this](Qt::Key key) {
    rig.key(Qt::Key_Home);
    for (int i = 0; i < 12; ++i) rig.key(Qt::Key_Down);
    rig.key(Qt::Key_Delete);
    rig.key(key);
    return list().ListIndex();
  };
  EXPECT_EQ(row_after(Qt::Key_PageDown), 21);
  EXPECT_EQ(row_after(Qt::Key_PageUp), 2);
  list().put_ListIndex(-1);
  list().Clear();
  for (const char* line : {"01 - /a/b.wav", "02 - /a/c.wav"}) list().AddItem(line);
  rig.key(Qt::Key_Down);
  EXPECT_EQ(list().ListIndex(), 0) << "another list";
}

TEST_F(SongList, TheWheelScrollsWithoutSelecting) {
  rig.add_songs(25);
  rig.click(row(0));
  rig.key(Qt::Key_Home);
  rig.wheel("PlayList", -1);
  EXPECT_EQ(top(), 3);
  EXPECT_EQ(list().ListIndex(), 0);
  rig.wheel("PlayList", -20);
  EXPECT_EQ(top(), 15);
  rig.wheel("PlayList", 20);
  EXPECT_EQ(top(), 0);
  rig.wheel("PlayList", -1);
  rig.click(row(2));
  EXPECT_EQ(list().ListIndex(), 5);
}

TEST_F(SongList, TheThumbIsDragged) {
  rig.add_songs(40);
  rig.focus("PlayList");
  rig.key(Qt::Key_Home);
  const QPoint from = thumb().center().toPoint();
  rig.press(from);
  rig.move({from.x() + 20, 400});
  EXPECT_EQ(top(), 30);
  rig.move({from.x(), from.y() + 2});
  EXPECT_LE(top(), 1);
  rig.release(from);
  rig.move({from.x(), 250});
  EXPECT_LE(top(), 1);
  EXPECT_EQ(list().ListIndex(), 0);
}

TEST_F(SongList, TheTrackPages) {
  rig.add_songs(40);
  rig.focus("PlayList");
  rig.key(Qt::Key_Home);
  const int x = static_cast<int>(thumb().center().x());
  rig.click(QPoint(x, 250));
  EXPECT_EQ(top(), 10);
  rig.click(QPoint(x, 118));
  EXPECT_EQ(top(), 0);
}

TEST_F(SongList, ShowsTheLineThatThePanelSelects) {
  rig.add_songs(30);
  rig.focus("PlayList");
  rig.key(Qt::Key_Home);
  list().put_ListIndex(29);
  EXPECT_EQ(top(), 20);
  while (list().ListCount() > 12) list().RemoveItem(0);
  EXPECT_EQ(top(), 2);
}

TEST_F(SongList, MovesASongByItsKeys) {
  rig.add_songs(3);
  rig.click(row(2));
  rig.key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_NE(list().List(1).find("song 3.wav"), std::string::npos);
  rig.key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_NE(list().List(2).find("song 3.wav"), std::string::npos);
}

TEST_F(SongList, ARowsTipIsItsWholeText) {
  rig.add_songs(2);
  const QPoint at = row(1) - rig.item("PlayList").pos();
  QHelpEvent help(QEvent::ToolTip, at, rig.item("PlayList").mapToGlobal(at));
  QCoreApplication::sendEvent(&rig.item("PlayList"), &help);
  EXPECT_TRUE(QToolTip::text().contains(QString::fromStdString(list().List(1))));
}

class LongSongList : public SongList {
 protected:
  void add_long_names(int count) {
    for (int i = list().ListCount() + 1; i <= count; ++i) {
      const std::string number = (i < 10 ? "0" : "") + std::to_string(i);
      list().AddItem(number + " - /home/ana/Music/Glass Garden/Evenings at the lake (live)/" + std::string(120, 'n') +
                     number + ".mp3");
    }
  }
  // What drawing the list once asks of a painter, in bytes of a recording.
  int drawn() const {
    QPicture recording;
    QPainter painter(&recording);
    set_up(painter, 1);
    rig.item("PlayList").draw(painter);
    painter.end();
    return static_cast<int>(recording.size());
  }
  QRect list_and_its_margin() const { return rig.item("PlayList").painted_box(); }
};

TEST_F(LongSongList, DrawsTheLinesInViewAndNoOthers) {
  add_long_names(2);
  const int two = drawn();
  add_long_names(20);
  const int ten_of_twenty = drawn();
  EXPECT_GT(ten_of_twenty, 4 * two);
  add_long_names(200);
  EXPECT_EQ(drawn(), ten_of_twenty);
  add_long_names(5000);
  EXPECT_EQ(drawn(), ten_of_twenty);
}

TEST_F(LongSongList, PaintsItselfAndNothingElse) {
  add_long_names(200);
  const auto expect_list_only = [this](const char* after) {
    const QRegion painted = rig.painted();
    EXPECT_FALSE(painted.isEmpty()) << after;
    EXPECT_TRUE((painted - list_and_its_margin()).isEmpty()) << after;
  };
  rig.move(row(4));
  while (rig.frame(1)) {
  }
  rig.painted();
  rig.wheel("PlayList", -1);
  expect_list_only("a turn of the wheel");
  list().put_ListIndex(5);
  expect_list_only("a move of the selection");
  add_long_names(201);
  expect_list_only("another song");
}

class DroppedFiles : public SongList {
 protected:
  void touch(const std::string& name) const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::filesystem::copy_file(rig.song(1), path(name));
  }
  std::string path(const std::string& name) const { return rig.directory.file(name); }
  void SetUp() override { rig.add_songs(1); }
  std::vector<std::string> names() {
    std::vector<std::string> found;
    for (int i = 1; i < list().ListCount(); ++i) found.push_back(list().List(i).substr(list().List(i).rfind('/') + 1));
    return found;
  }
};

TEST_F(DroppedFiles, FilesComeInNaturalOrder) {
  for (const char* name : {"d/10.wav", "d/9.wav", "d/1 a.wav"}) touch(name);
  rig.drop({path("d/10.wav"), path("d/1 a.wav"), path("d/9.wav")});
  EXPECT_EQ(names(), (std::vector<std::string>{"1 a.wav", "9.wav", "10.wav"}));
}

TEST_F(DroppedFiles, AFolderGivesItsSongsAndThoseBelow) {
  for (const char* name : {"f/2.WAV", "f/10.wav", "f/notes.txt", "f/.hidden.wav", "f/cd/1.wav"}) touch(name);
  rig.drop({path("f")});
  EXPECT_EQ(names(), (std::vector<std::string>{"2.WAV", "10.wav", "1.wav"}));
}

TEST_F(DroppedFiles, NamesAreBytes) {
  const std::string name = "d/\xFFr\xC3\xA4nk #1 100%.wav";
  touch(name);
  rig.drop({path(name)});
  ASSERT_EQ(list().ListCount(), 2);
  EXPECT_NE(list().List(1).find(path(name)), std::string::npos);
}

TEST_F(DroppedFiles, AFolderWithoutSongsAddsNothing) {
  std::filesystem::create_directory(path("empty"));
  rig.drop({path("empty")});
  EXPECT_EQ(list().ListCount(), 1);
}

}  // namespace
}  // namespace tandem::test
