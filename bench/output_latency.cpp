// What an output costs and how well its position keeps time, on a private sound server with a null sink:
//   output_latency [seconds a row]
// One row for each depth and each amount that the render thread keeps ready: wake-ups a second and processor time of
// the output's thread, time from the command to the first sound, distance from control to ear, spread of
// frames_played().
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "engine/core/frames.h"
#include "platform/output_feeder.h"
#include "platform/output_test_server.h"
#include "platform/pulse/pulse_output.h"

namespace tandem {
namespace {

struct Effort {
  long sleeps = 0;
  double milliseconds = 0.0;  // of processor
};

std::string line_of(const std::filesystem::path& path, const std::string& key) {
  std::ifstream file(path);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(key)) return line.substr(key.size());
  }
  return {};
}

Effort effort_of_the_output() {
  for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
    if (line_of(task.path() / "status", "Name:\t") != "tandem-pulse") continue;
    std::ifstream times(task.path() / "schedstat");
    double nanoseconds = 0;
    times >> nanoseconds;
    return {std::stol(line_of(task.path() / "status", "voluntary_ctxt_switches:")), nanoseconds / 1e6};
  }
  return {};
}

double to_milliseconds(Nanoseconds time) { return static_cast<double>(time) / 1e6; }

struct Timing {
  double spread = 0.0;  // 1st to 99th percentile of frames_played() against the clock, milliseconds
  double worst = 0.0;   // furthest apart
  double ahead = 0.0;   // mean of what was taken and not yet heard, milliseconds
};

Timing watch(const Output& output, const OutputRing& ring, int seconds) {
  std::vector<double> against;
  double ahead = 0.0;
  const Nanoseconds began = monotonic_now();
  for (Nanoseconds now = began; now < began + seconds * kNanosecondsPerSecond; now = monotonic_now()) {
    const std::uint64_t heard = output.frames_played();
    against.push_back(static_cast<double>(heard) * 1e3 / kSampleRate - to_milliseconds(now - began));
    ahead += static_cast<double>(ring.taken() - heard) * 1e3 / kSampleRate;
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
  std::sort(against.begin(), against.end());
  const std::size_t count = against.size();
  return {against[count * 99 / 100] - against[count / 100], against.back() - against.front(),
          ahead / static_cast<double>(count)};
}

void measure(int depth, int kept_buffers, int seconds) {
  OutputRing ring;
  PulseOutput output(ring);
  OutputFeeder feeder(ring, output, static_cast<std::size_t>(kept_buffers) * 1280);
  output.set_queue_length(depth);
  const Nanoseconds ordered = monotonic_now();
  output.start();
  wait_until([&] { return output.frames_played() > 0; });
  const Nanoseconds first = monotonic_now();
  wait_until([&] { return output.frames_played() > static_cast<std::uint64_t>(kSampleRate); });
  const Effort before = effort_of_the_output();
  const Nanoseconds began = monotonic_now();
  const Timing timing = watch(output, ring, seconds);
  const Effort after = effort_of_the_output();
  const double span = to_milliseconds(monotonic_now() - began) / 1e3;
  std::printf("%5d %4d %9.1f %10.2f %9.1f %9.1f %9.2f %9.2f\n", depth, kept_buffers,
              static_cast<double>(after.sleeps - before.sleeps) / span,
              (after.milliseconds - before.milliseconds) / span, to_milliseconds(first - ordered), timing.ahead,
              timing.spread, timing.worst);
}

void measure_without_server() {
  OutputRing ring;
  PulseOutput output(ring);
  output.start();
  const Effort before = effort_of_the_output();
  const Nanoseconds began = monotonic_now();
  std::this_thread::sleep_for(std::chrono::seconds(3));
  const Effort after = effort_of_the_output();
  const double span = to_milliseconds(monotonic_now() - began) / 1e3;
  std::printf("no server: %.1f wake-ups/s, %.2f ms/s\n", static_cast<double>(after.sleeps - before.sleeps) / span,
              (after.milliseconds - before.milliseconds) / span);
}

}  // namespace
}  // namespace tandem

int main(int argc, char** argv) {
  const int seconds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 5;
  tandem::OutputTestServer server;
  tandem::measure_without_server();
  server.start();
  std::printf("depth kept wake-ups/s   cpu ms/s  first ms  ahead ms spread ms  worst ms\n");
  for (const auto& [depth, kept] : {std::pair{2, 1}, {2, 2}, {4, 2}, {8, 2}, {19, 1}, {19, 2}, {19, 10}, {19, 20}})
    tandem::measure(depth, kept, seconds);
  return 0;
}
