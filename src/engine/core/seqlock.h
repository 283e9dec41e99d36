// A small value that one thread publishes and any other may read, without locks: a sequence lock over atomic words,
// after H.-J. Boehm, "Can seqlocks get along with programming language memory models?" (MSPC 2012), with ordered word
// accesses in place of fences. A read may fail while the publisher is in the middle of writing; the reader then keeps
// what it had.
#pragma once

#include <array>
#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

namespace tandem {

template <class T>
class SeqLock {
  static_assert(std::is_trivially_copyable_v<T> && sizeof(T) % sizeof(std::uint64_t) == 0);
  static constexpr std::size_t kWords = sizeof(T) / sizeof(std::uint64_t);
  using Words = std::array<std::uint64_t, kWords>;

 public:
  SeqLock() : SeqLock(T()) {}
  explicit SeqLock(const T& value) { publish(value); }

  void publish(const T& value) noexcept {  // the one publishing thread
    const Words words = std::bit_cast<Words>(value);
    const std::uint32_t sequence = sequence_.load(std::memory_order_relaxed);
    sequence_.store(sequence + 1, std::memory_order_relaxed);
    // Released: a reader that sees a new word also sees that the sequence is odd.
    for (std::size_t i = 0; i < kWords; ++i) words_[i].store(words[i], std::memory_order_release);
    sequence_.store(sequence + 2, std::memory_order_release);
  }

  bool try_read(T& value) const noexcept {  // any thread
    const std::uint32_t before = sequence_.load(std::memory_order_acquire);
    if ((before & 1U) != 0) return false;
    Words words;
    for (std::size_t i = 0; i < kWords; ++i) words[i] = words_[i].load(std::memory_order_acquire);
    if (sequence_.load(std::memory_order_relaxed) != before) return false;
    value = std::bit_cast<T>(words);
    return true;
  }

 private:
  std::atomic<std::uint32_t> sequence_{0};
  std::array<std::atomic<std::uint64_t>, kWords> words_{};
};

}  // namespace tandem
