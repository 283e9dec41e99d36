#include "base/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <memory>
#include <utility>

#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

namespace {

[[noreturn]] void fail(const std::string& path) {
  const bool missing = errno == ENOENT || errno == ENOTDIR;
  throw RuntimeError(missing ? RuntimeErrorKind::FileNotFound : RuntimeErrorKind::FileAccess, path);
}

class Descriptor {
 public:
  Descriptor(const std::string& path, int flags) : number_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() { close(); }

  int number() const { return number_; }
  bool is_open() const { return number_ >= 0; }
  bool close() {
    const int number = std::exchange(number_, -1);
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

bool is_regular(int descriptor) {
  struct stat status {};
  return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

bool write_all(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

// Where a link leads; the path itself if it is none or its end does not exist.
std::string target_of(const std::string& path) {
  const std::unique_ptr<char, decltype(&std::free)> target(::realpath(path.c_str(), nullptr), &std::free);
  return target ? std::string(target.get()) : path;
}

// A name in the same directory that is short enough wherever the file's own name is.
std::string temporary_beside(const std::string& path) {
  return path.substr(0, name_begin(path)) + ".tandem-" + std::to_string(::getpid()) + ".new";
}

bool write_temporary(const std::string& temporary, std::string_view bytes, const struct stat* old) {
  Descriptor file(temporary, O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW);
  if (!file.is_open()) return false;
  if (old != nullptr && ::fchmod(file.number(), old->st_mode & 07777U) != 0) return false;
  return write_all(file.number(), bytes) && ::fsync(file.number()) == 0 && file.close();
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
  const std::string temporary = temporary_beside(target);
  if (write_temporary(temporary, bytes, exists ? &status : nullptr) && ::rename(temporary.c_str(), target.c_str()) == 0)
    return;
  ::unlink(temporary.c_str());
  throw RuntimeError(RuntimeErrorKind::FileAccess, path);
}

}  // namespace tandem
