// The player between a system bus with rtkit and a session bus with a desktop portal; without a screen.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "app/player.h"
#include "controls/chosen_files.h"
#include "platform/desktop/fake_chooser.h"
#include "platform/desktop/fake_portal.h"
#include "platform/desktop/fake_realtime_kit.h"
#include "platform/desktop/refused_thread.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem {
namespace {

// A QApplication with the words it keeps.
struct Application {
  std::array<char, 7> name{"tandem"};
  char* word = name.data();
  int words = 1;
  QApplication application{words, &word};
};

class PlayerServices : public testing::Test {
 protected:
  void SetUp() override {
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    bus_.start();
    ::setenv("DBUS_SYSTEM_BUS_ADDRESS", bus_.address().c_str(), 1);
    ::setenv("DBUS_SESSION_BUS_ADDRESS", bus_.address().c_str(), 1);
    sound_.start();
    drop_right_to_schedule();
    rlimit limit{};
    getrlimit(RLIMIT_RTPRIO, &limit);
    limit.rlim_cur = 0;
    setrlimit(RLIMIT_RTPRIO, &limit);
  }
  std::string song(const std::string& name, double seconds = 1) const {
    std::filesystem::create_directories(std::filesystem::path(files_.file(name)).parent_path());
    const test::Bytes bytes = test::wav_file(test::tones(seconds, 440, 0.3), test::Encoding::kInt16);
    std::ofstream(files_.file(name), std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return files_.file(name);
  }
  static bool soon(const std::function<bool()>& holds) {
    return wait_until([&] {
      QCoreApplication::processEvents(QEventLoop::AllEvents);
      return holds();
    });
  }

  test::TempDirectory files_;
  OutputTestServer sound_;
  BusTestDaemon bus_;
};

TEST_F(PlayerServices, AreAskedForItsThreadsAndForTheDesktopsSwitch) {
  FakeRealtimeKit kit(bus_, {});
  FakePortal portal(bus_, {.animations = false});
  Player player;
  const Application application;
  player.show();
  EXPECT_TRUE(soon([&] { return player.window().reduced_motion(); }));
  player.program().controls.Painel.files_dropped.raise(dialog_results({song("song.wav", 10)}).front());
  player.program().controls.PLAY.click.raise();
  // The render thread and the two outputs.
  EXPECT_TRUE(soon([&] { return kit.requests().size() == 3; })) << kit.requests().size();
  for (const RealtimeRequest& request : kit.requests()) {
    EXPECT_EQ(request.method, "MakeThreadRealtime");
    EXPECT_TRUE(std::filesystem::exists("/proc/self/task/" + std::to_string(request.thread)));
  }
  portal.change_animations(true);
  EXPECT_TRUE(soon([&] { return !player.window().reduced_motion(); }));
  player.leave_desktop();
}

// The panel takes no click meanwhile, as under a dialog of its own. What a screen reader presses is no input: it is
// refused by the dialog that is open.
TEST_F(PlayerServices, BringEverySongChosenWhateverIsPressedMeanwhile) {
  FakeChooser chooser(bus_, {.answers = false});
  Player player;
  const Application application;
  player.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&player.window()));
  PanelControls& controls = player.program().controls;
  const auto click = [&](const char* key) {
    const QWidget& item = *player.window().item(key);
    QTest::mouseClick(player.window().windowHandle(), Qt::LeftButton, {},
                      item.mapTo(&player.window(), item.rect().center()));
  };
  int presses = 0;
  controls.PAUSE.click.connect([&] { ++presses; });
  QTimer::singleShot(0, &player.window(), [&] {
    EXPECT_TRUE(soon([&] { return !chooser.asked().empty(); }));
    click("PAUSE");
    EXPECT_EQ(presses, 0);
    controls.LoadList.click.raise();
    std::vector<std::string> urls;
    for (const char* file : {"a/1.wav", "a/2.wav", "b/1.wav", "b/2.wav"}) urls.push_back("file://" + song(file));
    chooser.choose(0, urls);
  });
  click("LoadSong");
  EXPECT_TRUE(soon([&] { return controls.PlayList.ListCount() == 4; })) << controls.PlayList.ListCount();
  click("PAUSE");
  EXPECT_EQ(presses, 1);
  player.leave_desktop();
}

}  // namespace
}  // namespace tandem
