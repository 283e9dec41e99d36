#include "playlist/song_texts.h"

#include "base/text.h"

namespace tandem {

namespace {
constexpr std::size_t kLongTitle = 14;
}  // namespace

bool is_long_title(std::string_view title) { return character_count(title) >= kLongTitle; }
bool begins_blank(std::string_view title) { return title.starts_with("    "); }
std::string scroll_gap() { return std::string(kLongTitle, ' '); }

std::string SongTimeText(const MMHelperX& helper, std::int32_t milliseconds) {
  return "0" + std::string(first_characters(helper.time_text(milliseconds), 4));
}

}  // namespace tandem
