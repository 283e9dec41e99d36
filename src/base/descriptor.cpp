#include "base/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace tandem {

Descriptor::Descriptor(const std::string& path, int flags) : number_(::open(path.c_str(), flags | O_CLOEXEC, 0666)) {}

Descriptor::~Descriptor() {
  if (is_open()) ::close(number_);
}

}  // namespace tandem
