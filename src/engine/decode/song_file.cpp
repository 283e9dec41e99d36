#include "engine/decode/song_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace tandem {
namespace {

bool is_regular(const std::string& path) {
  struct stat status {};
  return stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

}  // namespace

std::shared_ptr<const SongFile> SongFile::open(const std::string& path) {
  // Asked first, because merely opening some devices has an effect; asked again below, because the name may
  // stand for another file by then.
  if (path.find('\0') != std::string::npos || !is_regular(path)) return nullptr;
  Descriptor descriptor(path, O_RDONLY | O_NONBLOCK | O_NOCTTY);
  struct stat status {};
  if (!descriptor.is_open() || fstat(descriptor.number(), &status) != 0 || !S_ISREG(status.st_mode)) return nullptr;
  return std::make_shared<const SongFile>(std::move(descriptor), status.st_size);
}

std::size_t SongFile::read_at(std::int64_t offset, std::span<std::uint8_t> out) const noexcept {
  std::size_t done = 0;
  while (done < out.size()) {
    const ssize_t got =
        pread(descriptor_.number(), out.data() + done, out.size() - done, offset + static_cast<off_t>(done));
    if (got < 0 && errno == EINTR) continue;
    if (got <= 0) break;
    done += static_cast<std::size_t>(got);
  }
  return done;
}

}  // namespace tandem
