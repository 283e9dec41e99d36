#include "platform/output/output_commands.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tandem {

OutputCommands::OutputCommands() : fd_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

OutputCommands::~OutputCommands() { ::close(fd_); }

void OutputCommands::post(const OutputCommand& order) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(order);
  }
  wake();
}

// A full counter is readable already, so a refused write loses nothing.
void OutputCommands::wake() noexcept { static_cast<void>(eventfd_write(fd_, 1)); }

std::vector<OutputCommand> OutputCommands::take() {
  eventfd_t ignored = 0;
  static_cast<void>(eventfd_read(fd_, &ignored));
  const std::lock_guard lock(mutex_);
  return std::exchange(waiting_, {});
}

}  // namespace tandem
