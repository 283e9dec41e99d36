// Nothing that the render thread calls in the pitch stage allocates or frees: the C library's allocation functions are
// taken over by this program and counted while a thread is armed.
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <random>

#include "engine/pitch/pitch_deck.h"
#include "engine/pitch/pitch_signals.h"

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define TANDEM_COUNTS_ALLOCATION 0
#else
#define TANDEM_COUNTS_ALLOCATION 1
#endif

namespace {

thread_local bool armed = false;
thread_local int counted = 0;

[[maybe_unused]] void count_call() noexcept { counted += armed ? 1 : 0; }

}  // namespace

#if TANDEM_COUNTS_ALLOCATION
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming)
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* old, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

void* malloc(std::size_t size) noexcept {
  count_call();
  return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size) noexcept {
  count_call();
  return __libc_calloc(count, size);
}
void* realloc(void* old, std::size_t size) noexcept {
  count_call();
  return __libc_realloc(old, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  count_call();
  return __libc_memalign(alignment, size);
}
int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  count_call();
  *block = __libc_memalign(alignment, size);
  return *block == nullptr ? ENOMEM : 0;
}
void free(void* block) noexcept {
  count_call();
  __libc_free(block);
}
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)
#endif

namespace tandem {
namespace {

class PitchMemory : public testing::Test {
 protected:
  void SetUp() override {
    if (TANDEM_COUNTS_ALLOCATION == 0) GTEST_SKIP() << "the sanitizer has the allocation functions";
  }

  // Runs something as the render thread would; returns how often it allocated or freed.
  template <class Work>
  static int calls_in(Work work) {
    counted = 0;
    armed = true;
    work();
    armed = false;
    return counted;
  }
};

TEST_F(PitchMemory, EveryAllocationIsCounted) {
  // Called by name, which no compiler may leave out.
  const int calls = calls_in([] { ::operator delete(::operator new(1000)); });
  EXPECT_EQ(calls, 2);
}

// A deck in every situation: values that move, seeks, blocks of any size, a ring that runs dry, the end of the song.
TEST_F(PitchMemory, TheRenderThreadNeitherAllocatesNorFrees) {
  const Sound song = noise(40 * 44100);
  std::vector<StereoFrame> block(kStepFrames);
  for (unsigned seed = 0; seed < 4; ++seed) {
    std::mt19937 random(seed);
    DeckRing ring;
    PitchStage stage;
    std::size_t written = 0;
    int calls = 0;
    std::size_t given = 0;
    while (written < song.size() || ring.readable() > 0) {
      const std::size_t count = std::min({song.size() - written, ring.writable(), random() % 460});
      ring.write(std::span(song).subspan(written, count));
      written += count;
      const float value = random() % 3 == 0 ? 0.0F : static_cast<float>(random() % 41) - 20.0F;
      const auto event = random() % 40;
      PitchShifter* fresh = event < 4 ? new PitchShifter : nullptr;
      PitchShifter* retired[4] = {};
      const std::uint64_t end = written == song.size() ? written : PitchStage::kEndUnknown;
      calls += calls_in([&] {
        if (event < 3) stage.change(value, fresh);
        if (event == 3) stage.clear(value, fresh);
        given += stage.process(ring, end, std::span(block).first(1 + random() % kStepFrames));
        for (PitchShifter*& shifter : retired) shifter = stage.take_retired();
      });
      for (PitchShifter* shifter : retired) delete shifter;
      if (stage.at_end(ring, end)) break;
    }
    EXPECT_EQ(calls, 0);
    EXPECT_GT(given, song.size() / 2);
  }
}

}  // namespace
}  // namespace tandem
