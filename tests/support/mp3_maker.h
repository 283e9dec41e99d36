// Makes MPEG audio files with the programs lame (Layer III) and sox (Layer II), and frames of Layer I on its own.
#pragma once

#include <string>
#include <vector>

#include "support/bytes.h"
#include "support/signal.h"

namespace tandem::test {

// Options as lame takes them, for instance {"-V2"} or {"-b", "128", "-t"} (-t: without information frame).
Bytes make_mp3(const Signal& signal, const std::vector<std::string>& options);

Bytes make_layer2(const Signal& signal);

// `count` frames of MPEG 1 Layer I, 44.1 kHz, mono, 128 kbit/s, that sound in one subband.
Bytes make_layer1(int count);

// An ID3v2.3 tag of `size` bytes in all, filled with bytes that look like frame headers; flags as in its header.
Bytes make_id3v2(std::size_t size, std::uint8_t flags = 0);
Bytes make_id3v1();
Bytes make_ape();      // with header and footer
Bytes make_lyrics3();  // version 2

}  // namespace tandem::test
