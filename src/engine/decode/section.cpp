#include "engine/decode/section.h"

namespace tandem {

Frames length_at_sample_rate(const Section& section) {
  const Frames whole = section.length / section.rate;
  const Frames rest = section.length % section.rate;
  return whole * kSampleRate + (rest * kSampleRate + section.rate / 2) / section.rate;
}

}  // namespace tandem
