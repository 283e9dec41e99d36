// Processes that compute and one that writes to the disk, beside the program in a list: nothing is lost. A plain
// player of the sound server, whose file lies in memory, plays beside it and shows what the machine itself costs.
// TANDEM_BUSY_SECONDS: how long while the user is away, where half a second is queued; a tenth of it with the larger
// buffers, and with the pointer on the panel, where a move must be heard at once and some 90 or 170 ms are queued until
// the sound breaks for the first time.
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
int busy_processes() {
  const char* setting = std::getenv("TANDEM_BUSY_PROCESSES");
  return setting != nullptr ? std::max(std::atoi(setting), 1) : 4;
}
constexpr std::size_t kChance = 5;            // breaks
constexpr std::size_t kSpared = 4;            // after a break the queue is long: at most one in this many is heard
constexpr int kQuick = 20;                    // seconds
constexpr std::chrono::seconds kUserGone{5};  // until the program takes the user to be away
constexpr std::chrono::seconds kLook{1};

using User = PlayingProgram::User;

struct Setting {
  int buffer_mode;
  User user;
  int share;        // of the chosen time
  int queue_ms;     // what the program keeps queued then
  int least_queue;  // of which so much lies at the server in front of its device

  int seconds() const {
    const char* setting = std::getenv("TANDEM_BUSY_SECONDS");
    return setting == nullptr ? kQuick : std::max(std::atoi(setting) / share, kQuick);
  }
  // A short queue breaks now and then, by chance: in both players, but not in both at once.
  std::size_t most_breaks(std::size_t plain) const { return user == User::kAway ? plain : plain / kSpared + kChance; }
  std::string expected() const {
    return user == User::kAway ? "no break but what a plain player with as long a queue has"
                               : "at most a quarter of the breaks of a plain player with as long a queue, and 5";
  }
  std::string text() const {
    return "Buf" + std::to_string(buffer_mode + 1) +
           (user == User::kAway ? ", user away" : ", the pointer on the panel");
  }
};

std::size_t songs_for(double seconds) {
  return static_cast<std::size_t>(std::ceil(seconds / (kSong - PlayingProgram::kLead / 1000.0))) + 1;
}

std::vector<Sample16> frames_in(const std::string& path) {
  std::vector<Sample16> frames(std::filesystem::file_size(path) / sizeof(Sample16));
  std::ifstream(path, std::ios::binary)
      .read(reinterpret_cast<char*>(frames.data()), static_cast<std::streamsize>(frames.size() * sizeof(Sample16)));
  return frames;
}

// Plays one long sine into a sink of its own, with as much queued as the program.
class PlainPlayer {
 public:
  PlainPlayer(OutputTestServer& server, double seconds, int queue_ms) {
    server.load_sink("beside");
    write_file(file_.file("long.wav"), sine_song(0, seconds));
    recorder_ = ChildProcess({"parec", "-d", "beside.monitor", "--raw", "--format=s16le", "--rate=44100",
                              "--channels=2", "--latency-msec=20"},
                             file_.file("recording"));
    player_ =
        ChildProcess({"paplay", "-d", "beside", "--latency-msec=" + std::to_string(queue_ms), file_.file("long.wav")},
                     file_.file("out"));
  }
  Heard frames_played() {
    recorder_.end();
    player_.end();
    return listen(frames_in(file_.file("recording")));
  }

 private:
  TempDirectory file_;
  ChildProcess recorder_;
  ChildProcess player_;
};

class BusyMachine : public testing::TestWithParam<Setting> {};

std::string milliseconds(double seconds) { return std::to_string(std::lround(seconds * 1000)) + " ms"; }

std::string places(const Heard& heard) {
  std::string text = "seconds after the beginning:";
  for (const std::size_t frame : heard.breaks)
    text += " " + std::to_string(static_cast<double>(frame - heard.begin) / kSampleRate);
  return text;
}

std::string figures(const Heard& heard, const Heard& plain, double late, std::size_t changes,
                    const BusyProcesses& others) {
  return std::to_string(heard.breaks.size()) + " breaks, " + std::to_string(plain.breaks.size()) +
         " in the plain player; " + std::to_string(changes) + " changes, " +
         milliseconds(late / static_cast<double>(changes)) + " late at the mean; silence of at most " +
         milliseconds(static_cast<double>(heard.longest_silence) / kSampleRate) + "; " +
         std::to_string(std::lround(others.processor_seconds())) + " s of processor time taken, " +
         std::to_string(others.written_megabytes()) + " MB written";
}

TEST_P(BusyMachine, LosesNothing) {
  const Setting& setting = GetParam();
  const std::size_t songs = songs_for(setting.seconds());
  PlayingProgram program(songs, kSong, setting.buffer_mode);
  PlainPlayer beside(program.desktop.sound, program.expected_seconds() + 120, setting.queue_ms);
  ASSERT_TRUE(program.play(setting.user)) << program.player.errors();
  std::this_thread::sleep_for(kUserGone);
  const int queued = program.queued_milliseconds();
  EXPECT_GE(queued, setting.least_queue);
  BusyProcesses others(busy_processes(), program.disk_file("written"));
  const auto limit =
      std::chrono::steady_clock::now() + std::chrono::seconds(std::lround(program.expected_seconds()) + 60);
  while (!program.over(3) && std::chrono::steady_clock::now() < limit) std::this_thread::sleep_for(kLook);
  others.end();
  const Heard heard = program.frames_played();
  const Heard plain = beside.frames_played();
  const double late = static_cast<double>(heard.frames()) / kSampleRate - program.expected_seconds();
  EXPECT_GT(static_cast<double>(plain.frames()) / kSampleRate, program.expected_seconds());
  EXPECT_LE(heard.breaks.size(), setting.most_breaks(plain.breaks.size())) << places(heard);
  EXPECT_GE(late, 0);
  EXPECT_GT(others.written_megabytes(), 0);
  EXPECT_GT(others.processor_seconds(), 0);
  record_fault(std::to_string(busy_processes()) + " processes compute and one writes to the disk for " +
                   std::to_string(setting.seconds()) + " s, " + setting.text() + " (" + std::to_string(queued) +
                   " ms at the sound server)",
               setting.expected(), figures(heard, plain, late, songs - 1, others));
  program.player.send(SIGTERM);
  EXPECT_EQ(program.player.exit_status(), 0);
}

INSTANTIATE_TEST_SUITE_P(Buffers, BusyMachine,
                         testing::Values(Setting{0, User::kAway, 1, 500, 150}, Setting{1, User::kAway, 10, 1000, 150},
                                         Setting{0, User::kStays, 10, 87, 20}, Setting{1, User::kStays, 10, 174, 40}),
                         [](const auto& each) {
                           return std::string(each.param.buffer_mode == 0 ? "Buf1" : "Buf2") +
                                  (each.param.user == User::kAway ? "Alone" : "");
                         });

}  // namespace
}  // namespace tandem::test
