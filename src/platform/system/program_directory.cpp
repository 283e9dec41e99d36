#include "platform/system/program_directory.h"

#include <sys/auxv.h>
#include <unistd.h>

#include <climits>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <vector>

#include "base/runtime_error.h"

namespace tandem {

namespace {

namespace fs = std::filesystem;

std::string folder_of_executable() {
  std::vector<char> path(PATH_MAX);
  const ssize_t length = readlink("/proc/self/exe", path.data(), path.size());
  if (length <= 0) throw RuntimeError(RuntimeErrorKind::FileNotFound, "/proc/self/exe");
  const std::string_view executable(path.data(), static_cast<std::size_t>(length));
  return std::string(executable.substr(0, executable.rfind('/')));
}

// The name that the program was started by, where the kernel keeps it; empty if that is no link.
fs::path starting_link() {
  const auto* name = reinterpret_cast<const char*>(getauxval(AT_EXECFN));
  std::error_code error;
  if (name == nullptr || !fs::is_symlink(name, error)) return {};
  return fs::absolute(name, error).lexically_normal();
}

}  // namespace

std::string program_directory() {
  const fs::path link = starting_link();
  std::error_code error;
  const bool has_settings = !link.empty() && fs::exists(link.parent_path() / "TP.inf", error);
  return has_settings ? link.parent_path().string() : folder_of_executable();
}

}  // namespace tandem
