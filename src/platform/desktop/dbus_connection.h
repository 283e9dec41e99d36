// A connection to a D-Bus that the event loop serves: nothing waits for the bus, and nothing is said when there is
// none. No bus is started. What is called and listened for goes through bus() with sd-bus; attend() afterwards. UI
// thread; gone before the QApplication.
#pragma once

#include <systemd/sd-bus.h>

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

namespace tandem {

class DBusConnection {
 public:
  enum class Bus { kSystem, kUser };

  explicit DBusConnection(Bus which);
  ~DBusConnection();
  DBusConnection(const DBusConnection&) = delete;
  DBusConnection& operator=(const DBusConnection&) = delete;

  sd_bus* bus() const noexcept { return bus_; }  // null: no such bus, or it went away
  void attend();
  void leave() { leaving_ = true; }  // in a callback: disconnects as soon as it has returned

 private:
  void serve();
  void disconnect();

  sd_bus* bus_ = nullptr;
  bool leaving_ = false;
  std::unique_ptr<QSocketNotifier> readable_;
  std::unique_ptr<QSocketNotifier> writable_;
  QTimer due_;
};

}  // namespace tandem
