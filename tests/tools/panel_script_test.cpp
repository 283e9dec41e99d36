// The program panel_script itself: what it writes and how it ends.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "support/bytes.h"
#include "support/temp_directory.h"

namespace tandem {
namespace {

namespace fs = std::filesystem;

struct PanelScript : testing::Test {
  struct Ended {
    int status;
    std::string out;
    std::string error;
  };

  static std::string text_of(const std::string& path) {
    const test::Bytes bytes = test::read_file(path);
    return {bytes.begin(), bytes.end()};
  }
  // Words without quotes in them.
  Ended run(const std::string& arguments, const std::string& script) const {
    test::write_file(directory.file("script"), test::text_bytes(script));
    const std::string command = std::string("cd '") + directory.path() + "' && '" + TANDEM_PANEL_SCRIPT + "' " +
                                arguments + " <script >out 2>error";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), text_of(directory.file("out")), text_of(directory.file("error"))};
  }

  test::TempDirectory directory;
};

TEST_F(PanelScript, EndsWithZeroAndTheSameBytesTwice) {
  const std::string script = "start\nprint SongCount\nrun 500\nclose\n";
  EXPECT_EQ(run("--wav one.wav", script).status, 0);
  const Ended again = run("--wav two.wav -", script);
  EXPECT_EQ(again.status, 0);
  EXPECT_EQ(again.out, "SongCount=0\n");
  EXPECT_EQ(again.error, "");
  EXPECT_EQ(text_of(directory.file("one.wav")), text_of(directory.file("two.wav")));
  // Half a second and the step in which the closing panel fades out.
  EXPECT_EQ(fs::file_size(directory.file("one.wav")), 44U + 51U * 441U * 4U);
}

TEST_F(PanelScript, NamesTheLineOfAnUnknownWord) {
  const Ended ended = run("", "start\n\nprnt SongCount\n");
  EXPECT_EQ(ended.status, 2);
  EXPECT_EQ(ended.error, "panel_script: line 3: unknown: prnt\n");
  EXPECT_EQ(run("--what", "").status, 2);
}

TEST_F(PanelScript, EndsWithTheErrorReportOfTheProgram) {
  test::write_file(directory.file("TP.inf"), test::text_bytes(" 40000 \r\n"));
  const Ended ended = run("--dir .", "start\necho never\n");
  EXPECT_EQ(ended.status, 1);
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.error, "tandem: Overflow: ./TP.inf, line 1\n");
  EXPECT_EQ(run("no-such-script", "").status, 1);
}

TEST_F(PanelScript, OnlyClosingSaves) {
  EXPECT_EQ(run("--dir .", "start\nmove Volume 1000\n").status, 0);
  EXPECT_FALSE(fs::exists(directory.file("TP.inf")));
  EXPECT_EQ(run("--dir .", "start\nmove Volume 1000\nclose\n").status, 0);
  EXPECT_NE(text_of(directory.file("TP.inf")).find("\r\n 1000 \r\n"), std::string::npos);
}

TEST_F(PanelScript, ReplaysTraces) {
  EXPECT_EQ(run("--trace '" TANDEM_TEST_DATA "/panel_traces.txt'", "").out, "14 passed, 0 failed\n");
  test::write_file(directory.file("wrong"), test::text_bytes("trace wrong\nsong A 1000\nPLAY | CS=2\n"));
  const Ended ended = run("--trace wrong", "");
  EXPECT_EQ(ended.status, 1);
  EXPECT_NE(ended.out.find("0 passed, 1 failed\n"), std::string::npos);
}

}  // namespace
}  // namespace tandem
