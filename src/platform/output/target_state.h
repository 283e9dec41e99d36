// What the commands given to an output so far add up to: which device should be open, and whether it should take
// sound. A pure state machine without a thread of its own. The UI thread applies the commands and publishes the result;
// the thread that serves the device compares it with what is.
#pragma once

#include <cstdint>

namespace tandem {

class TargetState {
 public:
  void open(int buffer_bytes);  // the size is clamped to 256 ... 65536 and rounded down to whole frames
  // `written`: the frames that the ring has been given so far; what lies before them is still played.
  void close(std::uint64_t written);
  void start(std::uint64_t written);  // opens a closed device with its last size
  void stop(std::uint64_t written);
  void pause(std::uint64_t written);  // only what was started can be paused
  void restart(std::uint64_t written);
  void set_queue_length(int buffers);  // clamped to 1 ... Output::kMaxQueuedBuffers

  bool is_open() const noexcept { return open_; }
  bool wants_sound() const noexcept { return open_ && started_ && !paused_; }
  int buffer_bytes() const noexcept { return buffer_bytes_; }
  int queue_length() const noexcept { return queue_length_; }  // in buffers
  // Changes whenever a device opened before is no longer the one that is asked for.
  std::uint32_t generation() const noexcept { return generation_; }
  // While sound is not wanted: what the ring was given up to here is still to be played.
  std::uint64_t play_up_to() const noexcept { return play_up_to_; }

 private:
  void set_running(bool started, bool paused, std::uint64_t written);

  // Without padding, so that it can be published in whole words.
  std::int32_t buffer_bytes_ = 5120;
  std::int32_t queue_length_ = 2;
  std::uint32_t generation_ = 0;
  bool open_ = false;
  bool started_ = false;
  bool paused_ = false;
  [[maybe_unused]] bool filler_ = false;
  std::uint64_t play_up_to_ = 0;
};
static_assert(sizeof(TargetState) == 24);

}  // namespace tandem
