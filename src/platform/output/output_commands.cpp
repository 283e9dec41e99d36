#include "platform/output/output_commands.h"

#include <sys/eventfd.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace tandem {

OutputOrders::OutputOrders() : fd_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {
  if (fd_ < 0) throw std::system_error(errno, std::generic_category(), "eventfd");
}

OutputOrders::~OutputOrders() { ::close(fd_); }

void OutputOrders::post(const OutputOrder& order) {
  {
    const std::lock_guard lock(mutex_);
    waiting_.push_back(order);
  }
  wake();
}

// A full counter is readable already, so a refused write loses nothing.
void OutputOrders::wake() noexcept { static_cast<void>(eventfd_write(fd_, 1)); }

std::vector<OutputOrder> OutputOrders::take() {
  eventfd_t ignored = 0;
  static_cast<void>(eventfd_read(fd_, &ignored));
  const std::lock_guard lock(mutex_);
  return std::exchange(waiting_, {});
}

}  // namespace tandem
