// Files that hover over the window and are dropped on it: what is shown, what is accepted, and where the list goes.

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <filesystem>

#include "widgets/items/song_list_item.h"
#include "widgets/window/dropped_names.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

class Drop : public testing::Test {
 protected:
  SongListItem& list() { return static_cast<SongListItem&>(rig.item("PlayList")); }
  // True if the window takes it.
  bool hover(const QList<QUrl>& urls, Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction,
             Qt::DropAction* chosen = nullptr) {
    data.setUrls(urls);
    QDragEnterEvent enter({300, 200}, offered, &data, Qt::LeftButton, {});
    QCoreApplication::sendEvent(rig.window.get(), &enter);
    if (chosen != nullptr) *chosen = enter.dropAction();
    return enter.isAccepted();
  }
  void leave() {
    QDragLeaveEvent left;
    QCoreApplication::sendEvent(rig.window.get(), &left);
  }
  QImage picture() { return rig.window->grab().toImage(); }

  WindowRig rig;
  QMimeData data;
};

TEST_F(Drop, OnlyWhatHasAPathHereIsTaken) {
  EXPECT_FALSE(hover({QUrl("https://example.org/song.mp3")}));
  EXPECT_TRUE(hover({QUrl("https://example.org/song.mp3"), QUrl("file:///music/a.mp3")}));
}

TEST_F(Drop, ASourceThatOffersToMoveItsFilesKeepsThem) {
  Qt::DropAction chosen = Qt::IgnoreAction;
  EXPECT_TRUE(hover({QUrl("file:///music/a.mp3")}, Qt::CopyAction | Qt::MoveAction, &chosen));
  EXPECT_EQ(chosen, Qt::CopyAction);
  EXPECT_FALSE(hover({QUrl("file:///music/a.mp3")}, Qt::MoveAction));
}

TEST_F(Drop, HoveringFilesShowAFrameUntilTheyLeave) {
  rig.add_songs(2);
  for (const bool list_shown : {true, false}) {
    if (!list_shown) rig.show_equalizer();
    const QImage bare = picture();
    ASSERT_TRUE(hover({QUrl("file:///music/a.mp3")}));
    EXPECT_NE(picture(), bare);
    leave();
    EXPECT_EQ(picture(), bare);
  }
}

TEST_F(Drop, SaysHowManyThereAre) {
  EXPECT_EQ(names_in_words({"/a.mp3", "/b.WAV", "/c.mp3"}).toStdString(), "3 songs");
  EXPECT_EQ(names_in_words({"/evening.m3l"}).toStdString(), "1 playlist");
  EXPECT_EQ(names_in_words({"/a.mp3", "/b.m3l", "/c.m3l"}).toStdString(), "1 song, 2 playlists");
  EXPECT_EQ(names_in_words({"/a.mp3", "/music"}).toStdString(), "1 song, 1 folder");
  EXPECT_EQ(names_in_words({"/music", "/b.m3l", "/cover.jpg"}).toStdString(), "1 playlist, 2 folders or files");
  EXPECT_EQ(names_in_words({"/music"}).toStdString(), "1 folder");
  EXPECT_EQ(names_in_words({"/my.music/", "/b.side/Evening"}).toStdString(), "2 folders or files");
  EXPECT_EQ(names_in_words({"/b.side/Evening/", "/Night"}).toStdString(), "2 folders");
  EXPECT_EQ(names_in_words({"/cover.jpg"}).toStdString(), "1 folder or file");
  EXPECT_EQ(names_in_words({"/"}).toStdString(), "1 folder");
}

TEST_F(Drop, TheHoverLightGoesOutWithTheDrop) {
  while (rig.frame(1)) {
  }
  const QImage bare = picture();
  rig.move(rig.middle("SongLabel"));
  while (rig.frame(1)) {
  }
  ASSERT_NE(picture(), bare) << "the display's light is on";
  rig.drop({"/music/not there.txt"});
  while (rig.frame(1)) {
  }
  rig.controls().PlayList.Clear();
  EXPECT_EQ(picture(), bare);
}

TEST_F(Drop, TheListScrollsToTheFirstSongThatWasAdded) {
  rig.add_songs(25);
  rig.painted();
  rig.wheel("PlayList", 20);
  ASSERT_EQ(list().top(), 0);
  for (int i = 26; i <= 40; ++i) std::filesystem::copy_file(rig.song(1), rig.song(i));
  std::vector<std::string> more;
  for (int i = 26; i <= 40; ++i) more.push_back(rig.song(i));
  rig.drop(more);
  rig.painted();
  EXPECT_EQ(list().top(), 25);
}

TEST_F(Drop, AListThatReplacesAShorterOneIsShownFromItsBegin) {
  rig.add_songs(25);
  rig.painted();
  ListBox& lines = rig.controls().PlayList;
  lines.Clear();
  for (int i = 0; i < 60; ++i) lines.AddItem("line");
  rig.painted();
  EXPECT_EQ(list().top(), 0);
}

TEST_F(Drop, AMovedSongDoesNotScrollTheList) {
  rig.add_songs(25);
  rig.painted();
  rig.wheel("PlayList", 20);
  rig.controls().PlayList.user_select(3);
  rig.controls().DownList.click.raise();
  rig.painted();
  EXPECT_EQ(list().top(), 0);
}

}  // namespace
}  // namespace tandem::test
