// What a short burst makes of the bars, at every length of the transform and every rate of pictures.
#include "displays/spectrum_burst.h"

#include <gtest/gtest.h>

namespace tandem {
namespace {

TEST(SpectrumBurst, OfAMillisecondIsShownWhereverItFalls) {
  for (const int length : {4, 64, 4096})
    for (const double pictures : {30.0, 60.0})
      for (std::size_t begin = 2000; begin < 4000; begin += 97)
        EXPECT_GT(burst_height(length, pictures, begin), 0.6) << length << " " << pictures << " " << begin;
}

}  // namespace
}  // namespace tandem
