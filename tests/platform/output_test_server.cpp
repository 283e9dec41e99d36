#include "platform/output_test_server.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string_view>
#include <system_error>
#include <thread>
#include <utility>

extern char** environ;

namespace tandem {

namespace {

namespace fs = std::filesystem;

std::string read_text(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  std::string text(fs::exists(path) ? fs::file_size(path) : 0, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  return text;
}

std::vector<char*> as_arguments(std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (std::string& word : command) arguments.push_back(word.data());
  arguments.push_back(nullptr);
  return arguments;
}

pid_t spawn(std::vector<std::string> command, const fs::path& output) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, output.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, (output.string() + ".err").c_str(),
                                   O_WRONLY | O_CREAT | O_TRUNC, 0600);
  pid_t pid = -1;
  const int error = posix_spawnp(&pid, command.front().c_str(), &files, nullptr, as_arguments(command).data(), environ);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) throw std::system_error(error, std::generic_category(), command.front());
  return pid;
}

// The kernel's second figure; a thread that ends meanwhile counts no more.
std::chrono::nanoseconds waiting_of(const std::string& process) {
  std::chrono::nanoseconds waiting{0};
  std::error_code gone;
  for (const auto& task : fs::directory_iterator("/proc/" + process + "/task", gone)) {
    std::ifstream figures(task.path() / "schedstat");
    std::int64_t running = 0;
    std::int64_t ready = 0;
    if (figures >> running >> ready) waiting += std::chrono::nanoseconds(ready);
  }
  return waiting;
}

}  // namespace

