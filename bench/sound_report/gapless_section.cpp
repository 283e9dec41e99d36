// Files of real encoders against what they were made of.
#include <cstdio>
#include <exception>
#include <string>

#include "engine/encoded_songs.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace tandem::report {

void report_gapless() {
  std::printf("Gapless: frames by which the first sample is late, and frames heard after the last one\n");
  for (const test::Encoded& each : test::encoded_songs()) {
    if (!has(each.encoder)) continue;
    try {
      const test::Edges edges = test::edges_of(each);
      std::printf("  %-46s %6d Hz %+6lld %+6lld%s\n", test::text_of(each).c_str(), each.rate,
                  static_cast<long long>(edges.first), static_cast<long long>(edges.last),
                  each.noted == test::Noted::kEdges ? "" : "   (the file does not say)");
    } catch (const std::exception& error) {
      std::printf("  %-46s %6d Hz %s\n", test::text_of(each).c_str(), each.rate, error.what());
    }
  }
}

}  // namespace tandem::report
