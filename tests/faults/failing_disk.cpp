#include "faults/failing_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <condition_variable>
#include <mutex>

// Its header would bring a checked form of pread() that can't be taken over.
extern "C" long syscall(long number, ...) noexcept;

namespace tandem::test {

namespace {

struct DiskFault {
  std::mutex mutex;
  std::condition_variable changed;
  std::string folder;  // "": none
  bool hangs = false;
  bool fails = false;
  int waiting = 0;
};

DiskFault& disk() {
  static DiskFault& the_disk = *new DiskFault;  // never destroyed: a thread may still hang in it when the program ends
  return the_disk;
}

bool lies_on_it(const std::string& path) { return !disk().folder.empty() && path.starts_with(disk().folder); }

// False if the disk fails.
bool answer(const std::string& path) {
  DiskFault& my = disk();
  std::unique_lock lock(my.mutex);
  if (!lies_on_it(path)) return true;
  ++my.waiting;
  my.changed.wait(lock, [&my] { return !my.hangs; });
  --my.waiting;
  return !my.fails;
}

std::string path_of(int descriptor) {
  const std::string link = "/proc/self/fd/" + std::to_string(descriptor);
  std::array<char, 4096> path{};
  const long length = syscall(SYS_readlinkat, AT_FDCWD, link.c_str(), path.data(), path.size());
  return {path.data(), static_cast<std::size_t>(length > 0 ? length : 0)};
}

template <class Change>
void change(Change to) {
  {
    const std::scoped_lock lock(disk().mutex);
    to(disk());
  }
  disk().changed.notify_all();
}

}  // namespace

FailingDisk::FailingDisk(const std::string& folder) {
  change([&](DiskFault& disk) { disk.folder = folder + "/"; });
}
FailingDisk::~FailingDisk() {
  change([](DiskFault& disk) {
    disk.folder.clear();
    disk.hangs = disk.fails = false;
  });
}
void FailingDisk::hang() {
  change([](DiskFault& disk) { disk.hangs = true; });
}
void FailingDisk::go_on() {
  change([](DiskFault& disk) { disk.hangs = false; });
}
void FailingDisk::fail() {
  change([](DiskFault& disk) { disk.fails = true; });
}
int FailingDisk::waiting() {
  const std::scoped_lock lock(disk().mutex);
  return disk().waiting;
}

}  // namespace tandem::test

extern "C" {

// pread() to the linker alone: to the compiler the hardened one of the C library is inline and cannot be defined again.
ssize_t failing_pread(int descriptor, void* bytes, size_t count, off_t offset) __asm__("pread");

ssize_t failing_pread(int descriptor, void* bytes, size_t count, off_t offset) {
  if (tandem::test::answer(tandem::test::path_of(descriptor)))
    return syscall(SYS_pread64, descriptor, bytes, count, offset);
  errno = EIO;
  return -1;
}

int stat(const char* path, struct stat* status) noexcept {
  tandem::test::answer(path);
  return static_cast<int>(syscall(SYS_newfstatat, AT_FDCWD, path, status, 0));
}
}
