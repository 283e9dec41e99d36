// Stands in for the render thread in tests of an output: keeps the ring filled with numbered frames while the output
// consumes. Each of 2^30 consecutive frames is distinct, and none is silence.
#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <span>
#include <thread>
#include <vector>

#include "engine/device/output.h"

namespace tandem {

inline constexpr int kTestedBuffer = 5120;  // bytes, 29 ms
inline constexpr std::uint64_t kTestedRequest = kTestedBuffer / sizeof(Sample16);

StereoFrame numbered_frame(std::uint64_t number);
std::uint64_t number_of_frame(const Sample16& frame);
bool is_silence(const Sample16& frame);

class OutputFeeder {
 public:
  using Sound = std::function<StereoFrame(std::uint64_t number)>;

  OutputFeeder(OutputRing& ring, const Output& output, std::size_t keep_frames, Sound sound = numbered_frame);
  ~OutputFeeder();
  OutputFeeder(const OutputFeeder&) = delete;
  OutputFeeder& operator=(const OutputFeeder&) = delete;

  void hold_back(bool held) { held_back_.store(held); }  // as a render thread that is late

 private:
  void run();
  void fill();

  OutputRing& ring_;
  const Output& output_;
  std::size_t keep_frames_;
  Sound sound_;
  std::atomic<bool> held_back_{false};
  std::atomic<bool> ending_{false};
  std::thread thread_;
};

// A stretch of a recording in which the numbers follow one another.
struct Stretch {
  std::uint64_t first = 0;
  std::uint64_t frames = 0;
  std::uint64_t silence_before = 0;  // frames of silence between the stretch before (or the beginning) and this one
};
std::ostream& operator<<(std::ostream& out, const Stretch& stretch);
std::vector<Stretch> stretches_of(std::span<const Sample16> recording);

}  // namespace tandem
