// A D-Bus connection served by the event loop: no call blocks on the bus, and a missing bus is not an error. Never
// starts a bus. Calls and matches are made through bus() with sd-bus, followed by attend(). UI thread; must be
// destroyed before the QApplication.
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
