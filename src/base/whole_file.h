// Small text files, read and written as a whole: nothing stays open. Any thread; blocks for as long as the disk does.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tandem {

// The bytes of a regular file, at most the first kLongestFile of them. Throws FileNotFound, or FileAccess for what is
// no regular file (a FIFO would block) or can't be read.
inline constexpr std::size_t kLongestFile = std::size_t{16} << 20U;
std::string read_whole_file(const std::string& path);

// Creates the file or replaces an existing one in one step: the bytes are written to a temporary file of the same
// directory, flushed to the disk and renamed, so that a crash leaves the old file or the new one. Temporary files that
// killed players left there are removed first. A link is followed and the permissions of an existing file are kept.
// Where the directory allows no new file but the existing one may be written, it is written in place, and a crash in
// that moment may leave it short.
// Throws FileAccess, also for a file that is write-protected or no regular one, and leaves what was there as it was.
void replace_whole_file(const std::string& path, std::string_view bytes);

}  // namespace tandem
