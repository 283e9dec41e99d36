// Files that the user has chosen, or dropped on the window, in the form in which the file dialog returns them.
#pragma once

#include <string>
#include <vector>

namespace tandem {

// Full paths to results, one for each directory in the order of its first file: a single file as its path, several as
// directory, NUL, name, NUL, name in descending natural order, so that the lines, which are added from the last name to
// the first, stand ascending.
std::vector<std::string> dialog_results(const std::vector<std::string>& paths);

}  // namespace tandem
