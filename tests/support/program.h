// Runs a helper program of the test machine (lame, sox) and waits for it.
#pragma once

#include <string>
#include <vector>

namespace tandem::test {

// Throws if it cannot be run or fails. Found through PATH; its output is dropped.
void run_program(const std::vector<std::string>& words);

}  // namespace tandem::test
