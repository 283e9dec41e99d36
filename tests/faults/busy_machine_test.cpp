// Four processes that compute and one that writes to the disk, beside the program in a list: nothing is lost. A plain
// player of the sound server, whose file lies in memory, plays beside it and tells what the machine itself costs.
// TANDEM_BUSY_SECONDS: how long with the pointer on the panel, where only tens of milliseconds are queued; a tenth of
// it without.
#include <gtest/gtest.h>
#include <signal.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <thread>

#include "faults/busy_processes.h"
#include "faults/measured.h"
#include "faults/playing_program.h"

namespace tandem::test {
namespace {

constexpr double kSong = 15;  // seconds
constexpr int kComputing = 4;

constexpr int kQuick = 20;  // seconds

int seconds_wished(PlayingProgram::Hand hand) {
  const char* wish = std::getenv("TANDEM_BUSY_SECONDS");
  if (wish == nullptr) return kQuick;
  const int seconds = std::max(std::atoi(wish), 1);
  return hand == PlayingProgram::Hand::kStays ? seconds : std::max(seconds / 10, kQuick);
}

std::size_t songs_for(double seconds) {
  return static_cast<std::size_t>(std::ceil(seconds / (kSong - PlayingProgram::kLead / 1000.0))) + 1;
}

std::vector<Sample16> frames_in(const std::string& path) {
  std::vector<Sample16> frames(std::filesystem::file_size(path) / sizeof(Sample16));
  std::ifstream(path, std::ios::binary)
      .read(reinterpret_cast<char*>(frames.data()), static_cast<std::streamsize>(frames.size() * sizeof(Sample16)));
  return frames;
}

// Plays one long sine into a sink of its own, as far ahead as the program is when nobody is near.
class PlainPlayer {
 public:
  PlainPlayer(OutputTestServer& server, double seconds) {
    server.load_sink("beside");
    write_file(file_.file("long.wav"), sine_song(0, seconds));
    recorder_ = ChildProcess({"parec", "-d", "beside.monitor", "--raw", "--format=s16le", "--rate=44100",
                              "--channels=2", "--latency-msec=20"},
                             file_.file("recording"));
    player_ = ChildProcess({"paplay", "-d", "beside", "--latency-msec=500", file_.file("long.wav")}, file_.file("out"));
  }
  Heard heard() {
    recorder_.end();
    player_.end();
    return listen(frames_in(file_.file("recording")));
  }

 private:
  TempDirectory file_;
  ChildProcess recorder_;
  ChildProcess player_;
};

struct Setting {
  int buffer_mode;
  PlayingProgram::Hand hand;
};

class BusyMachine : public testing::TestWithParam<Setting> {};

std::string milliseconds(double seconds) { return std::to_string(std::lround(seconds * 1000)) + " ms"; }

std::string places(const Heard& heard) {
  std::string text = "seconds after the beginning:";
  for (const std::size_t frame : heard.breaks)
    text += " " + std::to_string(static_cast<double>(frame - heard.begin) / kSampleRate);
  return text;
}

TEST_P(BusyMachine, LosesNothing) {
  const std::size_t songs = songs_for(seconds_wished(GetParam().hand));
  PlayingProgram program(songs, kSong, GetParam().buffer_mode);
  PlainPlayer beside(program.desktop.sound, program.expected_seconds() + 120);
  ASSERT_TRUE(program.play(GetParam().hand)) << program.player.errors();
  BusyProcesses others(kComputing, program.disk_file("written"));
  const auto patience =
      std::chrono::steady_clock::now() + std::chrono::seconds(std::lround(program.expected_seconds()) + 60);
  while (!program.over(3) && std::chrono::steady_clock::now() < patience)
    std::this_thread::sleep_for(std::chrono::seconds(1));
  others.end();
  const Heard heard = program.heard();
  const Heard plain = beside.heard();
  const double late = static_cast<double>(heard.frames()) / kSampleRate - program.expected_seconds();
  EXPECT_GT(static_cast<double>(plain.frames()) / kSampleRate, program.expected_seconds());
  EXPECT_LE(heard.breaks.size(), plain.breaks.size()) << places(heard);
  EXPECT_GE(late, 0);
  EXPECT_LE(late, 0.1 * static_cast<double>(songs - 1));
  EXPECT_GT(others.written_megabytes(), 0);
  EXPECT_GT(others.processor_seconds(), 0);
  record_fault(std::to_string(kComputing) + " processes compute and one writes to the disk for " +
                   std::to_string(seconds_wished(GetParam().hand)) + " s, Buf" +
                   std::to_string(GetParam().buffer_mode + 1) +
                   (GetParam().hand == PlayingProgram::Hand::kAway ? "" : ", the pointer on the panel"),
               "no break but what a plain player has",
               std::to_string(heard.breaks.size()) + " breaks, " + std::to_string(plain.breaks.size()) +
                   " in the plain player; " + std::to_string(songs - 1) + " changes, " +
                   milliseconds(late / static_cast<double>(songs - 1)) + " late at the mean; silence of at most " +
                   milliseconds(static_cast<double>(heard.longest_silence) / kSampleRate) + "; " +
                   std::to_string(std::lround(others.processor_seconds())) + " s of processor time taken, " +
                   std::to_string(others.written_megabytes()) + " MB written");
  program.player.send(SIGTERM);
  EXPECT_EQ(program.player.exit_status(), 0);
}

using Hand = PlayingProgram::Hand;
INSTANTIATE_TEST_SUITE_P(Buffers, BusyMachine,
                         testing::Values(Setting{0, Hand::kAway}, Setting{1, Hand::kAway}, Setting{0, Hand::kStays},
                                         Setting{1, Hand::kStays}),
                         [](const auto& each) {
                           return std::string(each.param.buffer_mode == 0 ? "Buf1" : "Buf2") +
                                  (each.param.hand == Hand::kAway ? "Alone" : "");
                         });

}  // namespace
}  // namespace tandem::test
