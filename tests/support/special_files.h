// What can lie in a folder in a file's place.
#pragma once

#include <string>

namespace tandem::test {

void make_socket(const std::string& path);  // throws std::system_error

}  // namespace tandem::test
