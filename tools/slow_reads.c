// A slow stick under one folder, for a program that is started with this in LD_PRELOAD: each pread() of a file in
// SLOW_READS_FOLDER takes as long as SLOW_READS_BYTES_PER_SECOND says. tools/evening builds and uses it.
#define _GNU_SOURCE
#include <dlfcn.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

typedef ssize_t Read(int, void*, size_t, off64_t);

static int is_slow(int descriptor) {
  const char* folder = getenv("SLOW_READS_FOLDER");
  char link[40];
  char path[4096];
  snprintf(link, sizeof link, "/proc/self/fd/%d", descriptor);
  const ssize_t length = readlink(link, path, sizeof path - 1);
  return folder != NULL && length > 0 && strncmp(path, folder, strlen(folder)) == 0;
}

static ssize_t read_slowly(const char* name, int descriptor, void* to, size_t count, off64_t offset) {
  Read* real = (Read*)dlsym(RTLD_NEXT, name);
  const ssize_t got = real(descriptor, to, count, offset);
  if (got > 0 && is_slow(descriptor)) {
    const double seconds = (double)got / atof(getenv("SLOW_READS_BYTES_PER_SECOND"));
    const struct timespec wait = {(time_t)seconds, (long)((seconds - (double)(time_t)seconds) * 1e9)};
    nanosleep(&wait, NULL);
  }
  return got;
}

ssize_t pread(int descriptor, void* to, size_t count, off64_t offset) {
  return read_slowly("pread", descriptor, to, count, offset);
}
ssize_t pread64(int descriptor, void* to, size_t count, off64_t offset) {
  return read_slowly("pread64", descriptor, to, count, offset);
}
