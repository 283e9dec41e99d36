#include "engine/read/song_name.h"

#include <sys/stat.h>

namespace tandem {
namespace {

bool exists(const std::string& path) {
  struct stat status {};
  return !path.empty() && path.find('\0') == std::string::npos && stat(path.c_str(), &status) == 0;
}

}  // namespace

std::string existing_song_name(const std::string& path) {
  std::string name = path;
  while (name.starts_with("- ") && !exists(name)) name.erase(0, 2);
  return exists(name) ? name : path;
}

}  // namespace tandem
