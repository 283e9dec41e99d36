// A sound card for tests, as an ALSA plug-in: it plays at the pace of the clock, records what it plays, and fails on
// request. The plug-in is loaded into the test's process; both use the one AlsaTestDesk.
#pragma once

#include <atomic>
#include <mutex>
#include <vector>

#include "engine/device/output_ring.h"

namespace tandem {

struct AlsaTestDesk {
  enum class Fault {
    kNone,
    kUnderrun,   // once
    kSuspended,  // once
    kGone        // unplugged, as long as it is set
  };
  std::atomic<Fault> fault{Fault::kNone};
  std::atomic<int> opened{0};  // how often
  std::mutex mutex;
  std::vector<Sample16> recording;  // guarded by mutex
};

// The plug-in's desk, under this name with C linkage: AlsaTestDesk* alsa_test_desk().
using FindAlsaTestDesk = AlsaTestDesk* (*)();

}  // namespace tandem
