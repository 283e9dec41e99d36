#include <sys/eventfd.h>
#include <unistd.h>

#include <cstdint>
#include <utility>

#include "platform/desktop/ui_wakeup.h"

namespace tandem {

UiWakeup::UiWakeup() : event_(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)) {}

UiWakeup::~UiWakeup() {
  if (event_ >= 0) close(event_);
}

void UiWakeup::ring() const noexcept {
  const std::uint64_t one = 1;
  static_cast<void>(!write(event_, &one, sizeof one));
}

void UiWakeup::connect(std::function<void()> on_wakeup) {
  notifier_.reset();
  if (!on_wakeup || event_ < 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(event_, QSocketNotifier::Read);
  QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(),
                   [this, on_wakeup = std::move(on_wakeup)] {
                     std::uint64_t rings = 0;
                     static_cast<void>(!read(event_, &rings, sizeof rings));
                     on_wakeup();
                   });
}

}  // namespace tandem
