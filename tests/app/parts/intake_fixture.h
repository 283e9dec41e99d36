// A player in simulated time whose songs come through the intake, with the player's clock on a real event loop and a
// slow disk whose reads can be held.
#pragma once

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

#include "app/song_intake.h"
#include "faults/slow_disk.h"
#include "program/player_rig.h"
#include "program/songs.h"
#include "support/mp3_maker.h"

namespace tandem::test {

// Reads of the slow disk wait here.
class Gate {
 public:
  void pass() {
    std::unique_lock lock(mutex_);
    on_open_.wait(lock, [this] { return open_; });
  }
  void set_open(bool open) {
    const std::lock_guard lock(mutex_);
    open_ = open;
    on_open_.notify_all();
  }

 private:
  std::mutex mutex_;
  std::condition_variable on_open_;
  bool open_ = true;
};

class Intake : public testing::Test {
 protected:
  Intake() {
    // The player's clock: the panel's time passes with the turns of the event loop.
    QObject::connect(&clock, &QTimer::timeout, [this] {
      now += turn;
      intake.look(now);
      if (!intake.is_returning()) rig.run(10);
      if (at_tick) at_tick();
    });
    clock.start(0);
    rig.player().dialog.prepare = [this](const std::string& result) {
      return intake.prepare(result, IntakeJob::Kind::Songs);
    };
  }
  // A job that was given up may still hang at the gate.
  ~Intake() override {
    gate.set_open(true);
    EXPECT_TRUE(QTest::qWaitFor([] { return intake_threads() == 0; }, 20'000));
  }

  static int intake_threads() {
    int count = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
      std::string name;
      std::getline(std::ifstream(task.path() / "comm"), name);
      count += name == "tandem-intake" ? 1 : 0;
    }
    return count;
  }

  // A recording of three hours without a header: measuring it reads the whole file.
  std::string make_recording() {
    const Bytes song = make_mp3(tones(10.0, 441.0, 0.3), {"-b", "320", "-t"});
    constexpr std::int64_t kGroup = 51200;  // bytes; 49 frames, after which the padding repeats
    disk.emplace(rig.file("recording.mp3"), slice(song, 0, 6 * kGroup), 8437 * kGroup);
    disk->on_read([this] { gate.pass(); });
    return rig.file("recording.mp3");
  }
  static ProgressWindow* progress() {
    for (QWidget* widget : QApplication::topLevelWidgets())
      if (auto* window = dynamic_cast<ProgressWindow*>(widget); window != nullptr && window->isVisible()) return window;
    return nullptr;
  }
  void wait_for(const std::function<bool()>& condition) { ASSERT_TRUE(QTest::qWaitFor(condition, 20'000)); }
  std::int32_t lines() const { return rig.controls().PlayList.ListCount(); }

  PlayerRig rig;
  std::vector<std::string> messages;
  SongIntake intake{rig.player().program,
                    rig.player().engine.measured_songs(),
                    {[] {}, [this](const std::string& text) { messages.push_back(text); }}};
  Gate gate;
  std::optional<SlowDisk> disk;
  QTimer clock;
  std::int64_t now = 0;
  std::int64_t turn = 10;  // ms, of a turn of the event loop
  std::function<void()> at_tick;
};

}  // namespace tandem::test
