// What the orders given so far add up to. No thread of its own: lives on the thread that serves the device.
#pragma once

#include <cstdint>

#include "platform/output/output_commands.h"

namespace tandem {

class TargetState {
 public:
  void apply(const OutputCommand& order);

  bool open() const noexcept { return open_; }
  bool wanted() const noexcept { return open_ && started_ && !paused_; }  // sound is to be taken
  int buffer_bytes() const noexcept { return buffer_bytes_; }
  int depth() const noexcept { return depth_; }
  // Changes whenever a device opened before is no longer the one that is wished for.
  unsigned generation() const noexcept { return generation_; }
  // While sound is not wanted: what the ring was given up to here is still to be played.
  std::uint64_t play_up_to() const noexcept { return play_up_to_; }

 private:
  void open_with(int buffer_bytes);
  void close();
  void set_running(bool started, bool paused, std::uint64_t written);

  bool open_ = false;
  bool started_ = false;
  bool paused_ = false;
  int buffer_bytes_ = 5120;
  int depth_ = 2;
  unsigned generation_ = 0;
  std::uint64_t play_up_to_ = 0;
};

}  // namespace tandem
