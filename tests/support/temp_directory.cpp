#include "support/temp_directory.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>

namespace tandem::test {

TempDirectory::TempDirectory() {
  std::string name = (std::filesystem::temp_directory_path() / "tandem-test-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("cannot make " + name);
  path_ = name;
}

TempDirectory::~TempDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

}  // namespace tandem::test
