#include "app/real_player.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <system_error>

#include "support/bytes.h"
#include "support/signal.h"
#include "support/wav_writer.h"

extern char** environ;

namespace tandem::test {

namespace {

constexpr int kLeastDialogWidth = 200;  // tips are smaller

std::string text_of(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

pid_t spawn_program(const std::string& program, const std::string& errors) {
  posix_spawn_file_actions_t files;
  posix_spawn_file_actions_init(&files);
  posix_spawn_file_actions_addopen(&files, STDERR_FILENO, errors.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
  std::string name = program;
  char* arguments[] = {name.data(), nullptr};
  pid_t pid = -1;
  const int error = posix_spawn(&pid, program.c_str(), &files, nullptr, arguments, environ);
  posix_spawn_file_actions_destroy(&files);
  if (error != 0) throw std::system_error(error, std::generic_category(), program);
  return pid;
}

void set_home(const std::string& path) {
  for (const char* variable : {"HOME", "XDG_CONFIG_HOME"}) ::setenv(variable, path.c_str(), 1);
}

}  // namespace

Desktop::Desktop(const std::vector<std::string>& screen_options) {
  std::vector<std::string> command = {"Xvfb",         "-displayfd", "1",         "-screen", "0",
                                      "1152x1024x24", "-noreset",   "-nolisten", "tcp"};
  command.insert(command.end(), screen_options.begin(), screen_options.end());
  screen_ = ChildProcess(command, files_.file("display"));
  const auto number = [this] { return text_of(files_.file("display")); };
  if (!wait_until([&] { return number().ends_with('\n'); })) throw std::runtime_error("Xvfb does not start");
  const std::string display = ":" + number().substr(0, number().size() - 1);
  for (const char* variable : {"WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "XDG_CURRENT_DESKTOP", "XAUTHORITY"})
    ::unsetenv(variable);
  ::setenv("DISPLAY", display.c_str(), 1);
  ::setenv("QT_QPA_PLATFORM", "xcb", 1);
  ::setenv("QT_SCALE_FACTOR", "1", 1);
  ::setenv("LC_ALL", "C.UTF-8", 1);
  ::setenv("DBUS_SESSION_BUS_ADDRESS", "disabled:", 1);        // no bus is started for one who asks for it
  ::setenv("PULSE_COOKIE", files_.file("cookie").c_str(), 1);  // the sound library would keep one at home
}

// Ended by SIGTERM, the server removes its lock.
void Desktop::end_screen() {
  if (!screen_.running()) return;
  screen_.send(SIGTERM);
  screen_.wait();
}

Desktop::~Desktop() { end_screen(); }

std::string Desktop::do_tool(const std::vector<std::string>& words) const {
  std::vector<std::string> command = {"xdotool"};
  command.insert(command.end(), words.begin(), words.end());
  const std::string output = files_.file("xdotool");
  return ChildProcess(command, output).wait() == 0 ? text_of(output) : "";
}

RealPlayer::RealPlayer(const Desktop& desktop, const std::string& settings) : desktop_(desktop) {
  std::filesystem::copy_file(TANDEM_PROGRAM, file("tandem"));
  write_file(file("TP.inf"), text_bytes(settings));
  set_home(desktop.home().path());
  pid_ = spawn_program(file("tandem"), file("errors"));
  set_home(desktop.sound.directory());  // the sound server keeps things there
}

RealPlayer::~RealPlayer() {
  if (has_ended()) return;
  ::kill(pid_, SIGKILL);
  ::waitpid(pid_, nullptr, 0);
}

std::vector<std::string> RealPlayer::windows() const {
  std::istringstream found(
      desktop_.do_tool({"search", "--all", "--onlyvisible", "--pid", std::to_string(pid_), "--name", ""}));
  std::vector<std::string> all;
  for (std::string line; std::getline(found, line);) all.push_back(line);
  return all;
}

int RealPlayer::number_of(const std::string& window, const std::string& what) const {
  const std::string geometry = "\n" + desktop_.do_tool({"getwindowgeometry", "--shell", window});
  const std::size_t at = geometry.find("\n" + what);
  return at == std::string::npos ? 0 : std::stoi(geometry.substr(at + 1 + what.size()));
}

bool RealPlayer::find_panel(int width) {
  for (const std::string& window : windows()) {
    if (width_of(window) != width) continue;
    panel_ = window;
    return true;
  }
  return false;
}

bool RealPlayer::find_dialog() {
  dialog_.clear();
  for (const std::string& window : windows())
    if (window != panel_ && width_of(window) >= kLeastDialogWidth) dialog_ = window;
  return !dialog_.empty();
}

bool RealPlayer::show_up(int width) {
  return wait_until([&] { return find_panel(width) || has_ended(); }) && !panel_.empty();
}
bool RealPlayer::dialog_shows_up() {
  return wait_until([this] { return find_dialog(); });
}
bool RealPlayer::dialog_goes_away() {
  return wait_until([this] { return !find_dialog(); });
}

void RealPlayer::click(int x, int y, int button) const {
  desktop_.do_tool(
      {"mousemove", "--window", panel_, std::to_string(x), std::to_string(y), "click", std::to_string(button)});
}

void RealPlayer::double_click(int x, int y) const {
  desktop_.do_tool({"mousemove", "--window", panel_, std::to_string(x), std::to_string(y), "click", "--repeat", "2",
                    "--delay", "60", "1"});
}

void RealPlayer::click_screen(int x, int y, const std::string& with_key) const {
  if (!with_key.empty()) desktop_.do_tool({"keydown", with_key});
  desktop_.do_tool({"mousemove", std::to_string(x), std::to_string(y), "click", "1"});
  if (!with_key.empty()) desktop_.do_tool({"keyup", with_key});
}

void RealPlayer::drag(int x, int y, int right, int down) const {
  desktop_.do_tool({"mousemove", "--window", panel_, std::to_string(x), std::to_string(y), "mousedown", "1"});
  for (int step = 1; step <= 3; ++step)
    desktop_.do_tool({"mousemove_relative", "--", std::to_string(right / 3), std::to_string(down / 3)});
  desktop_.do_tool({"mouseup", "1"});
}

void RealPlayer::key(const std::string& key) const { desktop_.do_tool({"windowfocus", "--sync", panel_, "key", key}); }

bool RealPlayer::has_songs_name() const {
  return desktop_.do_tool({"getwindowname", panel_}).find(" - Tandem") != std::string::npos;
}

bool RealPlayer::play() {
  return wait_until([this] {
    key("ctrl+p");  // of an empty list does nothing
    return wait_until([this] { return has_songs_name(); }, std::chrono::seconds(1));
  });
}

void RealPlayer::dialog_key(const std::string& key) {
  desktop_.do_tool({"windowfocus", "--sync", dialog_, "key", key});
}

void RealPlayer::answer_dialog(const std::string& text) {
  desktop_.do_tool({"windowfocus", "--sync", dialog_, "type", "--delay", "4", text});
  desktop_.do_tool({"key", "Return"});
}

void RealPlayer::type(const std::string& text) const { desktop_.do_tool({"type", "--delay", "4", text}); }

void RealPlayer::send(int signal) const { ::kill(pid_, signal); }

bool RealPlayer::has_ended() {
  int status = 0;
  if (!status_ && ::waitpid(pid_, &status, WNOHANG) == pid_)
    status_ = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return status_.has_value();
}

std::optional<int> RealPlayer::exit_status() {
  wait_until([this] { return has_ended(); });
  return status_;
}

std::string RealPlayer::settings() const { return text_of(file("TP.inf")); }
std::string RealPlayer::errors() const { return text_of(file("errors")); }

void RealPlayer::make_settings_unwritable() const {
  std::filesystem::remove(file("TP.inf"));
  std::filesystem::create_directory(file("TP.inf"));
}

std::string RealPlayer::write_song(const std::string& name, double hertz, double seconds) const {
  Signal song = tones(seconds, hertz, 0.25);
  for (std::size_t i = 1; i < song.samples.size(); i += 2) song.samples[i] = song.samples[i - 1];
  write_file(file(name), wav_file(song, Encoding::kInt16));
  return file(name);
}

std::vector<std::string> lines_of(const std::string& settings) {
  std::vector<std::string> lines;
  std::istringstream text(settings);
  for (std::string line; std::getline(text, line);) {
    std::erase_if(line, [](char c) { return c == ' ' || c == '\r'; });
    lines.push_back(line);
  }
  return lines;
}

}  // namespace tandem::test
