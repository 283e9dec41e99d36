#include "platform/pipewire_test_server.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <system_error>

namespace tandem {

namespace fs = std::filesystem;

bool PipewireTestServer::is_installed() {
  constexpr std::array kPrograms = {"dbus-daemon", "pipewire", "wireplumber", "pipewire-pulse"};
  return std::all_of(kPrograms.begin(), kPrograms.end(),
                     [](const char* program) { return fs::exists(fs::path("/usr/bin") / program); });
}

PipewireTestServer::PipewireTestServer() {
  std::string name = (fs::temp_directory_path() / "tandem-pipewire-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::system_error(errno, std::generic_category(), name);
  directory_ = name;
  for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "PIPEWIRE_RUNTIME_DIR"})
    ::setenv(variable, name.c_str(), 1);
  ::unsetenv("DISPLAY");
  ::unsetenv("PULSE_RUNTIME_PATH");
  ::setenv("DBUS_SESSION_BUS_ADDRESS", ("unix:path=" + name + "/bus").c_str(), 1);
  ::setenv("PULSE_SERVER", ("unix:" + name + "/pulse/native").c_str(), 1);
  start({"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=unix:path=" + name + "/bus"});
  const bool has_bus = wait_until([this] { return fs::exists(directory_ / "bus"); });
  start({"pipewire"});
  const bool has_core = has_bus && wait_until([this] { return fs::exists(directory_ / "pipewire-0"); });
  start({"wireplumber"});
  start({"pipewire-pulse"});
  const bool answers = has_core && wait_until([this] { return asks({"pactl", "info"}); });
  if (!answers || !asks({"pactl", "load-module", "module-null-sink", "sink_name=null0", "rate=48000"}) ||
      !wait_until([this] {
        return asks({"pactl", "set-default-sink", "null0"});
      }))
    throw std::runtime_error("no PipeWire can be started in " + name);
}

PipewireTestServer::~PipewireTestServer() {
  while (!children_.empty()) children_.pop_back();
  std::error_code ignored;
  fs::remove_all(directory_, ignored);
}

void PipewireTestServer::start(const std::vector<std::string>& command) {
  children_.emplace_back(command, directory_ / (command.front() + ".log"));
}

bool PipewireTestServer::asks(const std::vector<std::string>& command) const {
  return ChildProcess(command, directory_ / "pactl.out").wait() == 0;
}

void PipewireTestServer::start_recording() {
  children_.emplace_back(std::vector<std::string>{"parec", "-d", "null0.monitor", "--raw", "--format=float32le",
                                                  "--rate=48000", "--channels=2", "--latency-msec=50"},
                         directory_ / "recording");
  if (!wait_until([this] { return fs::file_size(directory_ / "recording") > 0; }))
    throw std::runtime_error("parec records nothing of PipeWire");
}

std::vector<StereoFrame> PipewireTestServer::recording() const {
  std::vector<StereoFrame> frames(fs::file_size(directory_ / "recording") / sizeof(StereoFrame));
  std::ifstream(directory_ / "recording", std::ios::binary)
      .read(reinterpret_cast<char*>(frames.data()), static_cast<std::streamsize>(frames.size() * sizeof(StereoFrame)));
  return frames;
}

}  // namespace tandem
