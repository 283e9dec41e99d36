// A player with three songs of 5 s, that overlap by a second.
#pragma once

#include <gtest/gtest.h>

#include "program/player_rig.h"
#include "program/songs.h"
#include "support/wav_writer.h"

namespace tandem::test {

class ThreeSongsTest : public testing::Test {
 protected:
  static constexpr int kLead = 1000;

  ThreeSongsTest() {
    rig_.choose_lead(kLead);
    for (const char* name : {"a.wav", "b.wav", "c.wav"})
      rig_.add(rig_.make_file(name, wav_file(tones(5.0, 440, 0.3), Encoding::kInt16)));
  }

  PlayerRig rig_;
};

}  // namespace tandem::test
