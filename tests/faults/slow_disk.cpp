#include "faults/slow_disk.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

#include <algorithm>
#include <filesystem>
#include <utility>

// Its header would bring a checked form of pread() that can't be taken over.
extern "C" long syscall(long number, ...) noexcept;

namespace tandem::test {

namespace {

struct Disk {
  Bytes piece;
  std::uint64_t device = 0;
  std::uint64_t inode = 0;
  std::int64_t size = 0;
  double bytes_per_second = 0;  // 0: no time
  double seconds_per_read = 0;
  double busy = 0;
  std::int64_t bytes = 0;
  int reads = 0;
  std::function<void()> act;
};

Disk& disk() {
  static Disk the_disk;
  return the_disk;
}

bool is_song(int descriptor) {
  struct stat status {};
  return disk().size > 0 && fstat(descriptor, &status) == 0 && status.st_ino == disk().inode &&
         status.st_dev == disk().device;
}

std::int64_t read_song(std::uint8_t* out, std::int64_t count, std::int64_t offset) {
  Disk& my = disk();
  count = std::clamp<std::int64_t>(my.size - offset, 0, count);
  const auto length = static_cast<std::int64_t>(my.piece.size());
  for (std::int64_t done = 0; done < count;) {
    const std::int64_t at = (offset + done) % length;
    const std::int64_t some = std::min(count - done, length - at);
    std::copy_n(my.piece.begin() + at, some, out + done);
    done += some;
  }
  my.busy += my.seconds_per_read;
  if (my.bytes_per_second > 0) my.busy += static_cast<double>(count) / my.bytes_per_second;
  my.bytes += count;
  ++my.reads;
  if (my.act) std::function<void()>(my.act)();
  return count;
}

}  // namespace

SlowDisk::SlowDisk(const std::string& path, const Bytes& piece, std::int64_t size) {
  write_file(path, {});
  std::filesystem::resize_file(path, static_cast<std::uintmax_t>(size));
  struct stat status {};
  stat(path.c_str(), &status);
  disk() = {.piece = piece, .device = status.st_dev, .inode = status.st_ino, .size = size, .act = {}};
}

SlowDisk::~SlowDisk() { disk() = {}; }

void SlowDisk::set_speed(double bytes_per_second, double seconds_per_read) {
  disk().bytes_per_second = bytes_per_second;
  disk().seconds_per_read = seconds_per_read;
}

void SlowDisk::on_read(std::function<void()> act) { disk().act = std::move(act); }
double SlowDisk::busy_seconds() const { return disk().busy; }
std::int64_t SlowDisk::bytes_read() const { return disk().bytes; }
int SlowDisk::reads() const { return disk().reads; }

}  // namespace tandem::test

// pread() to the linker alone: to the compiler the hardened one of the C library is inline and cannot be defined again.
extern "C" ssize_t pread_of_songs(int descriptor, void* bytes, size_t count, off_t offset) __asm__("pread");

ssize_t pread_of_songs(int descriptor, void* bytes, size_t count, off_t offset) {
  if (tandem::test::is_song(descriptor))
    return tandem::test::read_song(static_cast<std::uint8_t*>(bytes), static_cast<std::int64_t>(count), offset);
  return syscall(SYS_pread64, descriptor, bytes, count, offset);
}
