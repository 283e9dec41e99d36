// How alive the spectrum is with music, for displays_bench.
#pragma once

namespace tandem {

// Prints what the spectrum does over a minute of a WAV file (16 bits, stereo, 44.1 kHz) from that second on, a line for
// each state of the board, and whether that is alive: mean height 25 to 60 %, every column with sound between 50 Hz and
// 14 kHz with a standard deviation of at least 8 % of the height, less than 3 % of the readings at the top, all of it
// at rest in silence. Exit status: 1 if it is not in some state, or if the file cannot be read.
int print_movement(const char* path, double second);

}  // namespace tandem
