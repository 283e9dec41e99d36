// Files of real encoders (lame, ffmpeg, sox) for the test and the measuring of their edges: what the source's first and
// last sample become. One thread.
#pragma once

#include <string>
#include <vector>

#include "engine/core/frames.h"

namespace tandem::test {

enum class Noted { kEdges, kNothing };  // what the file says of the encoder's delay and padding

struct Encoded {
  std::string encoder;               // lame, ffmpeg or sox
  std::vector<std::string> options;  // of it
  int rate = kSampleRate;
  std::string kind = "mp3";  // the file's ending
  Noted noted = Noted::kEdges;
};

// Constant, variable and average bit rates, free format, with and without information frame, all sample rates.
std::vector<Encoded> encoded_songs();
std::string text_of(const Encoded& each);

struct Edges {
  Frames first = 0;  // by which the source's first sample is late
  Frames last = 0;   // that are heard after its last one
};
// Makes the file and reads it. Throws std::runtime_error if the encoder cannot be run or the file cannot be read whole.
Edges edges_of(const Encoded& each);

}  // namespace tandem::test
