// Songs that change on the disk after they were added: what is lost is the song, never the list.
#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cmath>
#include <filesystem>
#include <optional>

#include "faults/failing_disk.h"
#include "faults/measured.h"
#include "program/player_rig.h"
#include "program/signatures.h"
#include "program/songs.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/special_files.h"
#include "support/wav_writer.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMillisecond = kSampleRate / 1000;  // frames

std::string milliseconds(std::size_t frames) {
  return std::to_string(std::lround(static_cast<double>(frames) * 1000 / kSampleRate)) + " ms";
}

struct Fault {
  const char* name;
  void (*strike)(const std::string& path);  // a song of 20 s
};

void replace_by_garbage(const std::string& path) {
  fs::remove(path);
  write_file(path, random_bytes(200'000, 7));
}
void replace_by_socket(const std::string& path) {
  fs::remove(path);
  make_socket(path);
}
void make_fifo(const std::string& path) {
  fs::remove(path);
  ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
}
void link_to(const std::string& path, const char* target) {
  fs::remove(path);
  fs::create_symlink(target, path);
}

void replace_by_another_song(const std::string& path) {
  write_file(path + " new", wav_file(full_noise(77, 5 * kSampleRate, 0.2), Encoding::kInt16));
  fs::rename(path + " new", path);
}
// The super-user may read everything, so this thread asks for files as another user from now on.
void make_unreadable(const std::string& path) {
  constexpr uid_t kSomebody = 65534;
  fs::permissions(fs::path(path).parent_path().parent_path(), fs::perms(0755));
  fs::permissions(path, fs::perms::none);
  ::setfsuid(kSomebody);
}
std::optional<FailingDisk> failing_disk;
void fail_disk_of(const std::string& path) { failing_disk.emplace(fs::path(path).parent_path()).fail(); }

const Fault kFaults[] = {
    {"deleted", [](const std::string& path) { fs::remove(path); }},
    {"directory renamed away",
     [](const std::string& path) {
       const fs::path folder = fs::path(path).parent_path();
       fs::rename(folder, folder.string() + " away");
     }},
    {"replaced by garbage", replace_by_garbage},
    {"replaced by another song", replace_by_another_song},
    {"made unreadable", make_unreadable},
    {"disk fails on every read", fail_disk_of},
    {"cut to 0 bytes", [](const std::string& path) { fs::resize_file(path, 0); }},
    {"cut to 1000 bytes", [](const std::string& path) { fs::resize_file(path, 1000); }},
    {"cut to half", [](const std::string& path) { fs::resize_file(path, fs::file_size(path) / 2); }},
    {"a folder in its place",
     [](const std::string& path) {
       fs::remove(path);
       fs::create_directory(path);
     }},
    {"a FIFO in its place", make_fifo},
    {"a socket in its place", replace_by_socket},
    {"a dangling link in its place", [](const std::string& path) { link_to(path, "nowhere"); }},
    {"a device in its place", [](const std::string& path) { link_to(path, "/dev/zero"); }},
};

class VanishingSong : public testing::TestWithParam<Fault> {
 protected:
  VanishingSong() {
    fs::create_directory(rig.file("music"));
    first = add_noise(rig, "first", 3000);
    victim = add_noise(rig, "music/victim", 20'000);  // far more than is read ahead
    last = add_noise(rig, "last", 3000);
    rig.choose_lead(1000);
  }
  ~VanishingSong() override {
    ::setfsuid(::geteuid());
    failing_disk.reset();
  }
  // From the first to the last sound.
  std::size_t dead_air() const {
    const auto& sound = rig.sound();
    std::size_t begin = 0;
    std::size_t end = sound.size();
    while (begin < end && longest_silence(sound, begin, begin + 1) != 0) ++begin;
    while (end > begin && longest_silence(sound, end - 1, end) != 0) --end;
    return longest_silence(sound, begin, end);
  }
  // Plays the rest of the list.
  void expect_the_list_goes_on(const std::string& when, std::size_t most) {
    ASSERT_TRUE(rig.run_until_stopped(40'000));
    EXPECT_EQ(rig.controls().PlayList.ListIndex(), 2);
    const std::size_t silent = dead_air();
    EXPECT_LE(silent, most);
    record_fault(std::string("song ") + when + ": " + GetParam().name,
                 "the list goes on, dead air at most " + milliseconds(most), milliseconds(silent));
  }

  PlayerRig rig;
  AddedSong first, victim, last;
};

TEST_P(VanishingSong, BeforeItsTurnLetsTheListGoOn) {
  GetParam().strike(victim.path);
  rig.play();
  expect_the_list_goes_on("before its turn", 30 * kMillisecond);
}

TEST_P(VanishingSong, WhileItPlaysLetsTheListGoOn) {
  rig.play();
  ASSERT_TRUE(rig.run_until([this] { return rig.state().CurrentSong == 2; }, 5000));
  rig.run(500);
  GetParam().strike(victim.path);
  expect_the_list_goes_on("while it plays", 30 * kMillisecond);
}

// From a place in the song to one that is not in memory.
TEST_P(VanishingSong, BeforeASeekLetsTheListGoOn) {
  rig.play();
  ASSERT_TRUE(rig.run_until([this] { return rig.state().CurrentSong == 2; }, 5000));
  ASSERT_TRUE(rig.run_until([this] { return rig.state().MixStarted == kFalse; }, 5000));
  GetParam().strike(victim.path);
  rig.seek(16'000);
  expect_the_list_goes_on("before a seek in it", 60 * kMillisecond);  // two ramps of 20 ms lie around a seek
}

std::string test_name(const testing::TestParamInfo<Fault>& each) {
  std::string name = each.param.name;
  for (char& letter : name)
    if (letter == ' ') letter = '_';
  return name;
}
INSTANTIATE_TEST_SUITE_P(Faults, VanishingSong, testing::ValuesIn(kFaults), test_name);

class LostSongs : public testing::TestWithParam<int> {};

// 1 s and 10 ms for each missing song from the end of the last sound.
TEST_P(LostSongs, AllLaterOnesGoneEndTheListInStop) {
  PlayerRig rig;
  const AddedSong first = add_noise(rig, "first", 2000);
  for (int i = 0; i < GetParam(); ++i) fs::remove(add_noise(rig, "gone " + std::to_string(i), 100).path);
  rig.play();
  const std::int64_t began = rig.player().now();
  ASSERT_TRUE(rig.run_until_stopped(10'000));
  const std::int64_t late = rig.player().now() - began - 2000;
  EXPECT_LE(late, 1000 + 10 * GetParam());
  record_fault("all " + std::to_string(GetParam()) + " later songs gone",
               "Stop within " + std::to_string(1000 + 10 * GetParam()) + " ms", std::to_string(late) + " ms");
}
INSTANTIATE_TEST_SUITE_P(Counts, LostSongs, testing::Values(1, 20, 198));

TEST(LongPath, OfFourThousandBytesIsASong) {
  PlayerRig rig;
  std::string folder = rig.file("x");
  while (folder.size() < 4000 - 250) folder += "/" + std::string(199, 'd');
  const std::string rest(4000 - folder.size() - 1 - 4, 'n');
  const std::string path = folder + "/" + rest + ".wav";
  EXPECT_EQ(path.size(), 4000U);
  fs::create_directories(folder);
  write_file(path, wav_file(full_noise(1, kSampleRate, 0.2), Encoding::kInt16));
  rig.add(path);
  EXPECT_EQ(rig.player().program.SongTable.at(1).SongFile, path);
  add_noise(rig, "last", 1000);
  rig.play();
  ASSERT_TRUE(rig.run_until_stopped(5000));
  record_fault("path of 4000 bytes", "plays", "plays, " + std::to_string(rig.state().SongCount) + " songs in the list");
}

TEST(LongPath, LongerThanTheSystemTakesIsPassedOver) {
  PlayerRig rig;
  rig.add("/" + std::string(5000, 'n') + ".wav");
  const AddedSong last = add_noise(rig, "last", 1000);
  EXPECT_EQ(rig.state().SongCount, 2);
  rig.play();
  EXPECT_TRUE(rig.run_until_stopped(5000));
  record_fault("path of 5000 bytes", "passed over", "passed over");
}

// 64 KB in the middle of 20 s at 128 kbit/s are 4.1 s of sound.
class Garbage : public testing::Test {
 protected:
  std::size_t longest_silence_of(const std::vector<std::string>& options) {
    Bytes song = make_mp3(full_noise(3, 20 * kSampleRate, 0.3), options);
    const Bytes garbage = random_bytes(65536, 5);
    std::copy(garbage.begin(), garbage.end(), song.begin() + 100'000);
    rig.add(rig.make_file("song.mp3", song));
    add_noise(rig, "last", 2000);
    rig.choose_lead(1000);
    rig.play();
    EXPECT_TRUE(rig.run_until_stopped(30'000));
    EXPECT_EQ(rig.controls().PlayList.ListIndex(), 1);
    return longest_silence(rig.sound(), kSampleRate, rig.frames() - kSampleRate);
  }
  PlayerRig rig;
};

// The frames keep their places, so that the length stays true.
TEST_F(Garbage, InsideAnMp3ThatNotesItsLengthIsSilent) {
  const std::size_t silent = longest_silence_of({"-b", "128"});
  EXPECT_LE(silent, 4200 * kMillisecond);
  record_fault("64 KB of garbage inside an MP3 with a note of its length",
               "silent for at most what it overwrites: 4.2 s", milliseconds(silent));
}

TEST_F(Garbage, InsideAnMp3WithoutANoteIsPassedOver) {
  const std::size_t silent = longest_silence_of({"-b", "128", "-t"});
  EXPECT_LE(silent, 150 * kMillisecond);
  record_fault("64 KB of garbage inside an MP3 without such a note", "passed over, dead air at most 150 ms",
               milliseconds(silent));
}

}  // namespace
}  // namespace tandem::test
