// The player between a system bus with rtkit and a session bus with a desktop portal; without a screen.

#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "app/player.h"
#include "controls/chosen_files.h"
#include "platform/fake_portal.h"
#include "platform/fake_realtime_kit.h"
#include "platform/refused_thread.h"
#include "support/temp_directory.h"
#include "support/wav_writer.h"

namespace tandem {
namespace {

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
    const std::string song = files_.file("song.wav");
    const test::Bytes bytes = test::wav_file(test::tones(10, 440, 0.3), test::Encoding::kInt16);
    std::ofstream(song, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    song_ = song;
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
  std::string song_;
};

TEST_F(PlayerServices, AreAskedForItsThreadsAndForTheDesktopsSwitch) {
  FakeRealtimeKit kit(bus_, {});
  FakePortal portal(bus_, {.animations = false});
  Player player;
  int words = 1;
  char name[] = "tandem";
  char* word = name;
  const QApplication application(words, &word);
  player.show();
  EXPECT_TRUE(soon([&] { return player.window().reduced_motion(); }));
  player.program().controls.Painel.files_dropped.raise(dialog_results({song_}).front());
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

}  // namespace
}  // namespace tandem
