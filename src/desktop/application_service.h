// The player as a program of the desktop, by the interface org.freedesktop.Application: a desktop starts it over the
// session bus, brings it to the front and opens songs with it, in the one that runs if one does. Of several players on
// one bus the one started first is meant; the next when that ends. UI thread.
#pragma once

#include <systemd/sd-bus.h>

#include <functional>
#include <string>
#include <vector>

namespace tandem {

class ApplicationService {
 public:
  struct Hooks {
    std::function<void(const std::string& token)> activate;     // the window to the front, with the desktop's leave
    std::function<void(const std::vector<std::string>&)> open;  // files and folders, as a drop on the window
  };
  // `bus` must outlive the object's last use by the bus.
  ApplicationService(sd_bus* bus, Hooks hooks);
  ApplicationService(const ApplicationService&) = delete;
  ApplicationService& operator=(const ApplicationService&) = delete;

 private:
  int activate(sd_bus_message* call);
  int open(sd_bus_message* call);

  static int on_activate(sd_bus_message* call, void* self, sd_bus_error*);
  static int on_open(sd_bus_message* call, void* self, sd_bus_error*);
  static int on_action(sd_bus_message* call, void* self, sd_bus_error*);
  static const sd_bus_vtable kTable[];

  Hooks hooks_;
};

}  // namespace tandem
