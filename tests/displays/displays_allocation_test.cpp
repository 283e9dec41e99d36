// A picture costs no allocation: every `new` of this program is counted.
#include <gtest/gtest.h>

#include <cstdlib>
#include <new>

#include "displays/enabled_display.h"
#include "displays/meters/level_bar.h"
#include "displays/meters/needle_meter.h"
#include "displays/scope/oscilloscope.h"
#include "displays/spectrum/spectrum_analyser.h"
#include "displays/tones.h"

namespace {
std::size_t allocations = 0;
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kCounts = false;  // the sanitizer has its own
#else
constexpr bool kCounts = true;
#endif
}  // namespace

#if !defined(__SANITIZE_ADDRESS__) && !defined(__SANITIZE_THREAD__)
void* operator new(std::size_t size) {
  ++allocations;
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
#endif

namespace tandem {
namespace {

std::size_t allocations_of(SoundDisplay& display, const Sound& sound) {
  Screen screen(display, sound);
  const std::size_t before = allocations;
  screen.run(2.0);
  return allocations - before;
}

TEST(Displays, DoNotAllocateForAPicture) {
  if (!kCounts) GTEST_SKIP() << "the sanitizer has the allocation functions";
  Sound sound = sine(frames_in(1.0), 997.0);
  sound.resize(frames_in(2.0));
  const std::size_t before = allocations;
  SpectrumAnalyser analyser;
  EXPECT_GT(allocations, before) << "the counter counts";
  analyser.put_Enabled(true);
  analyser.put(SpectrumSetting::DrawPeaks, 1);
  for (const int kind : {3, 5})
    for (const int length : {4, 64, 4096}) {
      analyser.put(SpectrumSetting::Kind, kind);
      analyser.put(SpectrumSetting::FFTLength, length);
      EXPECT_EQ(allocations_of(analyser, sound), 0U) << length;
    }
  auto needle = enabled<NeedleMeter>(0U);
  auto bar = enabled<LevelBar>();
  auto scope = enabled<Oscilloscope>();
  EXPECT_EQ(allocations_of(needle, sound), 0U);
  EXPECT_EQ(allocations_of(bar, sound), 0U);
  EXPECT_EQ(allocations_of(scope, sound), 0U);
}

}  // namespace
}  // namespace tandem
