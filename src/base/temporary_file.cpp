#include "base/temporary_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <system_error>

namespace tandem {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kPrefix = ".tandem-";
constexpr std::string_view kSuffix = ".new";
constexpr std::int64_t kProcesses = std::int64_t{1} << 22U;  // a process's number is below this
constexpr int kTries = 16;

std::string name_of(std::int64_t number) {
  return std::string(kPrefix) + std::to_string(number) + std::string(kSuffix);
}

bool is_name_of_ours(std::string_view name) {
  if (!name.starts_with(kPrefix) || !name.ends_with(kSuffix) || name.size() <= kPrefix.size() + kSuffix.size())
    return false;
  name.remove_prefix(kPrefix.size());
  name.remove_suffix(kSuffix.size());
  return std::all_of(name.begin(), name.end(), [](char c) { return c >= '0' && c <= '9'; });
}

bool is_there(const std::string& path) {
  struct stat status {};
  return ::lstat(path.c_str(), &status) == 0;
}

// The only name of a regular file that is open.
bool is_name_of(const std::string& path, int descriptor) {
  struct stat open {};
  struct stat named {};
  return ::fstat(descriptor, &open) == 0 && ::lstat(path.c_str(), &named) == 0 && S_ISREG(named.st_mode) &&
         open.st_nlink == 1 && open.st_ino == named.st_ino && open.st_dev == named.st_dev;
}

// Only the holder of the lock removes the file, so its name can't go to another file in between.
void remove_if_stale(const std::string& path) {
  const Descriptor file(path, O_RDWR | O_NONBLOCK | O_NOFOLLOW);
  if (!file.is_open() || ::flock(file.number(), LOCK_EX | LOCK_NB) != 0) return;
  if (is_name_of(path, file.number())) ::unlink(path.c_str());
}

}  // namespace

TemporaryFile::TemporaryFile(const std::string& directory) {
  for (int i = 0; i < kTries; ++i) {
    if (make(directory + name_of(::getpid() + i * kProcesses))) return;
    if (errno != EEXIST) return;
  }
}

// Between making and locking, another player may take the file for a stale one.
bool TemporaryFile::make(const std::string& path) {
  Descriptor file(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW);
  if (!file.is_open()) return false;
  const bool lost = ::flock(file.number(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
  if (lost || !is_there(path)) {
    errno = EEXIST;
    return false;
  }
  file_ = std::move(file);
  path_ = path;
  return true;
}

TemporaryFile::~TemporaryFile() {
  if (!path_.empty()) ::unlink(path_.c_str());
}

bool TemporaryFile::set_permissions(unsigned permissions) const { return ::fchmod(file_.number(), permissions) == 0; }

bool TemporaryFile::become(const std::string& path) {
  if (::rename(path_.c_str(), path.c_str()) != 0) return false;
  path_.clear();
  return true;
}

bool write_and_flush(const Descriptor& file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.number(), bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return ::fsync(file.number()) == 0;
}

void remove_stale_temporary_files(const std::string& directory) {
  std::error_code error;
  fs::directory_iterator entry(directory.empty() ? "." : directory, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
    std::error_code unknown;
    const std::string name = entry->path().filename().string();
    if (is_name_of_ours(name) && entry->symlink_status(unknown).type() == fs::file_type::regular)
      remove_if_stale(entry->path().string());
  }
}

}  // namespace tandem
