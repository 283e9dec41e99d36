#include "platform/system/program_directory.h"

#include <unistd.h>
#include <climits>
#include <string_view>
#include <vector>

#include "base/runtime_error.h"

namespace tandem {

std::string program_directory() {
  std::vector<char> path(PATH_MAX);
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) throw RuntimeError(RuntimeErrorKind::FileNotFound, "/proc/self/exe");
  const std::string_view executable(path.data(), static_cast<std::size_t>(length));
  return std::string(executable.substr(0, executable.rfind('/')));
}

}  // namespace tandem
