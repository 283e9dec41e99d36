// The pitch of a whole sound: ours, and that of the other programs that are installed. One thread.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "sound_report/sound.h"

namespace tandem::report {

struct Shifter {
  std::string name;
  std::function<Sound(const Sound&, int)> shift;  // by fifths of a semitone; empty if the program fails
  bool ours = false;
};

// Ours first.
std::vector<Shifter> pitch_shifters();

}  // namespace tandem::report
