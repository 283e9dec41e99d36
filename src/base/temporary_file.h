// A hidden file ".tandem-NUMBER.new" that becomes another file of its directory in one step, once it is whole. It is
// locked while it is being written: one that is not locked was left by a process that was killed.
// Any thread, one at a time. What fails returns false and leaves the reason in errno.
#pragma once

#include <string>
#include <string_view>

#include "base/descriptor.h"

namespace tandem {

// Writes all of it and flushes to the disk.
bool write_and_flush(const Descriptor& file, std::string_view bytes);

class TemporaryFile {
 public:
  // Makes a file in the directory, which ends in a separator or is "". The number is that of the process, or one that
  // no process has if the name is taken.
  explicit TemporaryFile(const std::string& directory);
  ~TemporaryFile();  // removes what did not become another file
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  bool is_open() const { return file_.is_open(); }
  bool set_permissions(unsigned permissions) const;
  bool write(std::string_view bytes) const { return write_and_flush(file_, bytes); }
  bool become(const std::string& path);  // replaces what is there

 private:
  bool make(const std::string& path);

  Descriptor file_;
  std::string path_;
};

// Removes what killed processes left in the directory. Left alone: files that are being written, and everything that is
// no regular file or has another name. Where a file system knows no locks, nothing is removed.
void remove_stale_temporary_files(const std::string& directory);

}  // namespace tandem
