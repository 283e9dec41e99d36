#include "base/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>

#include "base/descriptor.h"
#include "base/runtime_error.h"
#include "base/temporary_file.h"
#include "base/text.h"

namespace tandem {

namespace {

[[noreturn]] void fail(const std::string& path) {
  const bool missing = errno == ENOENT || errno == ENOTDIR;
  throw RuntimeError(missing ? RuntimeErrorKind::FileNotFound : RuntimeErrorKind::FileAccess, path);
}

bool is_regular(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

// Where a link leads; the path itself if it is none or its end does not exist.
std::string target_of(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> target(::realpath(path.c_str(), nullptr), &std::free);
  return target ? std::string(target.get()) : path;
}

bool write_new(const std::string& path, std::string_view bytes, const struct stat* old) {
  const std::string directory = path.substr(0, name_begin(path));
  remove_stale_temporary_files(directory);
  TemporaryFile file(directory);
  if (!file.is_open() || (old != nullptr && !file.set_permissions(old->st_mode & 07777U))) return false;
  return file.write(bytes) && file.become(path);
}

// The directory's permissions were in the way, not the disk: what is there is not given up for a write that may fail.
bool is_refused_by_directory(int error) { return error == EACCES || error == EPERM; }

bool write_in_place(const std::string& path, std::string_view bytes) {
  const Descriptor file(path, O_WRONLY | O_NONBLOCK);
  return file.is_open() && write_and_flush(file, bytes) &&
         ::ftruncate(file.number(), static_cast<off_t>(bytes.size())) == 0;
}

}  // namespace

std::string read_whole_file(const std::string& path) {
  const Descriptor file(path, O_RDONLY | O_NONBLOCK);
  if (!file.is_open()) fail(path);
  if (!is_regular(file.number())) throw RuntimeError(RuntimeErrorKind::FileAccess, path);
  std::string bytes;
  std::string block(std::size_t{1} << 16U, '\0');
  while (bytes.size() < kLongestFile) {
    const ssize_t count = ::read(file.number(), block.data(), block.size());
    if (count < 0 && errno == EINTR) continue;
    if (count < 0) throw RuntimeError(RuntimeErrorKind::FileAccess, path);
    if (count == 0) break;
    bytes.append(block, 0, static_cast<std::size_t>(count));
  }
  return bytes;
}

void replace_whole_file(const std::string& path, std::string_view bytes) {
  const std::string target = target_of(path);
  struct stat status {};
  const bool exists = ::stat(target.c_str(), &status) == 0;
  const bool replaceable = !exists || (S_ISREG(status.st_mode) && ::access(target.c_str(), W_OK) == 0);
  if (!replaceable) throw RuntimeError(RuntimeErrorKind::FileAccess, path);
  if (write_new(target, bytes, exists ? &status : nullptr)) return;
  if (exists && is_refused_by_directory(errno) && write_in_place(target, bytes)) return;
  throw RuntimeError(RuntimeErrorKind::FileAccess, path);
}

}  // namespace tandem
