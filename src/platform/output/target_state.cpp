#include "platform/output/target_state.h"

#include <algorithm>

#include "engine/device/output.h"

namespace tandem {

namespace {
constexpr int kSmallestBuffer = 256;     // bytes: 64 frames, less starves every device
constexpr int kLargestBuffer = 1 << 16;  // bytes: a quarter of the ring
constexpr int kFrameBytes = 4;           // of the panel's buffer sizes, whatever the device takes
}  // namespace

void TargetState::open(int buffer_bytes) {
  const int bytes = std::clamp(buffer_bytes, kSmallestBuffer, kLargestBuffer) / kFrameBytes * kFrameBytes;
  if (is_open() && bytes == buffer_bytes_) return;
  buffer_bytes_ = bytes;
  open_ = true;
  ++generation_;
}

void TargetState::close(std::uint64_t written) {
  stop(written);
  if (!is_open()) return;
  open_ = false;
  ++generation_;
}

void TargetState::start(std::uint64_t written) {
  if (!is_open()) open(buffer_bytes_);
  set_running(true, paused_, written);
}

void TargetState::stop(std::uint64_t written) { set_running(false, false, written); }

void TargetState::pause(std::uint64_t written) { set_running(started_, started_, written); }

void TargetState::restart(std::uint64_t written) { set_running(started_, false, written); }

void TargetState::set_queue_length(int buffers) { queue_length_ = std::clamp(buffers, 1, Output::kMaxQueuedBuffers); }

void TargetState::set_running(bool started, bool paused, std::uint64_t written) {
  const bool wanted = wants_sound();
  started_ = started;
  paused_ = paused;
  if (wanted && !wants_sound()) play_up_to_ = written;
}

}  // namespace tandem
