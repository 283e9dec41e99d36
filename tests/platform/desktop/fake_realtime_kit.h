// A stand-in for rtkit on a test's message bus: reports its limits, and grants or refuses requests as set up.
#pragma once

#include <sys/resource.h>

#include <cerrno>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "platform/desktop/bus_test_daemon.h"

namespace tandem {

struct RealtimeRequest {
  std::string method;
  std::uint64_t thread = 0;
  std::int64_t value = 0;
  rlimit limit{};  // when it came
};

class FakeRealtimeKit {
 public:
  static constexpr std::int64_t kMostRun = 200'000;  // microseconds, as rtkit has it

  struct Manners {
    std::int32_t highest = 20;
    std::int32_t lowest_niceness = -15;
    bool grants = true;
  };

  FakeRealtimeKit(const BusTestDaemon& bus, const Manners& manners)
      : manners_(manners),
        service_(bus, "org.freedesktop.RealtimeKit1", "/org/freedesktop/RealtimeKit1",
                 [this](sd_bus_message* call) { return answer(call); }) {}

  std::vector<RealtimeRequest> requests() {
    const std::lock_guard lock(mutex_);
    return requests_;
  }

 private:
  int answer(sd_bus_message* call) {
    if (sd_bus_message_is_method_call(call, "org.freedesktop.DBus.Properties", "Get") > 0) return reply_limit(call);
    RealtimeRequest request;
    request.method = sd_bus_message_get_member(call);
    const bool realtime = request.method == "MakeThreadRealtime";
    std::int32_t value = 0;
    sd_bus_message_read_basic(call, 't', &request.thread);
    if (sd_bus_message_read_basic(call, realtime ? 'u' : 'i', &value) <= 0) return -EINVAL;
    request.value = value;
    getrlimit(RLIMIT_RTTIME, &request.limit);
    {
      const std::lock_guard lock(mutex_);
      requests_.push_back(request);
    }
    const bool bounded = request.limit.rlim_max <= static_cast<rlim_t>(kMostRun);
    if (!manners_.grants || (realtime && !bounded)) return -EPERM;
    return sd_bus_reply_method_return(call, "");
  }

  int reply_limit(sd_bus_message* call) const {
    const char* interface = nullptr;
    const char* name = nullptr;
    if (sd_bus_message_read(call, "ss", &interface, &name) <= 0) return -EINVAL;
    if (std::string(name) == "RTTimeUSecMax") return sd_bus_reply_method_return(call, "v", "x", kMostRun);
    if (std::string(name) == "MaxRealtimePriority") return sd_bus_reply_method_return(call, "v", "i", manners_.highest);
    return sd_bus_reply_method_return(call, "v", "i", manners_.lowest_niceness);
  }

  Manners manners_;
  std::mutex mutex_;
  std::vector<RealtimeRequest> requests_;
  BusTestService service_;
};

}  // namespace tandem
