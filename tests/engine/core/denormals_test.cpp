#include "engine/core/flush_denormals.h"

#include <gtest/gtest.h>

#include <cmath>

namespace tandem {
namespace {

float tenth_of(float value) {
  const volatile float at_run_time = value;
  return at_run_time * 0.1F;
}

TEST(FlushDenormals, TakesTheSmallestNumbersAsNothingWhileItLives) {
  constexpr float kSmallestNormal = 1.17549435e-38F;
  EXPECT_EQ(std::fpclassify(tenth_of(kSmallestNormal)), FP_SUBNORMAL);
#if defined(__SSE__)
  {
    const FlushDenormals flush;
    EXPECT_EQ(tenth_of(kSmallestNormal), 0.0F);
    EXPECT_GT(tenth_of(1.0F), 0.0F);
  }
#endif
  EXPECT_EQ(std::fpclassify(tenth_of(kSmallestNormal)), FP_SUBNORMAL) << "the thread's unit is as it was";
}

}  // namespace
}  // namespace tandem
