#include "base/natural_order.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tandem {
namespace {

TEST(NaturalOrder, StandsAsPeopleExpect) {
  const std::vector<std::string> ordered{"",  "1.mp3", "2.mp3", "10.mp3", "a 1",     "a 2",          "A 10", "a 10 b",
                                         "b", "B2",    "b10",   "track9", "Track10", "track10 live", "z",    "\xff"};
  for (std::size_t i = 0; i < ordered.size(); ++i)
    for (std::size_t k = 0; k < ordered.size(); ++k)
      EXPECT_EQ(natural_less(ordered[i], ordered[k]), i < k) << ordered[i] << " and " << ordered[k];
}

TEST(NaturalOrder, EqualButForCaseOrZerosComparesByBytes) {
  EXPECT_TRUE(natural_less("A", "a"));
  EXPECT_FALSE(natural_less("a", "A"));
  EXPECT_TRUE(natural_less("01", "1"));
  EXPECT_FALSE(natural_less("1", "01"));
  EXPECT_FALSE(natural_less("a", "a"));
}

TEST(NaturalOrder, ComparesNumbersOfAnyLength) {
  EXPECT_TRUE(natural_less("99999999999999999999998", "99999999999999999999999"));
  EXPECT_TRUE(natural_less("9", "10000000000000000000000"));
}

}  // namespace
}  // namespace tandem
