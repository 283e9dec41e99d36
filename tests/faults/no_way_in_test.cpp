// What the running program holds open: it listens nowhere, and it writes nothing unasked.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "faults/measured.h"
#include "faults/offscreen_player.h"
#include "platform/output_test_server.h"
#include "settings/settings_file.h"

namespace tandem::test {
namespace {

namespace fs = std::filesystem;

class OpenThings {
 public:
  explicit OpenThings(pid_t pid) : process_("/proc/" + std::to_string(pid)) {
    for (const auto& entry : fs::directory_iterator(process_ + "/fd")) {
      const std::string target = fs::read_symlink(entry.path());
      if (target.starts_with("socket:[")) sockets_.insert(target.substr(8, target.size() - 9));
      if (target.starts_with('/') && writes(entry.path().filename())) written_.push_back(target);
    }
  }
  std::size_t sockets() const { return sockets_.size(); }
  const std::vector<std::string>& written_files() const { return written_; }
  // Of any internet protocol, connected or listening.
  int internet_sockets() const {
    int count = 0;
    for (const char* table : {"tcp", "tcp6", "udp", "udp6", "raw", "raw6"}) count += rows(table, 9, "");
    return count;
  }
  int listening_local_sockets() const { return rows("unix", 6, "00010000"); }
  std::string children() const {
    std::string all;
    for (const auto& task : fs::directory_iterator(process_ + "/task")) all += text_of(task.path() / "children");
    return all;
  }

 private:
  bool writes(const std::string& number) const {
    std::istringstream info(text_of(process_ + "/fdinfo/" + number));
    for (std::string word; info >> word;)
      if (word == "flags:" && info >> word) return (std::stoul(word, nullptr, 8) & O_ACCMODE) != O_RDONLY;
    return false;
  }
  // Rows of a table of the network that are this process's sockets and have the flags, if any are asked for.
  int rows(const std::string& table, std::size_t column, const std::string& flags) const {
    std::istringstream lines(text_of(process_ + "/net/" + table));
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
      std::istringstream row(line);
      const std::vector<std::string> words{std::istream_iterator<std::string>(row), {}};
      if (words.size() <= column || !sockets_.contains(words[column])) continue;
      if (flags.empty() || words[3] == flags) ++count;
    }
    return count;
  }

  std::string process_;
  std::set<std::string> sockets_;
  std::vector<std::string> written_;
};

// With a sound server, so that it is connected to something at all.
TEST(NoWayIn, NoPortNoFileNoChild) {
  OutputTestServer sound;
  sound.start();
  const PlayerFolder folder(factory_settings());
  OffscreenPlayer player(folder);
  ASSERT_TRUE(player.started());
  ASSERT_TRUE(wait_until([&] { return OpenThings(player.pid()).sockets() >= 1; })) << "to the sound server";
  const OpenThings open(player.pid());
  EXPECT_EQ(open.internet_sockets(), 0);
  EXPECT_EQ(open.listening_local_sockets(), 0);
  const std::string children = open.children();
  EXPECT_EQ(children, "");
  std::string devices_only;
  for (const std::string& file : open.written_files())
    if (!file.starts_with("/dev/") && !file.starts_with("/memfd:")) devices_only += file + " ";
  EXPECT_EQ(devices_only, "");
  player.send(SIGTERM);
  EXPECT_EQ(player.exit_status(), 0) << player.errors();
  EXPECT_EQ(folder.strays(), 0);
  std::string kept;
  for (const auto& entry : fs::recursive_directory_iterator(folder.file("home"))) kept += entry.path().string() + " ";
  EXPECT_EQ(kept, "");
  record_fault("running program looked at", "no port, no listening socket, no child, no file open for writing",
               std::to_string(open.internet_sockets() + open.listening_local_sockets()) + " ports, " +
                   (children.empty() ? "no child, " : "CHILDREN, ") +
                   (devices_only.empty() ? "no file" : devices_only));
}

// The look itself sees a socket that listens and a file that is written.
TEST(NoWayIn, WouldBeSeen) {
  TempDirectory directory;
  const int file = ::open(directory.file("written").c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
  const int port = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_in loopback{};
  loopback.sin_family = AF_INET;
  loopback.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  ASSERT_EQ(::bind(port, reinterpret_cast<const sockaddr*>(&loopback), sizeof loopback), 0);
  ASSERT_EQ(::listen(port, 1), 0);
  const OpenThings open(::getpid());
  EXPECT_EQ(open.internet_sockets(), 1);
  EXPECT_NE(std::find(open.written_files().begin(), open.written_files().end(), directory.file("written")),
            open.written_files().end());
  ::close(port);
  ::close(file);
}

}  // namespace
}  // namespace tandem::test
