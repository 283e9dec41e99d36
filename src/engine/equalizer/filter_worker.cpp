#include "engine/equalizer/filter_worker.h"

#include <utility>

#include "engine/core/thread_name.h"

namespace tandem {

namespace {

// What finished_ holds when it is not the address of a filter, which is never so low.
constexpr std::uintptr_t kNothingNew = 0;
constexpr std::uintptr_t kNoFilter = 1;

std::uintptr_t to_word(const EqualizerFilter* filter) {
  return filter == nullptr ? kNoFilter : reinterpret_cast<std::uintptr_t>(filter);
}

const EqualizerFilter* to_filter(std::uintptr_t word) {
  return word <= kNoFilter ? nullptr
                           : reinterpret_cast<const EqualizerFilter*>(word);  // NOLINT(performance-no-int-to-ptr)
}

}  // namespace

FilterWorker::FilterWorker(bool threaded) : threaded_(threaded) {
  if (threaded) worker_ = std::thread([this] { work(); });
}

FilterWorker::~FilterWorker() {
  if (worker_.joinable()) {
    {
      const std::lock_guard lock(mutex_);
      stopping_ = true;
    }
    changed_.notify_one();
    worker_.join();
  }
  free_returned();
  delete to_filter(finished_.load(std::memory_order_acquire));
}

void FilterWorker::request(std::span<const EqualizerBand> bands, bool bypassed) {
  free_returned();
  Request request{{bands.begin(), bands.end()}, bypassed};
  {
    const std::lock_guard lock(mutex_);
    wanted_ = std::move(request);
  }
  changed_.notify_one();
}

bool FilterWorker::take(const EqualizerFilter*& out) noexcept {
  if (!threaded_ && wanted_) publish(*std::exchange(wanted_, std::nullopt));
  if (finished_.load(std::memory_order_relaxed) == kNothingNew) return false;
  out = to_filter(finished_.exchange(kNothingNew, std::memory_order_acquire));
  return true;
}

void FilterWorker::give_back(const EqualizerFilter* retired) noexcept {
  if (retired == nullptr) return;
  const EqualizerFilter* head = returned_.load(std::memory_order_relaxed);
  do {
    retired->next_retired = head;
  } while (!returned_.compare_exchange_weak(head, retired, std::memory_order_release, std::memory_order_relaxed));
}

void FilterWorker::free_returned() noexcept {
  const EqualizerFilter* filter = returned_.exchange(nullptr, std::memory_order_acquire);
  while (filter != nullptr) delete std::exchange(filter, filter->next_retired);
}

void FilterWorker::work() {
  name_this_thread("tandem-filter");
  std::unique_lock lock(mutex_);
  while (true) {
    changed_.wait(lock, [this] { return stopping_ || wanted_; });
    if (stopping_) return;
    const Request request = *std::exchange(wanted_, std::nullopt);
    lock.unlock();
    publish(request);
    lock.lock();
  }
}

void FilterWorker::publish(const Request& request) {
  const EqualizerFilter* const filter = request.bypassed ? nullptr : design_filter(request.bands).release();
  designs_.fetch_add(1, std::memory_order_acq_rel);
  // A filter that the render thread has not taken is out of date and goes unheard.
  delete to_filter(finished_.exchange(to_word(filter), std::memory_order_acq_rel));
}

}  // namespace tandem
