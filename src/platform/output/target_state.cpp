#include "platform/output/target_state.h"

#include <algorithm>

#include "engine/device/output.h"

namespace tandem {

namespace {
constexpr int kSmallestBuffer = 256;     // bytes: 64 frames, less starves every device
constexpr int kLargestBuffer = 1 << 16;  // bytes: a quarter of the ring
constexpr int kFrameBytes = 4;
}  // namespace

void TargetState::apply(const OutputCommand& order) {
  switch (order.kind) {
    case OutputCommand::Kind::kOpen:
      open_with(order.value);
      break;
    case OutputCommand::Kind::kClose:
      set_running(false, false, order.written);
      close();
      break;
    case OutputCommand::Kind::kStart:
      if (!open_) open_with(buffer_bytes_);
      set_running(true, paused_, order.written);
      break;
    case OutputCommand::Kind::kStop:
      set_running(false, false, order.written);
      break;
    case OutputCommand::Kind::kPause:
      set_running(started_, started_, order.written);
      break;
    case OutputCommand::Kind::kRestart:
      set_running(started_, false, order.written);
      break;
    case OutputCommand::Kind::kDepth:
      depth_ = std::clamp(order.value, 1, Output::kMaxQueuedBuffers);
      break;
  }
}

void TargetState::open_with(int buffer_bytes) {
  const int bytes = std::clamp(buffer_bytes, kSmallestBuffer, kLargestBuffer) / kFrameBytes * kFrameBytes;
  if (open_ && bytes == buffer_bytes_) return;
  buffer_bytes_ = bytes;
  open_ = true;
  ++generation_;
}

void TargetState::close() {
  if (!open_) return;
  open_ = false;
  ++generation_;
}

void TargetState::set_running(bool started, bool paused, std::uint64_t written) {
  const bool was = wanted();
  started_ = started;
  paused_ = paused;
  if (was && !wanted()) play_up_to_ = written;
}

}  // namespace tandem
