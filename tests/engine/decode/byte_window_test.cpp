#include "engine/decode/byte_window.h"

#include <gtest/gtest.h>

#include "support/bytes.h"
#include "support/temp_directory.h"

namespace tandem::test {
namespace {

class ByteWindowOfAFile : public testing::Test {
 protected:
  ByteWindowOfAFile() : content_(random_bytes(3 * ByteWindow::kCapacity + 77, 4)) {
    write_file(directory_.file("song"), content_);
  }
  std::shared_ptr<const SongFile> file() const { return SongFile::open(directory_.file("song")); }
  bool shows(ByteWindow& window, std::int64_t offset, std::size_t count) const {
    const std::uint8_t* bytes = window.at(offset, count);
    return bytes != nullptr && std::equal(bytes, bytes + count, content_.begin() + offset);
  }

  TempDirectory directory_;
  Bytes content_;
};

TEST_F(ByteWindowOfAFile, ShowsEveryPlaceInAnyOrder) {
  ByteWindow window(file(), file()->size());
  for (const std::int64_t offset : {0, 65'530, 65'536, 150'000, 149'999, 3, 196'000, 0})
    EXPECT_TRUE(shows(window, offset, 600)) << offset;
  EXPECT_TRUE(shows(window, 12'345, ByteWindow::kCapacity));
}

TEST_F(ByteWindowOfAFile, ShowsNothingThatIsNotThereAsAWhole) {
  ByteWindow window(file(), file()->size());
  const auto size = static_cast<std::int64_t>(content_.size());
  EXPECT_TRUE(shows(window, size - 4, 4));
  EXPECT_EQ(window.at(size - 3, 4), nullptr);
  EXPECT_EQ(window.at(-1, 4), nullptr);
  EXPECT_EQ(window.from(size).size(), 0U);
  EXPECT_EQ(window.from(size - 5).size(), 5U);
}

TEST_F(ByteWindowOfAFile, EndsWhereItIsSaidTo) {
  ByteWindow window(file(), 1000);
  EXPECT_TRUE(shows(window, 990, 10));
  EXPECT_EQ(window.at(990, 11), nullptr);
  EXPECT_EQ(ByteWindow(file(), 1'000'000'000).end(), static_cast<std::int64_t>(content_.size()));
}

}  // namespace
}  // namespace tandem::test
