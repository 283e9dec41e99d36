// While it lives, this thread's floating-point unit takes numbers too small to be normal as 0: the tails of filters
// would otherwise slow the sound chain down a hundredfold. Does nothing on processors other than x86 and 64-bit ARM.
// Sources: Intel 64 and IA-32 manual, volume 1, 10.2.3 (MXCSR: FTZ, DAZ); Arm Architecture Reference Manual, FPCR.FZ.
#pragma once

#include <cstdint>

#if defined(__SSE__)
#include <xmmintrin.h>
#endif

namespace tandem {

class FlushDenormals {
 public:
  FlushDenormals() noexcept : saved_(control()) { set_control(saved_ | kFlush); }
  ~FlushDenormals() { set_control(saved_); }
  FlushDenormals(const FlushDenormals&) = delete;
  FlushDenormals& operator=(const FlushDenormals&) = delete;

 private:
#if defined(__SSE__)
  static constexpr std::uint32_t kFlush = 0x8000 | 0x0040;  // results to zero, operands as zero
  static std::uint32_t control() noexcept { return _mm_getcsr(); }
  static void set_control(std::uint32_t bits) noexcept { _mm_setcsr(bits); }
  std::uint32_t saved_;
#elif defined(__aarch64__)
  static constexpr std::uint64_t kFlush = std::uint64_t{1} << 24;  // operands and results
  static std::uint64_t control() noexcept {
    std::uint64_t bits = 0;
    __asm__ volatile("mrs %0, fpcr" : "=r"(bits));
    return bits;
  }
  static void set_control(std::uint64_t bits) noexcept { __asm__ volatile("msr fpcr, %0" : : "r"(bits)); }
  std::uint64_t saved_;
#else
  static constexpr unsigned kFlush = 0;
  static unsigned control() noexcept { return 0; }
  static void set_control(unsigned /*bits*/) noexcept {}
  unsigned saved_;
#endif
};

}  // namespace tandem
