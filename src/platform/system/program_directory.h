// The program's own folder, without a separator at the end: that of the link by which it was started if the settings
// TP.inf lie there, else that of its executable. So one installed program serves many users, each with a link and
// settings of their own. Throws RuntimeError if the system cannot say. Any thread.
#pragma once

#include <string>

namespace tandem {

std::string program_directory();

}  // namespace tandem