bool wait_until(const std::function<bool()>& holds, std::chrono::milliseconds deadline) {
  const auto end = std::chrono::steady_clock::now() + deadline;
  while (!holds()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  return true;
}

ChildProcess::ChildProcess(const std::vector<std::string>& command, const fs::path& output)
    : pid_(spawn(command, output)) {}

ChildProcess::ChildProcess(ChildProcess&& other) noexcept : pid_(std::exchange(other.pid_, -1)) {}

ChildProcess& ChildProcess::operator=(ChildProcess&& other) noexcept {
  if (this == &other) return *this;
  end();
  pid_ = std::exchange(other.pid_, -1);
  return *this;
}

void ChildProcess::send(int signal) const {
  if (running()) ::kill(pid_, signal);
}

int ChildProcess::wait() {
  int status = 0;
  if (running()) ::waitpid(pid_, &status, 0);
  pid_ = -1;
  return status;
}

void ChildProcess::end() {
  send(SIGKILL);
  wait();
}

SoundServer server_of_environment() {
  const char* server = std::getenv("TANDEM_TEST_SERVER");
  const bool is_pipewire = server != nullptr && std::string_view(server) == "pipewire";
  return is_pipewire ? SoundServer::kPipewire : SoundServer::kPulseaudio;
}

bool is_installed(SoundServer server) {
  const auto has = [](const char* program) { return fs::exists(fs::path("/usr/bin") / program); };
  if (server == SoundServer::kPulseaudio) return has("pulseaudio");
  return has("dbus-daemon") && has("pipewire") && has("wireplumber") && has("pipewire-pulse");
}

OutputTestServer::OutputTestServer(SoundServer server) : server_(server) {
  std::string name = (fs::temp_directory_path() / "tandem-sound-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::system_error(errno, std::generic_category(), name);
  directory_ = name;
  for (const char* variable : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH"})
    ::setenv(variable, name.c_str(), 1);
  socket_ = directory_ / (server_ == SoundServer::kPipewire ? "pulse/native" : "socket");
  ::setenv("PULSE_SERVER", ("unix:" + socket_.string()).c_str(), 1);
  ::unsetenv("DISPLAY");
  ::unsetenv("DBUS_SESSION_BUS_ADDRESS");
}

OutputTestServer::~OutputTestServer() {
  recorder_.end();
  daemon_.end();
  while (!helpers_.empty()) helpers_.pop_back();
  std::error_code ignored;
  fs::remove_all(directory_, ignored);
}

void OutputTestServer::start(bool prompt) {
  fs::remove(socket_);
  modules_.clear();
  if (server_ == SoundServer::kPipewire)
    start_pipewire();
  else
    start_pulseaudio(prompt);
  if (!wait_until([this] { return fs::exists(socket_) && answers(); }))
    throw std::runtime_error("the sound server does not start: " + read_text(directory_ / "daemon.log.err"));
  load_sink("null0");
}

void OutputTestServer::start_pulseaudio(bool prompt) {
  const std::string answer = prompt ? "yes" : "no";
  daemon_ = ChildProcess({"pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no",
                          "--realtime=" + answer, "--high-priority=" + answer, "-L",
                          "module-native-protocol-unix socket=" + socket_.string() + " auth-anonymous=1"},
                         directory_ / "daemon.log");
}

// Its session manager wants a bus, and each part the one before it.
void OutputTestServer::start_pipewire() {
  const std::string bus = "unix:path=" + (directory_ / "bus").string();
  for (const char* variable : {"PIPEWIRE_RUNTIME_DIR", "XDG_STATE_HOME"}) ::setenv(variable, directory_.c_str(), 1);
  ::unsetenv("PULSE_RUNTIME_PATH");  // its socket would be there
  helpers_.clear();
  for (const char* socket : {"bus", "pipewire-0"}) fs::remove(directory_ / socket);
  helpers_.emplace_back(
      std::vector<std::string>{"dbus-daemon", "--session", "--nofork", "--nopidfile", "--address=" + bus},
      directory_ / "bus.log");
  const bool has_bus = wait_until([this] { return fs::exists(directory_ / "bus"); });
  helpers_.emplace_back(std::vector<std::string>{"pipewire"}, directory_ / "pipewire.log");
  if (!has_bus || !wait_until([this] { return fs::exists(directory_ / "pipewire-0"); }))
    throw std::runtime_error("pipewire does not start: " + read_text(directory_ / "pipewire.log.err"));
  helpers_.emplace_back(std::vector<std::string>{"env", "DBUS_SESSION_BUS_ADDRESS=" + bus, "wireplumber"},
                        directory_ / "wireplumber.log");
  daemon_ = ChildProcess({"env", "DBUS_SESSION_BUS_ADDRESS=" + bus, "pipewire-pulse"}, directory_ / "daemon.log");
}

bool OutputTestServer::answers() const { return ChildProcess({"pactl", "info"}, directory_ / "pactl.out").wait() == 0; }

std::chrono::milliseconds OutputTestServer::waited_for_a_processor() const {
  return std::chrono::duration_cast<std::chrono::milliseconds>(waiting_of("self") +
                                                               waiting_of(std::to_string(daemon_.number())));
}

void OutputTestServer::freeze() { daemon_.send(SIGSTOP); }
void OutputTestServer::thaw() { daemon_.send(SIGCONT); }

// Without norewinds the null sink works in blocks of two seconds and starves every short queue.
void OutputTestServer::load_sink(const std::string& name, int rate, const std::string& format) {
  std::string number = control({"load-module", "module-null-sink", "sink_name=" + name, "rate=" + std::to_string(rate),
                                "format=" + format, "norewinds=1"});
  modules_.emplace_back(name, number.substr(0, number.find('\n')));
}

void OutputTestServer::unload_sink(const std::string& name) {
  const auto found =
      std::find_if(modules_.begin(), modules_.end(), [&](const auto& sink) { return sink.first == name; });
  if (found == modules_.end()) throw std::runtime_error("no sink " + name);
  control({"unload-module", found->second});
  modules_.erase(found);
}

void OutputTestServer::suspend_sink(const std::string& name, bool suspended) {
  control({"suspend-sink", name, suspended ? "1" : "0"});
}

void OutputTestServer::move_streams_to(const std::string& name) {
  control({"set-default-sink", name});
  std::istringstream streams(control({"list", "short", "sink-inputs"}));
  for (std::string line; std::getline(streams, line);) try {
      control({"move-sink-input", line.substr(0, line.find('\t')), name});
    } catch (const std::runtime_error& error) {
      // Its player has put another in its place meanwhile, which goes to the default sink.
      if (std::string(error.what()).find("No such entity") == std::string::npos) throw;
    }
}

void OutputTestServer::start_recording() {
  recorder_ = ChildProcess(
      {"parec", "-d", "null0.monitor", "--raw", "--format=s16le", "--rate=44100", "--channels=2", "--latency-msec=20"},
      directory_ / "recording");
  if (!wait_until([this] { return fs::file_size(directory_ / "recording") > 0; }))
    throw std::runtime_error("parec records nothing: " + read_text(directory_ / "recording.err"));
}

void OutputTestServer::start_float_recording(const std::string& sink, int rate) {
  recorder_.end();
  recorder_ = ChildProcess({"parec", "-d", sink + ".monitor", "--raw", "--format=float32le",
                            "--rate=" + std::to_string(rate), "--channels=2", "--latency-msec=20"},
                           directory_ / "recording");
  if (!wait_until([this] { return fs::file_size(directory_ / "recording") > 0; }))
    throw std::runtime_error("parec records nothing: " + read_text(directory_ / "recording.err"));
}

std::vector<StereoFrame> OutputTestServer::float_recording() const {
  const std::string bytes = read_text(directory_ / "recording");
  std::vector<StereoFrame> frames(bytes.size() / sizeof(StereoFrame));
  std::copy_n(bytes.data(), frames.size() * sizeof(StereoFrame), reinterpret_cast<char*>(frames.data()));
  return frames;
}

std::string OutputTestServer::stream_formats() const {
  std::istringstream streams(control({"list", "short", "sink-inputs"}));
  std::string formats;
  for (std::string line; std::getline(streams, line);) formats += line.substr(line.rfind('\t') + 1) + ";";
  return formats;
}

std::vector<Sample16> OutputTestServer::recording() const {
  const std::string bytes = read_text(directory_ / "recording");
  std::vector<Sample16> frames(bytes.size() / sizeof(Sample16));
  std::copy_n(bytes.data(), frames.size() * sizeof(Sample16), reinterpret_cast<char*>(frames.data()));
  return frames;
}

std::string OutputTestServer::control(const std::vector<std::string>& arguments) const {
  std::vector<std::string> command = {"pactl"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  ChildProcess pactl(command, directory_ / "pactl.out");
  if (pactl.wait() != 0)
    throw std::runtime_error("pactl " + arguments.front() + ": " + read_text(directory_ / "pactl.out.err"));
  return read_text(directory_ / "pactl.out");
}

}  // namespace tandem
