// Real-time scheduling through rtkit, the system service that grants it to unprivileged users.
// Where rtkit refuses, a thread gets a lower nice value, or keeps the one it has.
// The requests are asynchronous; a missing system bus, a missing rtkit and a refusal are ignored silently.
// UI thread; must be destroyed before the QApplication.
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

  // Makes requests for the threads that the kernel has refused so far; only the first call has an effect.
  // To be called after the first sound is out, so as not to delay it.
  void ask();
  bool asking() const noexcept { return connection_ && connection_->bus() != nullptr; }

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
  std::optional<DBusConnection> connection_;
  int open_questions_ = 0;
  Limit longest_run_{this, "RTTimeUSecMax", 'x'};  // microseconds
  Limit highest_{this, "MaxRealtimePriority", 'i'};
  Limit lowest_niceness_{this, "MinNiceLevel", 'i'};
  std::array<Request, kMostRealtimeThreads> requests_{};
};

}  // namespace tandem
