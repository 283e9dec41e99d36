// A test of what is found in a file of given bytes.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "engine/decode/song_file.h"
#include "support/temp_directory.h"

namespace tandem::test {

class SongFileTest : public testing::Test {
 protected:
  std::shared_ptr<const SongFile> file(const Bytes& content) {
    write_file(directory_.file("song"), content);
    return SongFile::open(directory_.file("song"));
  }

  TempDirectory directory_;
};

}  // namespace tandem::test
