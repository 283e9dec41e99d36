// What the UI thread asks a deck's reader for, and the reader's answers. Each request replaces the one before it.
// Threads: open(), put(), seek(), close() and take_answer() on the UI thread, answer() on the reader thread, the rest
// on either. Nothing blocks for longer than the other thread needs to copy a name.
#pragma once

#include <atomic>
#include <cstdint>
#include <mutex>
#include <optional>
#include <string>

#include "engine/core/frames.h"

namespace tandem {

class ReaderMailbox {
 public:
  struct Request {
    std::uint32_t generation = 0;
    std::optional<std::string> name;  // none: the song that is open
    Frames frame = 0;
  };
  struct Answer {  // how opening went
    std::uint32_t generation = 0;
    bool refused = false;
  };

  void open(std::uint32_t generation, const std::string& name);
  void put(Request request);  // one with a name
  // A name that has not been opened yet is opened at the new place.
  void seek(std::uint32_t generation, Frames frame);
  void close() noexcept { closed_.store(true, std::memory_order_release); }  // the reader is not needed any more
  std::optional<Answer> take_answer();

  std::optional<Request> take_request();
  void answer(const Answer& answer);
  bool closed() const noexcept { return closed_.load(std::memory_order_acquire); }
  // Whether a request of any kind, or one with a name, waits to be taken.
  bool has_request() const noexcept { return asked_.load(std::memory_order_acquire); }
  bool has_name() const noexcept { return named_.load(std::memory_order_acquire); }

 private:
  std::mutex mutex_;
  std::optional<Request> request_;
  std::optional<Answer> answer_;
  std::atomic<bool> asked_{false};
  std::atomic<bool> named_{false};
  std::atomic<bool> answered_{false};
  std::atomic<bool> closed_{false};
};

}  // namespace tandem
