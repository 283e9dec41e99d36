#include "displays/spectrum/band_map.h"

#include <gtest/gtest.h>

#include <numeric>

namespace tandem {
namespace {

std::vector<float> raised(const BandMap& map, const std::vector<float>& bins) {
  std::vector<float> bands(map.bands());
  map.raise(bins, bands);
  return bands;
}

TEST(BandMap, SharesEveryBinAmongTheBandsThatItLiesIn) {
  BandMap map;
  map.prepare(std::vector{40.0, 75.0, 130.0, 200.0}, 10.0, 64);
  EXPECT_EQ(map.bands(), 3U);
  std::vector<float> bins(64, 1.0F);
  const auto bands = raised(map, bins);
  EXPECT_NEAR(bands[0], 3.5, 1e-5);
  EXPECT_NEAR(bands[1], 5.5, 1e-5);
  EXPECT_NEAR(bands[2], 7.0, 1e-5);
  for (std::size_t lit = 5; lit < 19; ++lit) {
    std::vector<float> one(64);
    one[lit] = 1.0F;
    const auto parts = raised(map, one);
    EXPECT_NEAR(std::accumulate(parts.begin(), parts.end(), 0.0F), 1.0F, 1e-5) << "no power is lost at bin " << lit;
  }
}

TEST(BandMap, ANarrowBandIsThreeBinsWide) {
  BandMap map;
  map.prepare(std::vector{100.0, 104.0}, 10.0, 64);
  EXPECT_NEAR(raised(map, std::vector<float>(64, 1.0F))[0], 3.0F, 1e-5);
}

TEST(BandMap, KeepsWhatIsGreater) {
  BandMap map;
  map.prepare(std::vector{40.0, 80.0}, 10.0, 64);
  std::vector<float> bands{100.0F};
  map.raise(std::vector<float>(64, 1.0F), bands);
  EXPECT_EQ(bands[0], 100.0F);
}

TEST(BandMap, StaysWithinTheBins) {
  BandMap map;
  for (const double low : {0.0, 1.0, 600.0, 639.0, 5000.0}) {
    map.prepare(std::vector{low, low + 5.0}, 10.0, 64);
    EXPECT_LE(map.end_bin(), 64U);
    EXPECT_GE(map.first_bin(), 1U) << "nothing of 0 Hz";
  }
  map.prepare({}, 10.0, 64);
  EXPECT_EQ(map.bands(), 0U);
  EXPECT_EQ(map.end_bin(), 0U);
}

}  // namespace
}  // namespace tandem
