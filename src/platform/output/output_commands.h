// The orders to an output on their way from the UI thread to the thread that serves the device.
// Threads: post() and wake() from any thread, they never wait for a device (a lock is held only to append);
// take() on the serving thread. fd() becomes readable when there is something to take.
#pragma once

#include <cstdint>
#include <mutex>
#include <vector>

namespace tandem {

struct OutputCommand {
  enum class Kind { kOpen, kClose, kStart, kStop, kPause, kRestart, kDepth };
  Kind kind = Kind::kClose;
  int value = 0;              // kOpen: bytes of a buffer; kDepth: buffers
  std::uint64_t written = 0;  // frames that the ring had been given when the order was given
};

class OutputCommands {
 public:
  OutputCommands();  // throws std::system_error if the system has no descriptor left
  ~OutputCommands();
  OutputCommands(const OutputCommands&) = delete;
  OutputCommands& operator=(const OutputCommands&) = delete;

  void post(const OutputCommand& order);
  void wake() noexcept;
  std::vector<OutputCommand> take();  // in the order given; resets fd()
  int fd() const noexcept { return fd_; }

 private:
  int fd_;
  std::mutex mutex_;
  std::vector<OutputCommand> waiting_;
};

}  // namespace tandem
