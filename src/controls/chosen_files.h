// Files that the user has chosen, in the form in which the file dialog returns them. Any thread; nothing fails.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tandem {

// The paths that fit into `lines` lines: all, or the first ones in ascending natural order.
std::vector<std::string> that_fit(std::vector<std::string> paths, std::size_t lines);

// Full paths to results, one for each directory in the order of its first file: a single file as its path, several as
// directory, NUL, name, NUL, name in descending natural order, so that the lines, which are added from the last name to
// the first, stand ascending.
std::vector<std::string> dialog_results(const std::vector<std::string>& paths);
// The full paths of one result.
std::vector<std::string> chosen_paths(const std::string& result);

}  // namespace tandem
