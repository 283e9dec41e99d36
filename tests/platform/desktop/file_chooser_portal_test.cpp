// The desktop's own file dialog, by a stand-in for its portal.

#include "platform/desktop/file_chooser_portal.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstdlib>
#include <memory>
#include <optional>
#include <thread>

#include "base/runtime_error.h"
#include "platform/desktop/bus_fixture.h"
#include "platform/desktop/fake_chooser.h"
#include "platform/desktop/qt_file_dialog.h"

namespace tandem {
namespace {

class FileChooser : public BusFixture {
 protected:
  using Paths = std::vector<std::string>;
  void SetUp() override {
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
    BusFixture::SetUp();
  }
  void TearDown() override {
    portal_.reset();
    BusFixture::TearDown();
    ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
  }
  void start(FakeChooser::Reply reply) {
    bus_.start();
    portal_ = std::make_unique<FakeChooser>(bus_, std::move(reply));
  }
  static std::optional<Paths> ask(bool save = false) {
    return FileChooserPortal::ask({save, !save, "Add songs", "/music", "Songs|*.mp3;*.wav"}, nullptr);
  }
  std::unique_ptr<FakeChooser> portal_;
};

TEST_F(FileChooser, BringsWhatWasChosenByteForByte) {
  start({.urls = {"file:///music/a%20b.mp3", "file:///music/caf%E9.wav"}});
  EXPECT_EQ(ask(), (Paths{"/music/a b.mp3", "/music/caf\xE9.wav"}));
  EXPECT_EQ(portal_->asked(), "OpenFile: Add songs, several");
}

// The panel takes one list; of several it would make a name that is none.
TEST_F(FileChooser, IsAskedForOneListAndForAnyNumberOfSongs) {
  start({.urls = {"file:///music/evening.m3l"}});
  QtFileDialog dialog;
  dialog.Filter = "Playlist|*.m3l";
  dialog.ShowOpen();
  EXPECT_EQ(portal_->asked(), "OpenFile: Open a list");
  EXPECT_EQ(dialog.FileName, "/music/evening.m3l");
  dialog.ShowSave();
  EXPECT_EQ(portal_->asked(), "SaveFile: Save the list");
  dialog.Filter = "Songs|*.mp3;*.wav";
  dialog.ShowOpen();
  EXPECT_EQ(portal_->asked(), "OpenFile: Add songs, several");
}

// Its results of a search may lie anywhere.
TEST_F(FileChooser, LosesNoSongsOfOtherFolders) {
  start({.urls = {"file:///a/1.mp3", "file:///b/2.mp3", "file:///a/3.mp3", "file:///c/4.mp3"}});
  QtFileDialog dialog;
  dialog.Filter = "Songs|*.mp3;*.wav";
  dialog.ShowOpen();
  EXPECT_EQ(dialog.FileName, std::string("/a\0003.mp3\0001.mp3", 14));
  EXPECT_EQ(dialog.take_others(), (Paths{"/b/2.mp3", "/c/4.mp3"}));
  EXPECT_EQ(dialog.take_others(), Paths());
}

// A screen reader's press is no input and reaches the key of lists all the same.
TEST_F(FileChooser, KeepsToWhatItWasAskedForWhileItIsOpen) {
  start({.answers = false});
  QtFileDialog dialog;
  dialog.Filter = "Songs|*.mp3;*.wav";
  QTimer::singleShot(0, qApp, [&] {
    EXPECT_TRUE(soon([&] { return !portal_->asked().empty(); }));
    dialog.Filter = "Playlist|*.m3l";
    EXPECT_THROW(dialog.ShowOpen(), RuntimeError);
    portal_->choose(0, {"file:///a/1.mp3", "file:///b/2.mp3"});
  });
  std::size_t fitted = 0;
  dialog.fit = [&](Paths paths) {
    fitted = paths.size();
    return paths;
  };
  dialog.prepare = [&](const std::string&) { return !dialog.asks_for_lists(); };
  dialog.ShowOpen();
  EXPECT_EQ(fitted, 2U);
  EXPECT_EQ(dialog.FileName, "/a/1.mp3");
  EXPECT_EQ(dialog.take_others(), Paths{"/b/2.mp3"});
}

TEST_F(FileChooser, AsksForANameToSave) {
  start({.urls = {"file:///music/evening.m3l"}});
  EXPECT_EQ(ask(true), (Paths{"/music/evening.m3l"}));
  EXPECT_EQ(portal_->asked(), "SaveFile: Add songs");
}

TEST_F(FileChooser, ThatIsCancelledBringsNothing) {
  start({.response = 1, .urls = {"file:///music/a.mp3"}});
  EXPECT_EQ(ask(), Paths());
}

TEST_F(FileChooser, IsNotShownWithoutABusOrAPortal) {
  EXPECT_EQ(ask(), std::nullopt);
  bus_.start();
  EXPECT_EQ(ask(), std::nullopt);
  EXPECT_FALSE(bus_.has_started_a_service());
}

TEST_F(FileChooser, IsNotShownByAPortalThatHasNone) {
  bus_.start();
  const BusTestService portal(bus_, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                              [](sd_bus_message*) { return -EINVAL; });
  EXPECT_EQ(ask(), std::nullopt);
}

TEST_F(FileChooser, EndsWithThePortalThatShowsIt) {
  start({.answers = false});
  std::thread end([this] {
    wait_until([this] { return !portal_->asked().empty(); });
    portal_.reset();
  });
  EXPECT_EQ(ask(), Paths());
  end.join();
}

// The portal has not answered the call when the program's loops are ended.
TEST_F(FileChooser, AsksNothingMoreOnceTheProgramEnds) {
  bus_.start();
  const BusTestService portal(bus_, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                              [](sd_bus_message*) { return 1; });
  std::optional<Paths> chosen;
  QTimer::singleShot(0, qApp, [&] {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    chosen = ask();
  });
  QCoreApplication::exec();
  EXPECT_EQ(chosen, Paths());
}

}  // namespace
}  // namespace tandem
