// What is measured on a sound that has gone through the pitch stage. `ratio`: frequency given / frequency of the song.
#pragma once

#include <span>
#include <vector>

#include "engine/core/frames.h"
#include "engine/pitch/pitch_songs.h"

namespace tandem {

// The energy further than 12 Hz from all the frequencies against the whole energy, in dB; over 1.5 s in the middle.
double off_tone_db(std::span<const StereoFrame> sound, std::span<const double> frequencies);

// The level of a tone in the left channel against one of half of full scale, in dB; over 0.4 s in the middle.
double tone_db(std::span<const StereoFrame> sound, double hz);

// The greatest and the least level of 10 ms against the mean of `reference`, in dB.
struct LevelRange {
  double least;
  double greatest;
};
LevelRange levels_db(std::span<const StereoFrame> sound, std::span<const StereoFrame> reference);

// How attacks are looked at: the band of the song in which they stand out, in Hz, and how long they are, in seconds.
struct AttackBand {
  double low;
  double high;
  double window;
};
inline constexpr AttackBand kImpulseBand{4000.0, 14000.0, 0.002};
inline constexpr AttackBand kHatBand{6000.0, 14000.0, 0.005};
inline constexpr AttackBand kDrumBand{3000.0, 14000.0, 0.005};

struct AttackReport {
  int lost = 0;                // more than 6 dB weaker than in the song
  int doubled = 0;             // heard a second time within 40 ms, less than 6 dB weaker
  double worst_loss_db = 0.0;  // of the loudest window at an attack, 0 or negative
  double mean_error_ms = 0.0;  // between the times when the attack rises in the song and in the sound
  double worst_error_ms = 0.0;
};
AttackReport compare_attacks(const AttackSong& song, std::span<const StereoFrame> sound, double ratio,
                             const AttackBand& band);

}  // namespace tandem
