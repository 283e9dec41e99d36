#include <gtest/gtest.h>

#include <atomic>
#include <thread>

#include "engine/equalizer/band_equalizer_rig.h"
#include "engine/equalizer/filter_worker.h"

namespace tandem {
namespace {

using namespace equalizer_test;

// The user drags a slider while the sound runs.
TEST(BandEqualizerThreads, TakesFiltersWhileTheSoundRuns) {
  FilterWorker designer(true);
  std::atomic<bool> dragging{true};
  std::thread sound_thread([&] {
    BandEqualizer equalizer;
    Sound step = seeded_noise(kStepFrames, 13);
    const auto give_back_all = [&] {
      while (const EqualizerFilter* const filter = equalizer.take_retired()) designer.give_back(filter);
    };
    const auto run_step = [&] {
      const EqualizerFilter* next = nullptr;
      if (designer.take(next)) equalizer.adopt(next);
      equalizer.process(step);
      give_back_all();
    };
    while (dragging.load()) run_step();
    equalizer.adopt(nullptr);
    for (int i = 0; i < 10; ++i) equalizer.process(step);
    give_back_all();
  });
  for (int move = 0; move < 150; ++move) {
    designer.request(bands_of(move % 13, 0, -(move % 7)), move % 10 == 9);
    while (designer.designs() * 10 < move) std::this_thread::yield();
  }
  dragging.store(false);
  sound_thread.join();
  EXPECT_GE(designer.designs(), 14);
}

}  // namespace
}  // namespace tandem
