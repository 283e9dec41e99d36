// Files of real encoders against what they were made of. Prints one table.
#include <gtest/gtest.h>

#include <cstdio>

#include "engine/decode/encoded_songs.h"

namespace tandem::test {
namespace {

class Gapless : public testing::TestWithParam<Encoded> {
 protected:
  static void SetUpTestSuite() {
    std::printf("%-46s %6s %13s %13s\n", "encoder", "rate", "first sample", "last sample");
  }

  void SetUp() override {
    ASSERT_NO_THROW(edges_ = edges_of(GetParam()));
    std::printf("%-46s %6d %+13lld %+13lld\n", text_of(GetParam()).c_str(), GetParam().rate,
                static_cast<long long>(edges_.first), static_cast<long long>(edges_.last));
  }

  Edges edges_;
};

TEST_P(Gapless, FirstAndLastSampleStandWhereTheyBelong) {
  if (GetParam().noted == Noted::kEdges) {
    EXPECT_EQ(edges_.first, 0);
    EXPECT_EQ(edges_.last, 0);
    return;
  }
  // Without a note what the encoder put in cannot be known. It stays, but nothing else comes in and nothing is lost.
  const Frames frame = Frames{1152} * kSampleRate / GetParam().rate;
  EXPECT_GE(edges_.first, 0);
  EXPECT_LE(edges_.first, frame + 529 * kSampleRate / GetParam().rate);
  EXPECT_GE(edges_.last, GetParam().kind == "mp2" ? -frame : -1);  // such encoders may drop what fills no frame
  EXPECT_LE(edges_.last, 2 * frame);
}

INSTANTIATE_TEST_SUITE_P(Encoders, Gapless, testing::ValuesIn(encoded_songs()), [](const auto& each) {
  std::string name = text_of(each.param) + " " + std::to_string(each.param.rate);
  for (char& letter : name) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0) letter = '_';
  }
  return name;
});

}  // namespace
}  // namespace tandem::test
