// The desktop's own file dialog, by a stand-in for its portal.

#include "platform/desktop/file_chooser_portal.h"

#include <QCoreApplication>
#include <QTimer>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>

#include "platform/bus_fixture.h"
#include "platform/desktop/qt_file_dialog.h"

namespace tandem {
namespace {

constexpr const char* kRequest = "/org/freedesktop/portal/desktop/request/1_7/t";

// Gives the prepared reply as soon as a dialog is requested.
class FakeChooser {
 public:
  struct Reply {
    unsigned response = 0;
    std::vector<std::string> urls = {};
    bool answers = true;  // else it leaves its dialog open
  };
  FakeChooser(const BusTestDaemon& bus, Reply reply)
      : reply_(std::move(reply)),
        service_(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                 [this](sd_bus_message* call) { return answer(call); }) {}

  std::string asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

 private:
  static bool wants_several(sd_bus_message* call) {
    int several = 0;
    sd_bus_message_enter_container(call, 'a', "{sv}");
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
      const char* name = "";
      sd_bus_message_read_basic(call, 's', &name);
      if (name == std::string("multiple")) {
        sd_bus_message_read(call, "v", "b", &several);
      } else {
        sd_bus_message_skip(call, "v");
      }
      sd_bus_message_exit_container(call);
    }
    return several != 0;
  }
  int answer(sd_bus_message* call) {
    if (sd_bus_message_get_interface(call) != std::string("org.freedesktop.portal.FileChooser")) return -EINVAL;
    const char* window = nullptr;
    const char* title = nullptr;
    sd_bus_message_read(call, "ss", &window, &title);
    {
      const std::lock_guard lock(mutex_);
      asked_ = std::string(sd_bus_message_get_member(call)) + ": " + title + (wants_several(call) ? ", several" : "");
    }
    const int sent = sd_bus_reply_method_return(call, "o", kRequest);
    if (!reply_.answers) return sent;
    service_.run([reply = reply_](sd_bus* bus) {
      sd_bus_message* signal = nullptr;
      sd_bus_message_new_signal(bus, &signal, kRequest, "org.freedesktop.portal.Request", "Response");
      sd_bus_message_append(signal, "u", reply.response);
      sd_bus_message_open_container(signal, 'a', "{sv}");
      sd_bus_message_append(signal, "{sv}", "writable", "b", 1);
      sd_bus_message_open_container(signal, 'e', "sv");
      sd_bus_message_append(signal, "s", "uris");
      sd_bus_message_open_container(signal, 'v', "as");
      sd_bus_message_open_container(signal, 'a', "s");
      for (const std::string& url : reply.urls) sd_bus_message_append(signal, "s", url.c_str());
      for (int container = 0; container < 4; ++container) sd_bus_message_close_container(signal);
      sd_bus_send(bus, signal, nullptr);
      sd_bus_message_unref(signal);
    });
    return sent;
  }

  Reply reply_;
  std::mutex mutex_;
  std::string asked_;
  BusTestService service_;
};

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
