// Designs equalizer filters on a thread of its own: takes band gains from the UI thread and passes the finished filter
// to the render thread, which gives it back to be freed.
// Threads: construction, request() and destruction on the UI thread; take() and give_back() on the render thread.
// With threaded = false (simulated time) there is one thread, and take() designs by itself and may allocate.
// The render thread never waits, locks or allocates here: it exchanges single pointers.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <optional>
#include <span>
#include <thread>
#include <vector>

#include "engine/equalizer/filter_design.h"

namespace tandem {

class FilterWorker {
 public:
  explicit FilterWorker(bool threaded);
  ~FilterWorker();  // after the render thread's last call; frees what was given back or never taken
  FilterWorker(const FilterWorker&) = delete;
  FilterWorker& operator=(const FilterWorker&) = delete;

  // Asks for the filter of these bands, or for none at all if bypassed. Returns at once. Of requests that come while
  // one is being designed only the latest is designed. Frees what was given back.
  void request(std::span<const EqualizerBand> bands, bool bypassed);

  // True if there is a newer filter than the last one taken: out is then it, nullptr for none (flat or bypassed).
  // The caller owns it until give_back().
  bool take(const EqualizerFilter*& out) noexcept;

  // Takes a filter back (nullptr: nothing); it is freed later, on the UI thread.
  void give_back(const EqualizerFilter* retired) noexcept;

  // Filters designed so far, the flat ones included; any thread.
  std::int64_t designs() const noexcept { return designs_.load(std::memory_order_acquire); }

 private:
  struct Request {
    std::vector<EqualizerBand> bands;
    bool bypassed = false;
  };

  void work();
  void publish(const Request& request);
  void free_returned() noexcept;

  std::mutex mutex_;  // guards wanted_ and stopping_; never taken by the render thread of a threaded worker
  std::condition_variable changed_;
  std::optional<Request> wanted_;
  bool stopping_ = false;

  std::atomic<std::uintptr_t> finished_{0};                // nothing new, none, or a filter: see filter_worker.cpp
  std::atomic<const EqualizerFilter*> returned_{nullptr};  // head of a list linked by next_retired
  std::atomic<std::int64_t> designs_{0};
  bool threaded_;
  std::thread worker_;  // last: starts when all else stands
};

}  // namespace tandem
