// Who may read the ring: it has one reader, while two outputs (a sound server's and ALSA's) may stand by for it.
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
