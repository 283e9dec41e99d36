// The right to read the ring, which has a single reader: passed between two outputs (sound server and ALSA).
// Any thread, no lock.
#pragma once

#include <atomic>

namespace tandem {

class RingReaderToken {
 public:
  bool take() noexcept { return !taken_.exchange(true, std::memory_order_acq_rel); }
  void give_back() noexcept { taken_.store(false, std::memory_order_release); }

 private:
  std::atomic<bool> taken_{false};
};

}  // namespace tandem
