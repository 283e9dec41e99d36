#include "platform/desktop/qt_clock.h"

#include <algorithm>
#include <utility>

namespace tandem {

QtClock::QtClock(Work work) : work_(std::move(work)) {
  elapsed_.start();
  timer_.setTimerType(Qt::PreciseTimer);
  timer_.setSingleShot(true);
  QObject::connect(&timer_, &QTimer::timeout, this, [this] { wake(); });
}

void QtClock::reschedule() {
  if (std::exchange(asked_, true)) return;
  timer_.start(0);
}

void QtClock::wake() {
  asked_ = false;
  const auto due = work_(now());
  if (asked_ || !due) return;
  timer_.start(static_cast<int>(std::clamp<Milliseconds>(*due - now(), 0, 60'000)));
}

}  // namespace tandem
