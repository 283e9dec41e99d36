// How fast songs are decoded, beside `mpg123 -t` in the same interleaved run, and how fast they are measured.
// Prints seconds of sound per second of CPU, the ratio to mpg123 (more than 1: faster), and songs measured per second.
#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "engine/read/song_measure.h"
#include "engine/read/song_source.h"
#include "support/bytes.h"
#include "support/mp3_maker.h"
#include "support/signal.h"
#include "support/temp_directory.h"

namespace tandem::test {
namespace {

constexpr int kRounds = 7;
constexpr int kSongs = 200;
constexpr double kLongSeconds = 300.0;
constexpr double kSongSeconds = 60.0;

// Music with noise, so that a variable bit rate varies and all of the spectrum is coded.
Signal dense_music(double seconds) {
  Signal signal = music(seconds);
  std::mt19937 random(1);
  std::normal_distribution<double> noise(0.0, 0.03);
  for (double& sample : signal.samples) sample += noise(random);
  return signal;
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

double own_seconds(const std::string& path) {
  std::vector<StereoFrame> block(4096);
  timespec begin{};
  timespec end{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &begin);
  const auto source = SongSource::open(path);
  while (source != nullptr && source->read(block) == block.size()) {
  }
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &end);
  return static_cast<double>(end.tv_sec - begin.tv_sec) + 1e-9 * static_cast<double>(end.tv_nsec - begin.tv_nsec);
}

double seconds_of(const timeval& time) {
  return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

double mpg123_seconds(std::string path) {
  std::string program = "mpg123";
  std::string quiet = "-q";
  std::string test = "-t";
  char* const arguments[] = {program.data(), quiet.data(), test.data(), path.data(), nullptr};
  pid_t child = 0;
  int status = 0;
  rusage usage{};
  if (posix_spawnp(&child, "mpg123", nullptr, nullptr, arguments, environ) != 0 ||
      wait4(child, &status, 0, &usage) != child || status != 0) {
    throw std::runtime_error("cannot run mpg123");
  }
  return seconds_of(usage.ru_utime) + seconds_of(usage.ru_stime);
}

void compare_decoding(const TempDirectory& directory, const Signal& signal, const std::string& option) {
  const std::string path = directory.file("long.mp3");
  const std::string tiny = directory.file("tiny.mp3");
  write_file(path, make_mp3(signal, {option}));
  write_file(tiny, make_mp3(music(0.05), {option}));
  std::vector<double> own;
  std::vector<double> peer;
  std::vector<double> start;
  for (int round = 0; round < kRounds; ++round) {
    own.push_back(own_seconds(path));
    peer.push_back(mpg123_seconds(path));
    start.push_back(mpg123_seconds(tiny));
  }
  const double peer_decoding = median(peer) - median(start);
  std::printf(
      "decode %-6s %6.0f x real time; mpg123 -t %6.0f x, ratio %.3f; without its start-up %6.0f x, ratio %.3f\n",
      option.c_str(), kLongSeconds / median(own), kLongSeconds / median(peer), median(peer) / median(own),
      kLongSeconds / peer_decoding, peer_decoding / median(own));
}

void measure_probing(const TempDirectory& directory, const Bytes& song, const char* what) {
  std::vector<std::string> paths;
  for (int i = 0; i < kSongs; ++i) {
    paths.push_back(directory.file(std::to_string(i) + ".mp3"));
    write_file(paths.back(), song);
  }
  std::vector<double> rates;
  for (int round = 0; round < kRounds; ++round) {
    const auto begin = std::chrono::steady_clock::now();
    for (const std::string& path : paths) {
      if (!measure_song(path)->opens) throw std::runtime_error("refused");
    }
    rates.push_back(kSongs / std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count());
  }
  std::printf("probe %-24s %7.0f files/s (%d files of %.1f MB, %.0f s of sound each)\n", what, median(rates), kSongs,
              1e-6 * static_cast<double>(song.size()), kSongSeconds);
}

int run() {
  const TempDirectory directory;
  const Signal signal = dense_music(kLongSeconds);
  for (const char* option : {"-b320", "-b128", "-V2"}) compare_decoding(directory, signal, option);
  const Signal song = dense_music(kSongSeconds);
  measure_probing(directory, make_mp3(song, {"-V2", "-t"}), "without a header");
  measure_probing(directory, make_mp3(song, {"-V2"}), "with a consistent header");
  return 0;
}

}  // namespace
}  // namespace tandem::test

int main() {
  try {
    return tandem::test::run();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s\n", error.what());
    return 1;
  }
}
