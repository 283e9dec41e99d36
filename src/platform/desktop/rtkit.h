// Real-time scheduling from rtkit, the system service that grants it to those whom the kernel refuses.
// Where rtkit refuses too, a thread gets a higher priority of the usual kind, or keeps what it has.
// The service is asked in the background; without a system bus, without rtkit or refused by it nothing is said.
// UI thread; gone before the QApplication.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/desktop/dbus_connection.h"
#include "platform/realtime/realtime_threads.h"

namespace tandem {

class RtKit {
 public:
  RtKit() = default;
  RtKit(const RtKit&) = delete;
  RtKit& operator=(const RtKit&) = delete;

  // Asks for the threads that the kernel has refused so far; only the first call does anything.
  // Not before the first sound is out, which it shall not delay.
  void ask();
  bool asking() const noexcept { return link_ && link_->bus() != nullptr; }

 private:
  struct Limit {  // what rtkit grants at most
    RtKit* kit;
    const char* name;
    char type;
    std::int64_t value = 0;
  };
  struct Request {
    RtKit* kit;
    pid_t thread;
  };
  struct Method {
    const char* name;
    char type;
    std::int64_t value;
    sd_bus_message_handler_t answered;
  };

  void ask_limit(Limit& limit);
  void limits_known();
  void call(const Method& method, Request& request);
  void send(sd_bus_message* message, sd_bus_message_handler_t handler, void* about);
  void answered();

  static int on_limit(sd_bus_message* answer, void* limit, sd_bus_error*);
  static int on_realtime(sd_bus_message* answer, void* request, sd_bus_error*);
  static int on_nice(sd_bus_message* answer, void* request, sd_bus_error*);

  bool asked_ = false;
  std::optional<DBusConnection> link_;
  int open_questions_ = 0;
  Limit longest_run_{this, "RTTimeUSecMax", 'x'};  // microseconds
  Limit highest_{this, "MaxRealtimePriority", 'i'};
  Limit lowest_niceness_{this, "MinNiceLevel", 'i'};
  std::array<Request, kMostRealtimeThreads> requests_{};
};

}  // namespace tandem
