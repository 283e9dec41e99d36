// The program is stopped by the system while it plays, and goes on where it stood.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <cmath>
#include <thread>

#include "faults/measured.h"
#include "faults/playing_program.h"

namespace tandem::test {
namespace {

// The user is away: so much is queued that a busy machine adds no silence of its own.
constexpr int kTimes = 3;
constexpr std::chrono::milliseconds kSuspended{2000};  // longer than all that is queued

TEST(SuspendedProgram, GoesOnWhereItStood) {
  PlayingProgram program(2, 14, 0);
  ASSERT_TRUE(program.play(PlayingProgram::User::kAway)) << program.player.errors();
  std::this_thread::sleep_for(kSuspended);
  for (int i = 0; i < kTimes; ++i) {
    std::this_thread::sleep_for(kSuspended);
    program.player.send(SIGSTOP);
    std::this_thread::sleep_for(kSuspended);
    program.player.send(SIGCONT);
  }
  ASSERT_TRUE(wait_until([&] { return program.over(3); }, std::chrono::seconds(60)));
  const std::vector<Sample16> sound = program.desktop.sound.recording();
  const Heard heard = listen(sound);
  EXPECT_GT(heard.longest_silence, 0U);
  const Heard rest = listen(without_silences(sound));
  const double late = static_cast<double>(rest.frames()) / kSampleRate - program.expected_seconds();
  EXPECT_EQ(rest.breaks.size(), 0U);
  EXPECT_NEAR(late, 0, 0.05);
  record_fault("process suspended for 2 s while it plays, " + std::to_string(kTimes) + " times",
               "silent meanwhile, every frame of both songs heard",
               "silent for at most " +
                   std::to_string(std::lround(static_cast<double>(heard.longest_silence) * 1000 / kSampleRate)) +
                   " ms, " + std::to_string(rest.breaks.size()) + " places where frames are lost or repeated");
  program.player.send(SIGTERM);
  EXPECT_EQ(program.player.exit_status(), 0);
}

}  // namespace
}  // namespace tandem::test
