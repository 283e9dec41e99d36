// What is chosen and dropped is measured while the panel goes on, and added when it cuts no song.
#include "app/song_intake.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <mutex>

#include "base/whole_file.h"
#include "faults/measured.h"
#include "faults/slow_disk.h"
#include "program/player_rig.h"
#include "program/songs.h"
#include "support/mp3_maker.h"

namespace tandem::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

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

TEST_F(Intake, ThePanelPlaysOnWhileALongRecordingIsMeasured) {
  add_noise(rig, "a", 20'000);
  rig.play();
  const std::string recording = make_recording();
  gate.set_open(false);
  std::string shown;
  at_tick = [&] {
    if (now != 2000) return;
    EXPECT_GT(rig.deck(0).Position(), 1000);
    if (progress() != nullptr) shown = progress()->text().toStdString();
    clock.setInterval(20);  // what is left of the song is enough
    gate.set_open(true);
  };
  rig.add(recording);
  EXPECT_EQ(shown, "Measuring song 1 of 1");
  EXPECT_EQ(lines(), 2);
  EXPECT_NEAR(rig.player().program.SongTable.at(2).SongLength, 3 * 3'600'000, 60'000);
}

TEST_F(Intake, TheHandlerReadsNothingAnyMore) {
  const std::string recording = make_recording();
  std::int64_t read_before = 0;
  at_tick = [&] { read_before = disk->bytes_read(); };
  ASSERT_TRUE(intake.prepare(recording, IntakeJob::Kind::Songs));
  read_before = disk->bytes_read();
  rig.player().dialog.prepare = nullptr;
  rig.add(recording);
  EXPECT_EQ(disk->bytes_read(), read_before);
  EXPECT_GT(read_before, 300'000'000);
  record_fault("3 h of 320 kbit/s without a header are added", "the handler reads nothing of the file",
               std::to_string(disk->bytes_read() - read_before) + " of " + std::to_string(read_before) + " bytes");
}

// A mount may hang between the measuring and the adding.
TEST_F(Intake, TheHandlerDoesNotEvenLookForTheFile) {
  const std::string path = make_song(rig, "a.wav", constant(0.1, 700)).path;
  ASSERT_TRUE(intake.prepare(path, IntakeJob::Kind::Songs));
  std::filesystem::remove(path);
  rig.player().dialog.prepare = nullptr;
  rig.add(path);
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongLength, 700);
}

TEST_F(Intake, AFileThatHasChangedIsMeasuredAgain) {
  const std::string path = rig.make_file("a.wav", {});
  ASSERT_TRUE(intake.prepare(path, IntakeJob::Kind::Songs));
  intake.look(0);  // the handler has run
  rig.player().dialog.prepare = nullptr;
  add_song(rig, "a.wav", constant(0.1, 700));
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongLength, 700);
}

TEST_F(Intake, CancelIsCancel) {
  const std::string recording = make_recording();
  gate.set_open(false);
  at_tick = [&] {
    if (ProgressWindow* window = progress()) QTest::keyClick(window, Qt::Key_Escape);
  };
  rig.add(recording);
  EXPECT_EQ(lines(), 0);
  EXPECT_EQ(progress(), nullptr);
}

TEST_F(Intake, TheProgramMayEndMeanwhile) {
  const std::string recording = make_recording();
  gate.set_open(false);
  at_tick = [&] {
    if (now == 300) intake.leave_desktop();
  };
  EXPECT_FALSE(intake.prepare(recording, IntakeJob::Kind::Songs));
}

TEST_F(Intake, WhatTakesNoLongerThanHalfASecondShowsNothing) {
  const std::string recording = make_recording();
  gate.set_open(false);
  bool shown_early = false;
  bool shown_late = false;
  int turns = 0;
  at_tick = [&] {
    if (now <= 500) shown_early = shown_early || progress() != nullptr;
    if (now == 500 && ++turns < 20) turn = 0;
    if (turns == 20) turn = 10;
    ProgressWindow* window = now > 600 ? progress() : nullptr;
    if (window == nullptr) return;  // not yet, or already dismissed while the worker comes to its end
    shown_late = true;
    QTest::keyClick(window, Qt::Key_Escape);
  };
  rig.add(recording);
  EXPECT_FALSE(shown_early);
  EXPECT_TRUE(shown_late);
}

