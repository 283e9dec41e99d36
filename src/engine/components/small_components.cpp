#include "engine/components/small_components.h"

#include <algorithm>
#include <limits>

#include "engine/read/song_measure.h"

namespace tandem {

void ProbeFile::put_FileName(const std::string& name) {
  name_.clear();
  length_ms_ = 0;
  if (name.empty()) return;
  const auto song = measure_song(name);
  if (!song || !song->opens) return;
  name_ = name;
  length_ms_ = static_cast<std::int32_t>(
      std::min<std::int64_t>(milliseconds_of(song->length), std::numeric_limits<std::int32_t>::max()));
}

std::string TimeText::time_text(std::int32_t milliseconds) const {
  const std::int32_t seconds = std::max(milliseconds, 0) / 1000;
  const std::string digits = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + (digits.size() == 1 ? ":0" : ":") + digits;
}

}  // namespace tandem
