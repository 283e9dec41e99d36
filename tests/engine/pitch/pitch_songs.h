// Songs with attacks for the tests and the measuring of the pitch stage. The same at every call.
#pragma once

#include <numbers>
#include <vector>

#include "engine/core/frames.h"

namespace tandem {

inline constexpr double kTurn = 2.0 * std::numbers::pi;  // radians

struct AttackSong {
  std::vector<StereoFrame> sound;
  std::vector<double> times;  // of the attacks, in seconds
};

std::vector<StereoFrame> one_tone(double hz, double seconds);  // -6 dB of full scale in both channels

// Four voices with four partials each, spread between the channels.
std::vector<StereoFrame> chord(double seconds);
std::vector<double> chord_partials();  // Hz

AttackSong impulses(float level);           // 30 single frames in silence
AttackSong impulses_in_chord(float level);  // and in the chord
AttackSong hats_in_music();                 // hi-hats eight times a second over chord, bass and some noise
AttackSong drums_in_music();                // bass drum and snare in turn, four times a second, over the chord

}  // namespace tandem
