#include "faults/playing_program.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "settings/settings_file.h"

namespace tandem::test {

namespace {

constexpr std::size_t kLeadLine = 34;
constexpr std::size_t kBufferLine = 35;

std::string settings(int lead, int buffer_mode) {
  std::vector<std::string> lines = lines_of(factory_settings());
  lines.at(kLeadLine) = std::to_string(lead);
  lines.at(kBufferLine) = std::to_string(buffer_mode);
  std::string text;
  for (const std::string& line : lines) text += " " + line + " \r\n";
  return text;
}

// What is made from now on lies in memory where the system has a place for that.
bool use_memory() { return std::filesystem::exists("/dev/shm") && ::setenv("TMPDIR", "/dev/shm", 1) == 0; }

// The song must come from the disk when it is played, not from what the system remembers of its writing.
void forget(const std::string& path) {
  const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
  ::fsync(file);
  ::posix_fadvise(file, 0, 0, POSIX_FADV_DONTNEED);
  ::close(file);
}

}  // namespace

PlayingProgram::PlayingProgram(std::size_t songs, double song_seconds, int buffer_mode)
    : songs_(songs),
      song_seconds_(song_seconds),
      in_memory_(use_memory()),
      player((desktop.sound.start(true), desktop), settings(kLead, buffer_mode)) {
  write_songs();
}

void PlayingProgram::write_songs() const {
  std::ofstream list(disk_file("list.m3l"), std::ios::binary);
  for (std::size_t i = 0; i < songs_; ++i) {
    const std::string path = disk_file(std::to_string(i) + ".wav");
    write_file(path, sine_song(i, song_seconds_));
    forget(path);
    list << path << "\r\n";
  }
}

double PlayingProgram::expected_seconds() const {
  return static_cast<double>(songs_) * song_seconds_ - static_cast<double>(songs_ - 1) * kLead / 1000;
}

bool PlayingProgram::open_list() {
  player.click(581, 209);
  if (!player.dialog_shows_up()) return false;
  player.answer_dialog('"' + disk_file("list.m3l") + '"');
  return player.dialog_goes_away();
}

// The pointer lies elsewhere, and so do the keys.
void PlayingProgram::go_away() const {
  std::string root = desktop.do_tool({"search", "--maxdepth", "0", ".*"});
  std::erase(root, '\n');
  desktop.do_tool({"mousemove", "1270", "1000", "windowfocus", root});
}

int PlayingProgram::queued_milliseconds() const {
  const std::string output = disk_file("streams");
  ChildProcess({"pactl", "list", "sink-inputs"}, output).wait();
  std::ifstream lines(output);
  int queued = 0;
  for (std::string line; std::getline(lines, line);) {
    const std::size_t number = line.find("Buffer Latency: ");
    if (number != std::string::npos) queued = std::stoi(line.substr(number + 16)) / 1000;
    if (line.find("media.name = \"Tandem\"") != std::string::npos) return queued;
  }
  return 0;
}

bool PlayingProgram::play(User user) {
  if (!player.show_up() || !open_list()) return false;
  desktop.sound.start_recording();
  player.click(24, 146);
  if (user == User::kAway) go_away();
  return wait_until([this] { return frames_played().frames() > 0; });
}

bool PlayingProgram::over(double seconds) const {
  const auto frames = static_cast<std::size_t>(seconds * kSampleRate);
  const std::string path = desktop.sound.directory() / "recording";
  const std::size_t recorded = std::filesystem::file_size(path) / sizeof(Sample16);
  if (recorded < frames) return false;
  std::vector<Sample16> last(frames);
  std::ifstream file(path, std::ios::binary);
  file.seekg(static_cast<std::streamoff>((recorded - frames) * sizeof(Sample16)));
  file.read(reinterpret_cast<char*>(last.data()), static_cast<std::streamsize>(frames * sizeof(Sample16)));
  return listen(last).frames() == 0;
}

}  // namespace tandem::test
