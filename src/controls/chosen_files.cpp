#include "controls/chosen_files.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "base/natural_order.h"
#include "base/text.h"

namespace tandem {

namespace {

struct Directory {
  std::string path;  // with its last separator
  std::vector<std::string> names;
};

std::vector<Directory> by_directory(const std::vector<std::string>& paths) {
  std::vector<Directory> directories;
  for (const std::string& path : paths) {
    const std::string directory = path.substr(0, name_begin(path));
    auto found = std::find_if(directories.begin(), directories.end(),
                              [&directory](const Directory& known) { return known.path == directory; });
    if (found == directories.end()) found = directories.insert(found, {directory, {}});
    found->names.push_back(path.substr(directory.size()));
  }
  return directories;
}

std::string result(Directory directory) {
  if (directory.names.size() == 1) return directory.path + directory.names.front();
  std::sort(directory.names.begin(), directory.names.end(),
            [](const std::string& a, const std::string& b) { return natural_less(b, a); });
  // The directory loses its last separator, but the root is nothing else.
  std::string text = directory.path.substr(0, std::max<std::size_t>(directory.path.size(), 2) - 1);
  for (const std::string& name : directory.names) text += '\0' + name;
  return text;
}

}  // namespace

std::vector<std::string> that_fit(std::vector<std::string> paths, std::size_t lines) {
  if (paths.size() <= lines) return paths;
  std::sort(paths.begin(), paths.end(), [](const std::string& a, const std::string& b) { return natural_less(a, b); });
  paths.resize(lines);
  return paths;
}

std::vector<std::string> dialog_results(const std::vector<std::string>& paths) {
  std::vector<std::string> results;
  for (Directory& directory : by_directory(paths)) results.push_back(result(std::move(directory)));
  return results;
}

std::vector<std::string> chosen_paths(const std::string& result) {
  std::size_t nul = result.find('\0');
  if (nul == std::string::npos) return {result};
  const std::string directory = result.substr(0, nul) + kPathSeparator;
  std::vector<std::string> paths;
  while (nul != std::string::npos) {
    const std::size_t begin = nul + 1;
    nul = result.find('\0', begin);
    paths.push_back(directory + result.substr(begin, nul == std::string::npos ? nul : nul - begin));
  }
  return paths;
}

}  // namespace tandem
