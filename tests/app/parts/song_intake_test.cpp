// What is chosen and dropped is measured while the panel goes on, and added when it cuts no song.
#include "app/song_intake.h"

#include <chrono>
#include <filesystem>

#include "app/parts/intake_fixture.h"
#include "base/whole_file.h"
#include "faults/measured.h"

namespace tandem::test {
namespace {

using testing::HasSubstr;

TEST_F(Intake, ThePanelPlaysOnWhileALongRecordingIsMeasured) {
  add_noise(rig, "a", 20'000);
  rig.play();
  const std::string recording = make_recording();
  gate.set_open(false);
  std::string shown;
  const std::int64_t began = now;  // adding the song before took turns too, how many depends on the machine
  at_tick = [&] {
    if (now != began + 2000) return;
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

TEST_F(Intake, CancelAddsNothing) {
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

TEST_F(Intake, TheProgramEndsAtOnceHoweverManyDropsHang) {
  const std::string recording = make_recording();
  gate.set_open(false);
  for (int i = 1; i <= 5; ++i) {
    const int reads = disk->reads();
    intake.drop({recording});
    wait_for([&] { return disk->reads() > reads; });
  }
  const auto began = std::chrono::steady_clock::now();
  intake.leave_desktop();
  const auto took =
      std::chrono::duration_cast<std::chrono::milliseconds>(std::chrono::steady_clock::now() - began).count();
  EXPECT_LE(took, 500);
  record_fault("closing while five drops hang in a read", "closed within 500 ms", std::to_string(took) + " ms");
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

}  // namespace
}  // namespace tandem::test
