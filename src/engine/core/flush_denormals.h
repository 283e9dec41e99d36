// While it lives, this thread's floating-point unit takes numbers too small to be normal as 0: the tails of filters
// would otherwise slow the sound chain down a hundredfold.
#pragma once

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace tandem {

class FlushDenormals {
 public:
#if defined(__SSE__)
  FlushDenormals() noexcept : saved_(_mm_getcsr()) { _mm_setcsr(saved_ | kFlushToZero | kDenormalsAreZero); }
  ~FlushDenormals() { _mm_setcsr(saved_); }

 private:
  static constexpr unsigned kFlushToZero = 0x8000;
  static constexpr unsigned kDenormalsAreZero = 0x0040;
  unsigned saved_;

 public:
#else
  FlushDenormals() noexcept {}  // NOLINT(modernize-use-equals-default): keeps the object from being "unused"
#endif
  FlushDenormals(const FlushDenormals&) = delete;
  FlushDenormals& operator=(const FlushDenormals&) = delete;
};

}  // namespace tandem
