// What a screen reader sees of a program and does to it, over the message bus that the desktop has for it. Needs the
// programs dbus-daemon and at-spi2-core.
#pragma once

#include <systemd/sd-bus.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/output_test_server.h"
#include "support/temp_directory.h"

namespace tandem::test {

struct AssistiveObject {
  std::string path;
  std::string name;
  std::string role;
  std::vector<std::string> actions;
  std::optional<double> value;
  int x = 0;  // middle of it, px of the screen
  int y = 0;
  bool showing = false;
  bool focusable = false;
};

class AssistiveBus {
 public:
  static bool installed();

  AssistiveBus();  // programs that are started after it use it
  ~AssistiveBus();
  AssistiveBus(const AssistiveBus&) = delete;
  AssistiveBus& operator=(const AssistiveBus&) = delete;

  bool find(const std::string& program);         // waits until it is on the bus
  std::vector<AssistiveObject> objects() const;  // of the program, parents before their children
  std::optional<AssistiveObject> object(const std::string& name, const std::string& role) const;

  std::string description(const AssistiveObject& object) const;
  bool act(const AssistiveObject& object, const std::string& action) const;
  bool set_value(const AssistiveObject& object, double value) const;

  void listen(const std::string& event);  // as "object:children-changed"
  // What has been said since: the object's path, then as "ChildrenChanged add".
  const std::vector<std::string>& heard();

 private:
  struct Unref {
    void operator()(sd_bus* bus) const { sd_bus_flush_close_unref(bus); }
  };
  struct Place {
    std::string owner;
    std::string path;
  };
  std::vector<Place> children(const Place& place) const;
  std::string text(const Place& place, const char* method, const char* interface) const;
  std::string property(const Place& place, const char* name) const;
  std::string name(const Place& place) const { return property(place, "Name"); }
  AssistiveObject look_at(const Place& place) const;
  void collect(const Place& place, std::vector<AssistiveObject>& all) const;
  bool look_for(const std::string& program);

  static int hear(sd_bus_message* message, void* self, sd_bus_error* error);

  TempDirectory files_;
  ChildProcess daemon_;
  std::vector<std::string> heard_;
  bool listens_ = false;
  std::unique_ptr<sd_bus, Unref> bus_;
  Place program_;
};

}  // namespace tandem::test
