#include "bench/spectrum_movement.h"

#include <cstdio>
#include <vector>

#include "bench/piece_of_music.h"
#include "displays/spectrum_movement.h"

namespace tandem {

namespace {

void print(const SpectrumMovement& movement) {
  std::printf("%-15s %6.1f %% %8.1f %% %7.0f Hz %8.1f %% %8zu %8.2f %%   %-7s  %s\n", movement.state,
              100.0 * movement.mean, 100.0 * movement.weakest, movement.weakest_hz, 100.0 * movement.median,
              movement.columns, 100.0 * movement.at_top, movement.rests ? "rests" : "MOVES",
              movement.alive() ? "alive" : "MISSES");
}

}  // namespace

int print_movement(const char* path, double second) {
  const std::vector<SoundFrame> sound = piece_of_music(path, second, 60.0);
  if (sound.empty()) {
    std::fprintf(stderr, "%s: no WAV file of 16 bits, stereo, 44.1 kHz\n", path);
    return 1;
  }
  std::printf("%-15s %8s %10s %10s %10s %8s %10s   %s\n", "", "mean", "weakest", "at", "median", "columns", "at top",
              "silence");
  bool all = true;
  for (const SpectrumMovement& movement : spectrum_movement(sound)) {
    print(movement);
    all = all && movement.alive();
  }
  return all ? 0 : 1;
}

}  // namespace tandem
