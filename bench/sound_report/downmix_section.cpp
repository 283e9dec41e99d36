// Full scale on all channels of a file, brought to stereo.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <span>
#include <vector>

#include "engine/decode/downmix.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace tandem::report {

namespace {

struct Layout {
  const char* name;
  std::size_t channels;
  std::size_t low_frequencies;  // the channel of these, or none
};

constexpr double kRounding = 1e-5;  // dB, of float gains
constexpr std::size_t kNone = 99;
constexpr std::array<Layout, 5> kLayouts{
    {{"mono", 1, kNone}, {"stereo", 2, kNone}, {"quadraphony", 4, kNone}, {"5.1", 6, 3}, {"7.1", 8, 3}}};

double level_of(const std::vector<float>& channels) {
  StereoFrame out;
  Downmix(static_cast<int>(channels.size()), 0).process(channels, std::span(&out, 1));
  return decibels(std::pow(std::max(double{out.left}, double{out.right}), 2));
}

void print(const Layout& layout) {
  std::vector<float> all(layout.channels, 1.0F);
  const double with_low = level_of(all);
  if (layout.low_frequencies != kNone) all[layout.low_frequencies] = 0.0F;
  std::vector<float> front(layout.channels, 0.0F);
  front[0] = 1.0F;
  const double level = level_of(all);
  std::printf("  %-12s all channels %+5.2f dBFS%s, with low frequencies %+5.2f; front left alone %+5.2f\n", layout.name,
              level, at_most(0.0, level - kRounding).c_str(), with_low, level_of(front));
}

}  // namespace

void report_downmix() {
  std::printf("Downmix: full scale on all channels\n");
  for (const Layout& layout : kLayouts) print(layout);
}

}  // namespace tandem::report
