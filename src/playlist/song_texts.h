// What the display panel writes of a song: its title, which scrolls when it is long, and its times. UI thread.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "audio/mm_stages.h"

namespace tandem {

// From 14 characters on a title scrolls. The label has 15 cells; the threshold is kept.
bool is_long_title(std::string_view title);
// Whether a title begins with the blanks that a scrolling title may carry in front.
bool begins_blank(std::string_view title);
// The blanks between two rounds of a scrolling title.
std::string scroll_gap();

// "0" and the first four characters of the helper's time text: 225 000 ms is 03:45. From ten minutes on it reads
// wrong (12:34 gives 012:3); kept so.
std::string SongTimeText(const MMHelperX& helper, std::int32_t milliseconds);

}  // namespace tandem
