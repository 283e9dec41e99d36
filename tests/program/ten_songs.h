// Ten files of every kind that people have, made once for each test program, and what each of them is decoded to.
#pragma once

#include <string>
#include <vector>

#include "support/signal.h"
#include "support/temp_directory.h"

namespace tandem::test {

struct KnownSong {
  std::string path;
  Sound sound;            // decoded, at 44100 Hz
  Signal signature;       // what was encoded, at 44100 Hz
  bool headless = false;  // no information frame: the encoder's delay is part of the song
};

// MP3: CBR, VBR with and without information frame, mono 22.05 kHz, 48 kHz; WAV: 8, 16, 24 bit, float, 48 kHz.
// 8 seconds each, different ones.
const std::vector<KnownSong>& ten_songs();

}  // namespace tandem::test
