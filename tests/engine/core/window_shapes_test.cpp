#include "engine/core/window_shapes.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

TEST(WindowShapes, TheBesselFunctionIsThatOfTheStandardLibrary) {
  EXPECT_EQ(bessel_i0(0.0), 1.0);
  for (double x = 0.01; x < 30.0; x += 0.01) EXPECT_NEAR(bessel_i0(x) / std::cyl_bessel_i(0.0, x), 1.0, 1e-14) << x;
}

TEST(WindowShapes, KaisersWindowIsOneInTheMiddleAndLeastAtEitherEnd) {
  EXPECT_DOUBLE_EQ(kaiser_window(0.0, 10.0), 1.0);
  EXPECT_DOUBLE_EQ(kaiser_window(1.0, 10.0), 1.0 / bessel_i0(10.0));
  for (double place = 0.0; place < 0.99; place += 0.01) {
    EXPECT_GT(kaiser_window(place, 10.0), kaiser_window(place + 0.01, 10.0)) << place;
    EXPECT_DOUBLE_EQ(kaiser_window(-place, 10.0), kaiser_window(place, 10.0)) << place;
  }
}

}  // namespace
}  // namespace tandem
