#include "platform/output_feeder.h"

#include <algorithm>
#include <chrono>
#include <exception>
#include <ostream>
#include <utility>

namespace tandem {

namespace {
constexpr std::uint64_t kHalf = 1U << 15;
constexpr std::size_t kStep = 441;
}  // namespace

// Left holds the low 15 bits and a one that keeps it from silence, right the next 15: values that 16 bits hold exactly.
StereoFrame numbered_frame(std::uint64_t number) {
  const auto low = static_cast<int>(number % kHalf);
  const auto high = static_cast<int>(number / kHalf % kHalf);
  constexpr float kScale = 32768.0F;
  return {static_cast<float>(low - static_cast<int>(kHalf)) / kScale, static_cast<float>(high) / kScale};
}

std::uint64_t number_of_frame(const Sample16& frame) {
  return static_cast<std::uint64_t>(frame.left + static_cast<int>(kHalf)) +
         static_cast<std::uint64_t>(frame.right) * kHalf;
}

bool is_silence(const Sample16& frame) { return frame.left == 0 && frame.right == 0; }

OutputFeeder::OutputFeeder(OutputRing& ring, const Output& output, std::size_t keep_frames, Sound sound)
    : ring_(ring), output_(output), keep_frames_(keep_frames), sound_(std::move(sound)), thread_([this] { run(); }) {}

OutputFeeder::~OutputFeeder() {
  ending_.store(true);
  thread_.join();
}

void OutputFeeder::run() {
  while (!ending_.load()) {
    if (output_.consuming() && !held_back_.load()) fill();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void OutputFeeder::fill() {
  std::vector<StereoFrame> step(kStep);
  while (ring_.readable() < keep_frames_ && output_.consuming()) {
    std::uint64_t number = ring_.written();
    std::generate(step.begin(), step.end(), [&] { return sound_(number++); });
    if (ring_.write(step) != step.size()) std::terminate();  // there was room: a fault of the ring
  }
  ring_.supply();
}

std::ostream& operator<<(std::ostream& out, const Stretch& stretch) {
  return out << stretch.silence_before << " of silence, " << stretch.frames << " from " << stretch.first;
}

std::vector<Stretch> stretches_of(std::span<const Sample16> recording) {
  std::vector<Stretch> stretches;
  std::uint64_t silence = 0;
  for (const Sample16& frame : recording) {
    if (is_silence(frame)) {
      ++silence;
      continue;
    }
    const std::uint64_t number = number_of_frame(frame);
    const bool goes_on =
        !stretches.empty() && silence == 0 && stretches.back().first + stretches.back().frames == number;
    if (!goes_on) stretches.push_back({number, 0, silence});
    ++stretches.back().frames;
    silence = 0;
  }
  return stretches;
}

}  // namespace tandem
