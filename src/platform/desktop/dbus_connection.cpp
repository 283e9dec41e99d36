#include "platform/desktop/dbus_connection.h"

#include <poll.h>

#include <QByteArray>
#include <algorithm>
#include <chrono>

#include "platform/realtime/monotonic_clock.h"

namespace tandem {

namespace {

constexpr std::uint64_t kPatience = 5'000'000;  // microseconds for an answer

// Such an address names a program to be started.
bool starts_a_program(const char* variable) { return qgetenv(variable).contains("unixexec:"); }

sd_bus* connect(DBusConnection::Bus which) {
  const bool system = which == DBusConnection::Bus::kSystem;
  if (starts_a_program(system ? "DBUS_SYSTEM_BUS_ADDRESS" : "DBUS_SESSION_BUS_ADDRESS")) return nullptr;
  sd_bus* bus = nullptr;
  if ((system ? sd_bus_open_system(&bus) : sd_bus_open_user(&bus)) < 0) return nullptr;
  sd_bus_set_method_call_timeout(bus, kPatience);
  return bus;
}

// Until a moment of the monotonic clock in microseconds, rounded up.
std::chrono::milliseconds time_until(std::uint64_t moment) {
  const auto now = static_cast<std::uint64_t>(monotonic_now()) / 1000;
  return std::chrono::milliseconds((std::max(moment, now) - now + 999) / 1000);
}

}  // namespace

DBusConnection::DBusConnection(Bus which) : bus_(connect(which)) {
  if (bus_ == nullptr) return;
  due_.setSingleShot(true);
  QObject::connect(&due_, &QTimer::timeout, &due_, [this] { serve(); });
  const int fd = sd_bus_get_fd(bus_);
  readable_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Read);
  writable_ = std::make_unique<QSocketNotifier>(fd, QSocketNotifier::Write);
  for (QSocketNotifier* notifier : {readable_.get(), writable_.get()})
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [this] { serve(); });
  attend();
}

DBusConnection::~DBusConnection() { disconnect(); }

void DBusConnection::attend() {
  if (bus_ == nullptr) return;
  const int events = sd_bus_get_events(bus_);
  std::uint64_t moment = 0;
  if (events < 0 || sd_bus_get_timeout(bus_, &moment) < 0) return due_.start(0);
  readable_->setEnabled((events & POLLIN) != 0);
  writable_->setEnabled((events & POLLOUT) != 0);
  if (moment == UINT64_MAX) return due_.stop();
  due_.start(time_until(moment));
}

void DBusConnection::serve() {
  int progress = 1;
  while (progress > 0 && !leaving_) progress = sd_bus_process(bus_, nullptr);
  if (progress < 0 || leaving_) return disconnect();
  attend();
}

void DBusConnection::disconnect() {
  due_.stop();
  for (const auto* notifier : {&readable_, &writable_})
    if (*notifier) (*notifier)->setEnabled(false);
  bus_ = sd_bus_close_unref(bus_);
}

}  // namespace tandem
