#include "faults/offscreen_player.h"

#include <fcntl.h>
#include <linux/close_range.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <thread>

#include "support/bytes.h"

namespace tandem::test {

namespace fs = std::filesystem;

std::string text_of(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(path, std::ios::binary).rdbuf();
  return text.str();
}

namespace {

constexpr uid_t kOrdinaryUser = 65534;
constexpr auto kPatience = std::chrono::seconds(20);

// Whether the program has set its handler of SIGTERM, by the system's own account.
bool handles_term(pid_t pid) {
  const std::string status = text_of("/proc/" + std::to_string(pid) + "/status");
  const std::size_t at = status.find("SigCgt:");
  if (at == std::string::npos) return false;
  return (std::stoull(status.substr(at + 7), nullptr, 16) >> (SIGTERM - 1U) & 1U) != 0;
}

void set_environment(const std::string& folder) {
  for (const char* variable : {"DISPLAY", "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS", "QT_QPA_PLATFORMTHEME"})
    ::unsetenv(variable);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
    ::setenv(variable, (folder + "/home").c_str(), 1);
  ::setenv("PULSE_COOKIE", (folder + "/cookie").c_str(), 1);
  if (std::getenv("PULSE_SERVER") == nullptr) ::setenv("PULSE_SERVER", "unix:/nonexistent", 1);
}

}  // namespace

PlayerFolder::PlayerFolder(const std::string& settings) {
  fs::permissions(path(), fs::perms::all);  // for an ordinary user
  fs::create_directory(file("home"));
  fs::copy_file(TANDEM_PROGRAM, file("tandem"));
  write_settings(settings);
}

std::string PlayerFolder::settings() const { return text_of(file("TP.inf")); }
void PlayerFolder::write_settings(const std::string& text) const { write_file(file("TP.inf"), text_bytes(text)); }

int PlayerFolder::strays() const {
  int count = 0;
  for (const auto& entry : fs::directory_iterator(path())) {
    const std::string name = entry.path().filename();
    if (name != "tandem" && name != "TP.inf" && name != "home" && name != "cookie") ++count;
  }
  return count;
}

OffscreenPlayer::OffscreenPlayer(const PlayerFolder& folder, const Limits& limits) {
  if (::pipe2(pipe_, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  pid_ = ::fork();
  if (pid_ < 0) throw std::runtime_error("no process");
  if (pid_ == 0) become_player(folder, limits);
  ::close(pipe_[1]);
}

OffscreenPlayer::~OffscreenPlayer() {
  if (!status_) {
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, nullptr, 0);
  }
  ::close(pipe_[0]);
}

void OffscreenPlayer::become_player(const PlayerFolder& folder, const Limits& limits) const {
  ::dup2(pipe_[1], STDOUT_FILENO);
  ::dup2(pipe_[1], STDERR_FILENO);
  ::close_range(STDERR_FILENO + 1, ~0U,
                CLOSE_RANGE_CLOEXEC);  // what the test itself was started with is not the player's
  set_environment(folder.path());
  if (limits.nothing_can_be_written) {
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_FSIZE, &none);
    ::signal(SIGXFSZ, SIG_IGN);
  }
  if (limits.ordinary_user && ::getuid() == 0 && (::setgid(kOrdinaryUser) != 0 || ::setuid(kOrdinaryUser) != 0))
    ::_exit(126);
  std::string program = folder.file("tandem");
  char* arguments[] = {program.data(), nullptr};
  ::execv(program.c_str(), arguments);
  ::_exit(127);
}

bool OffscreenPlayer::started() {
  const auto deadline = std::chrono::steady_clock::now() + kPatience;
  while (!handles_term(pid_)) {
    siginfo_t ended{};
    const bool known = ::waitid(P_PID, static_cast<id_t>(pid_), &ended, WEXITED | WNOHANG | WNOWAIT) == 0;
    if (!known || ended.si_pid == pid_ || std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

void OffscreenPlayer::send(int signal) const { ::kill(pid_, signal); }

void OffscreenPlayer::read_errors() {
  char block[4096];
  for (ssize_t count = 0; (count = ::read(pipe_[0], block, sizeof block)) > 0;)
    errors_.append(block, static_cast<std::size_t>(count));
}

int OffscreenPlayer::exit_status() {
  if (status_) return *status_;
  read_errors();  // to its end
  int status = 0;
  ::waitpid(pid_, &status, 0);
  status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return *status_;
}

}  // namespace tandem::test
