// Where the program's executable lies, without a separator at the end. Throws RuntimeError if the system cannot tell.
#pragma once

#include <string>

namespace tandem {

std::string program_directory();

}  // namespace tandem
