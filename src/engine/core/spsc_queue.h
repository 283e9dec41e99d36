// A fixed queue between two threads: one puts, one takes. Neither ever waits, locks or allocates.
// Threads: push() from the one producer, pop() from the one consumer, at the same time.
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <utility>

namespace tandem {

template <class T, std::size_t Capacity>
class SpscQueue {
  static_assert((Capacity & (Capacity - 1)) == 0, "the capacity is a power of two");

 public:
  // False if the queue is full; the item is then not taken.
  [[nodiscard]] bool push(const T& item) noexcept {
    const std::size_t tail = tail_.load(std::memory_order_relaxed);
    if (tail - head_.load(std::memory_order_acquire) == Capacity) return false;
    items_[tail & (Capacity - 1)] = item;
    tail_.store(tail + 1, std::memory_order_release);
    return true;
  }

  // False if the queue is empty; the item is then untouched.
  [[nodiscard]] bool pop(T& item) noexcept {
    const std::size_t head = head_.load(std::memory_order_relaxed);
    if (head == tail_.load(std::memory_order_acquire)) return false;
    item = items_[head & (Capacity - 1)];
    head_.store(head + 1, std::memory_order_release);
    return true;
  }

  // Seen from either side; the other may change it at once.
  bool empty() const noexcept { return head_.load(std::memory_order_acquire) == tail_.load(std::memory_order_acquire); }

 private:
  std::array<T, Capacity> items_{};
  alignas(64) std::atomic<std::size_t> head_{0};
  alignas(64) std::atomic<std::size_t> tail_{0};
};

}  // namespace tandem