TEST_F(Intake, TheSongsOfASavedListAreMeasuredToo) {
  const AddedSong song = make_song(rig, "a", constant(0.1, 700));
  replace_whole_file(rig.file("night.m3l"), " " + song.path + "\r\n missing.mp3\r\n");
  ASSERT_TRUE(intake.prepare(rig.file("night.m3l"), IntakeJob::Kind::List));
  EXPECT_TRUE(rig.player().engine.measured_songs()->find(song.path));
  EXPECT_TRUE(rig.player().engine.measured_songs()->find("missing.mp3"));
}

class IntakeInAnOverlap : public Intake {
 protected:
  IntakeInAnOverlap() {
    for (const char* name : {"a", "b", "c"}) add_noise(rig, name, 5000);
    spare = make_song(rig, "spare", constant(0.1, 700));
    rig.play();
    rig.run_until([this] { return overlaps(); }, 10'000);
  }
  bool overlaps() { return !rig.mixer().Mute(0) && !rig.mixer().Mute(1); }
  AddedSong spare;
};

TEST_F(IntakeInAnOverlap, TheDialogsResultWaitsUntilItIsOver) {
  rig.add(spare.path);
  EXPECT_FALSE(overlaps());
  EXPECT_FALSE(rig.stopped());
  EXPECT_EQ(lines(), 4);
}

TEST_F(IntakeInAnOverlap, ADropWaitsUntilItIsOver) {
  intake.drop({spare.path});
  bool added_in_overlap = false;
  at_tick = [&] { added_in_overlap = added_in_overlap || (lines() > 3 && overlaps()); };
  wait_for([&] { return lines() == 4; });
  EXPECT_FALSE(added_in_overlap);
}

TEST_F(IntakeInAnOverlap, WhilePausedItSaysWhatItWaitsForAndCanBeCancelled) {
  rig.pause();
  std::string shown;
  at_tick = [&] {
    if (progress() == nullptr) return;
    shown = progress()->text().toStdString();
    if (shown.find("overlap") != std::string::npos) QTest::keyClick(progress(), Qt::Key_Escape);
  };
  rig.add(spare.path);
  EXPECT_EQ(lines(), 3);
  EXPECT_TRUE(overlaps());
  EXPECT_THAT(shown, HasSubstr("overlap"));
}

TEST_F(Intake, ADroppedListIsOpenedAndSongsFollowIt) {
  const AddedSong one = make_song(rig, "one.wav", constant(0.1, 700));
  const AddedSong two = make_song(rig, "two.wav", constant(0.1, 700));
  replace_whole_file(rig.file("night.m3l"), " " + one.path + "\r\n");
  rig.add(two.path);
  intake.drop({two.path, rig.file("night.m3l")});
  wait_for([this] { return lines() == 2 && rig.controls().PlayList.List(0).ends_with("one.wav"); });
  EXPECT_EQ(rig.controls().PlayList.List(1), "02 - " + two.path);
}

TEST_F(Intake, TitleAndTimeOfADropAgree) {
  const AddedSong one = make_song(rig, "1.wav", constant(0.1, 3000));
  const AddedSong two = make_song(rig, "2.wav", constant(0.1, 65'000));
  intake.drop({two.path, one.path});
  wait_for([this] { return lines() == 2; });
  EXPECT_EQ(rig.controls().SongLabel.Caption.get(), "1.WAV");
  EXPECT_EQ(rig.controls().LblTempTot.Caption.get(), "00:03");
}

TEST_F(Intake, NeverMoreThanFit) {
  std::vector<std::string> paths;
  for (int i = 0; i < 250; ++i) paths.push_back(rig.make_file(std::to_string(i) + ".wav", {}));
  intake.drop(paths);
  wait_for([this] { return lines() > 0; });
  EXPECT_EQ(lines(), 200);
  EXPECT_THAT(messages, SizeIs(1));
  EXPECT_THAT(intake.that_fit(paths), IsEmpty());
  EXPECT_THAT(messages.back(), HasSubstr("250 of 250"));
}

TEST_F(Intake, OfAPickThatIsTooLargeTheFirstAreTaken) {
  rig.add(make_song(rig, "0.wav", constant(0.1, 700)).path);
  std::vector<std::string> paths;
  for (int i = 250; i > 0; --i) paths.push_back("/m/" + std::to_string(i) + ".wav");
  const std::vector<std::string> fit = intake.that_fit(paths);
  ASSERT_THAT(fit, SizeIs(199));
  EXPECT_EQ(fit.front(), "/m/1.wav");
  EXPECT_EQ(fit.back(), "/m/199.wav");
}

}  // namespace
}  // namespace tandem::test
