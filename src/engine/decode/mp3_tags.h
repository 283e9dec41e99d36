// Tags around and between MPEG frames: ID3v2, APE, Lyrics3 and ID3v1. They never sound, and pictures within them are
// never mistaken for frames.
// Formats: M. Nilsson, "ID3 tag version 2.4.0 - Main structure" (2000) and, for ID3v1 and its "TAG+", id3.org's
// "ID3v1"; APEv2 as Monkey's Audio writes it; "Lyrics3 made easy" (1.00) and "Lyrics3 tag v2.00" (id3.org). Used
// by one thread at a time.
#pragma once

#include <cstdint>

#include "engine/decode/byte_window.h"

namespace tandem {

// The offset just after all tags that begin at `offset`; `offset` itself if none does.
std::int64_t skip_tags(ByteWindow& window, std::int64_t offset) noexcept;

// The offset at which the tags before `end` begin, not below `begin`; `end` itself if there are none.
std::int64_t trim_tags(const SongFile& file, std::int64_t begin, std::int64_t end) noexcept;

}  // namespace tandem
