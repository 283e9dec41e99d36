// Files of real encoders against what they were made of.
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <string>

#include "engine/decode/encoded_songs.h"
#include "sound_report/limits.h"
#include "sound_report/sections.h"
#include "sound_report/sound.h"

namespace tandem::report {

void report_gapless() {
  std::printf("Gapless: frames by which the first sample is late, and frames heard after the last one\n");
  for (const test::Encoded& each : test::encoded_songs()) {
    if (!has(each.encoder)) continue;
    try {
      const test::Edges edges = test::edges_of(each);
      const auto first = static_cast<long long>(edges.first);
      const auto last = static_cast<long long>(edges.last);
      const auto off = static_cast<double>(std::abs(first) + std::abs(last));
      std::printf("  %-46s %6d Hz %+6lld %+6lld%s\n", test::text_of(each).c_str(), each.rate, first, last,
                  each.noted == test::Noted::kEdges ? at_most(0.0, off).c_str() : "   (the file does not say)");
    } catch (const std::exception& error) {
      std::printf("  %-46s %6d Hz %s%s\n", test::text_of(each).c_str(), each.rate, error.what(),
                  not_measured().c_str());
    }
  }
}

}  // namespace tandem::report
