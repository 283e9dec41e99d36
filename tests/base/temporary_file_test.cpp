#include "base/temporary_file.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "base/runtime_error.h"
#include "base/whole_file.h"
#include "support/temp_directory.h"

namespace tandem {
namespace {

namespace fs = std::filesystem;
using test::TempDirectory;

std::string name_of(pid_t pid) { return ".tandem-" + std::to_string(pid) + ".new"; }

void write_half(const std::string& path) { std::ofstream(path) << "half a"; }

// Another process that has written its temporary file and hangs before it renames it.
class HangingWriter {
 public:
  explicit HangingWriter(const std::string& directory) {
    int written[2];
    EXPECT_EQ(::pipe(written), 0);
    pid_ = ::fork();
    if (pid_ == 0) hang(directory, written[1]);
    ::close(written[1]);
    char byte = 0;
    EXPECT_EQ(::read(written[0], &byte, 1), 1);
    ::close(written[0]);
  }
  ~HangingWriter() { kill(); }
  HangingWriter(const HangingWriter&) = delete;
  HangingWriter& operator=(const HangingWriter&) = delete;

  void kill() {
    if (pid_ <= 0) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }
  std::string name() const { return name_of(pid_); }

 private:
  [[noreturn]] static void hang(const std::string& directory, int written) {
    const TemporaryFile file(directory);
    if (!file.write("half a") || ::write(written, "!", 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }
  pid_t pid_ = -1;
};

template <class Work>
bool throws(Work work) {
  try {
    work();
  } catch (const RuntimeError&) {
    return true;
  }
  return false;
}

class TemporaryFiles : public testing::Test {
 protected:
  std::string file(const std::string& name) const { return directory_.file(name); }
  std::string folder() const { return directory_.path() + "/"; }
  std::ptrdiff_t entries() const {
    return std::distance(fs::directory_iterator(directory_.path()), fs::directory_iterator());
  }
  void save() const { replace_whole_file(file("TP.inf"), "new"); }

  TempDirectory directory_;
};

TEST_F(TemporaryFiles, WhatBecomesNothingIsRemoved) {
  {
    const TemporaryFile temporary(folder());
    EXPECT_TRUE(temporary.is_open());
    EXPECT_TRUE(fs::exists(file(name_of(::getpid()))));
  }
  EXPECT_EQ(entries(), 0);
}

TEST_F(TemporaryFiles, OfAKilledPlayerAreRemovedAtTheNextSave) {
  HangingWriter other(folder());
  const std::string left = other.name();
  other.kill();
  ASSERT_TRUE(fs::exists(file(left)));
  save();
  EXPECT_FALSE(fs::exists(file(left)));
  EXPECT_EQ(entries(), 1);
}

TEST_F(TemporaryFiles, OfARunningPlayerStay) {
  HangingWriter other(folder());
  save();
  EXPECT_TRUE(fs::exists(file(other.name())));
  EXPECT_EQ(read_whole_file(file(other.name())), "half a");
}

// The killed player's number belongs to another program by now: to this one, or to one that runs for ever.
TEST_F(TemporaryFiles, AreStaleWhichProcessEverHasTheirNumberNow) {
  for (const pid_t number : {::getpid(), 1}) write_half(file(name_of(number)));
  save();
  EXPECT_EQ(entries(), 1);
  EXPECT_EQ(read_whole_file(file("TP.inf")), "new");
}

TEST_F(TemporaryFiles, OtherNamesStay) {
  const std::string names[] = {".tandem-.new",   ".tandem-1x.new", ".tandem-1.newer", "tandem-1.new",  ".tandem-1.new~",
                               ".tandem--1.new", ".tandem-1",      ".tandem-1.NEW",   "x.tandem-1.new"};
  for (const std::string& name : names) write_half(file(name));
  save();
  for (const std::string& name : names) EXPECT_TRUE(fs::exists(file(name))) << name;
}

TEST_F(TemporaryFiles, WhatIsNoRegularFileStays) {
  write_half(file("precious"));
  fs::create_symlink("precious", file(".tandem-1.new"));
  fs::create_directory(file(".tandem-2.new"));
  fs::create_symlink("nowhere", file(".tandem-3.new"));
  ASSERT_EQ(::mkfifo(file(".tandem-4.new").c_str(), 0600), 0);
  fs::create_hard_link(file("precious"), file(".tandem-5.new"));
  save();
  EXPECT_EQ(entries(), 7);
  EXPECT_EQ(read_whole_file(file("precious")), "half a");
}

class TakenName : public TemporaryFiles, public testing::WithParamInterface<void (*)(const std::string&)> {};

// The name that this process would take first.
TEST_P(TakenName, DoesNotHinder) {
  const std::string own = file(name_of(::getpid()));
  GetParam()(own);
  save();
  EXPECT_EQ(read_whole_file(file("TP.inf")), "new");
  EXPECT_TRUE(fs::exists(fs::symlink_status(own)));
  EXPECT_EQ(entries(), 2);
}
INSTANTIATE_TEST_SUITE_P(ByOtherThings, TakenName,
                         testing::Values([](const std::string& path) { fs::create_directory(path); },
                                         [](const std::string& path) { fs::create_symlink("/nonexistent/x", path); },
                                         [](const std::string& path) { ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0); }));

TEST_F(TemporaryFiles, TwoOfOneProcessHaveTwoNames) {
  const TemporaryFile one(folder());
  const TemporaryFile other(folder());
  EXPECT_TRUE(one.is_open() && other.is_open());
  save();
  EXPECT_EQ(entries(), 3);
}

// Each looks for stale files while the others make theirs.
TEST_F(TemporaryFiles, OfManyWhoSaveAtOnceAreNotMistakenForStaleOnes) {
  constexpr int kWriters = 4;
  constexpr int kSaves = 100;
  const auto save_often = [this] {
    for (int i = 0; i < kSaves; ++i) save();
  };
  for (int writer = 0; writer < kWriters; ++writer)
    if (::fork() == 0) ::_exit(throws(save_often) ? 1 : 0);
  int failed = 0;
  for (int status = 0; ::wait(&status) > 0;) failed += status == 0 ? 0 : 1;
  EXPECT_EQ(failed, 0);
  EXPECT_EQ(entries(), 1);
}

TEST_F(TemporaryFiles, AMissingFolderHasNone) {
  remove_stale_temporary_files(file("none"));
  EXPECT_FALSE(TemporaryFile(file("none/")).is_open());
}

}  // namespace
}  // namespace tandem
