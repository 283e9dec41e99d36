// Clicks: what a jump in a low tone leaves above 5 kHz.
#pragma once

#include <cstddef>
#include <span>

#include "engine/device/output_ring.h"
#include "support/signal.h"

namespace tandem::test {

inline constexpr double kNoClick = 0.001;  // -60 dB of full scale

// A tone far below 5 kHz, of half full scale.
Signal low_tone(double seconds);

// The greatest sample above 5 kHz within [from, to) of the left channel, full scale 1. Before the sound's first frame
// and after its last one there is silence, so that a sound that breaks off clicks too.
double click(std::span<const Sample16> sound, std::size_t from, std::size_t to);

}  // namespace tandem::test
