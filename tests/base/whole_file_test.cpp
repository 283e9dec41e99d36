#include "base/whole_file.h"

#include <gtest/gtest.h>
#include <sys/fsuid.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "base/runtime_error.h"
#include "support/runtime_error_kind.h"
#include "support/temp_directory.h"

namespace tandem {
namespace {

namespace fs = std::filesystem;
using test::error_of;
using test::TempDirectory;

std::size_t entries(const TempDirectory& directory) {
  return static_cast<std::size_t>(std::distance(fs::directory_iterator(directory.path()), fs::directory_iterator()));
}

TEST(WholeFile, BytesComeBackAsTheyWere) {
  const TempDirectory directory;
  const std::string bytes("a\r\nb\0\xff\n", 7);
  replace_whole_file(directory.file("x"), bytes);
  EXPECT_EQ(read_whole_file(directory.file("x")), bytes);
}

TEST(WholeFile, NothingButTheFileIsLeft) {
  const TempDirectory directory;
  replace_whole_file(directory.file("x"), "one");
  replace_whole_file(directory.file("x"), "two");
  EXPECT_EQ(read_whole_file(directory.file("x")), "two");
  EXPECT_EQ(entries(directory), 1U);
}

TEST(WholeFile, AShorterTextLeavesNoRest) {
  const TempDirectory directory;
  replace_whole_file(directory.file("x"), "a long text");
  replace_whole_file(directory.file("x"), "");
  EXPECT_EQ(read_whole_file(directory.file("x")), "");
}

TEST(WholeFile, LargerThanOneBlockIsReadWhole) {
  const TempDirectory directory;
  const std::string bytes(300000, 'x');
  replace_whole_file(directory.file("x"), bytes);
  EXPECT_EQ(read_whole_file(directory.file("x")), bytes);
}

TEST(WholeFile, AMissingFileOrDirectoryIsNotFound) {
  const TempDirectory directory;
  EXPECT_EQ(error_of([&] { read_whole_file(directory.file("none")); }), RuntimeErrorKind::FileNotFound);
  EXPECT_EQ(error_of([&] { read_whole_file(directory.file("no/such")); }), RuntimeErrorKind::FileNotFound);
}

TEST(WholeFile, WhatIsNoFileIsRefusedWithoutWaiting) {
  const TempDirectory directory;
  ASSERT_EQ(mkfifo(directory.file("pipe").c_str(), 0600), 0);
  EXPECT_EQ(error_of([&] { read_whole_file(directory.path()); }), RuntimeErrorKind::FileAccess);
  EXPECT_EQ(error_of([&] { read_whole_file(directory.file("pipe")); }), RuntimeErrorKind::FileAccess);
  EXPECT_EQ(error_of([&] { replace_whole_file(directory.file("pipe"), "x"); }), RuntimeErrorKind::FileAccess);
  EXPECT_TRUE(fs::is_fifo(directory.file("pipe")));
}

TEST(WholeFile, ADirectoryIsNotReplaced) {
  const TempDirectory directory;
  fs::create_directory(directory.file("x"));
  EXPECT_EQ(error_of([&] { replace_whole_file(directory.file("x"), "text"); }), RuntimeErrorKind::FileAccess);
  EXPECT_TRUE(fs::is_directory(directory.file("x")));
  EXPECT_EQ(entries(directory), 1U);
}

TEST(WholeFile, WhereNoFileCanBeMade) {
  const TempDirectory directory;
  EXPECT_EQ(error_of([&] { replace_whole_file(directory.file("no/x"), "text"); }), RuntimeErrorKind::FileAccess);
  EXPECT_EQ(error_of([] { replace_whole_file("/proc/tandem-test", "text"); }), RuntimeErrorKind::FileAccess);
}

TEST(WholeFile, TheErrorNamesThePath) {
  try {
    replace_whole_file("/proc/tandem-test", "text");
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_STREQ(error.what(), "File access error: /proc/tandem-test");
  }
}

TEST(WholeFile, PermissionsAreKept) {
  const TempDirectory directory;
  replace_whole_file(directory.file("x"), "one");
  fs::permissions(directory.file("x"), fs::perms(0640));
  replace_whole_file(directory.file("x"), "two");
  EXPECT_EQ(fs::status(directory.file("x")).permissions(), fs::perms(0640));
}

TEST(WholeFile, ALinkStaysALink) {
  const TempDirectory directory;
  replace_whole_file(directory.file("real"), "one");
  fs::create_symlink("real", directory.file("link"));
  replace_whole_file(directory.file("link"), "two");
  EXPECT_TRUE(fs::is_symlink(directory.file("link")));
  EXPECT_EQ(read_whole_file(directory.file("real")), "two");
}

// Files are asked for as another user than the one who made them, as long as this lives.
class AnotherUser {
 public:
  AnotherUser() { ::setfsuid(kAnother); }
  ~AnotherUser() { ::setfsuid(::geteuid()); }
  AnotherUser(const AnotherUser&) = delete;
  AnotherUser& operator=(const AnotherUser&) = delete;

 private:
  static constexpr uid_t kAnother = 65534;
};

class FolderOfAnother : public testing::Test {
 protected:
  void SetUp() override {
    if (::geteuid() != 0) GTEST_SKIP() << "only root can ask for files as another user";
    replace_whole_file(directory.file("x"), "a longer old text");
    fs::permissions(directory.path(), fs::perms(0755));
    fs::permissions(directory.file("x"), fs::perms(0666));
  }
  const TempDirectory directory;
};

TEST_F(FolderOfAnother, ThatTakesNoNewFileTheOldOneIsWrittenInPlace) {
  {
    const AnotherUser user;
    replace_whole_file(directory.file("x"), "new text");
  }
  EXPECT_EQ(read_whole_file(directory.file("x")), "new text");
  EXPECT_EQ(entries(directory), 1U);
}

TEST_F(FolderOfAnother, ThatLetsNothingBeReplacedTheOldOneIsWrittenInPlace) {
  fs::permissions(directory.path(), fs::perms(01777));
  {
    const AnotherUser user;
    replace_whole_file(directory.file("x"), "new text");
  }
  EXPECT_EQ(read_whole_file(directory.file("x")), "new text");
  EXPECT_EQ(entries(directory), 1U);
}

TEST_F(FolderOfAnother, AWriteProtectedFileStaysAsItIs) {
  fs::permissions(directory.file("x"), fs::perms(0644));
  const AnotherUser user;
  EXPECT_EQ(error_of([&] { replace_whole_file(directory.file("x"), "new"); }), RuntimeErrorKind::FileAccess);
  EXPECT_EQ(read_whole_file(directory.file("x")), "a longer old text");
}

TEST(WholeFile, ALongNameLeavesRoomForTheTemporaryOne) {
  const TempDirectory directory;
  const std::string path = directory.file(std::string(255, 'n'));
  replace_whole_file(path, "text");
  EXPECT_EQ(read_whole_file(path), "text");
}

}  // namespace
}  // namespace tandem
