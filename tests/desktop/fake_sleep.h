// What holds the sleep off, for tests: the desktop portal's Inhibit, and login1's, each with those whom it heeds now.
#pragma once

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

#include "platform/desktop/bus_test_daemon.h"

namespace tandem::test {

class FakeInhibitPortal {
 public:
  enum class Verdict { kHolds, kNotKnown, kRefusesFirst, kRefusesLater };  // before or after it answers the call

  explicit FakeInhibitPortal(const BusTestDaemon& bus, Verdict verdict = Verdict::kHolds)
      : verdict_(verdict),
        service_(bus, "org.freedesktop.portal.Desktop", kObject, [this](auto* call) { return answer(call); }) {}

  int holders() const { return holders_.load(); }
  int asked() const { return asked_.load(); }
  unsigned flags() const { return flags_.load(); }

 private:
  static constexpr const char* kObject = "/org/freedesktop/portal/desktop";  // and, for simplicity, each request's

  int answer(sd_bus_message* call) {
    if (sd_bus_message_is_method_call(call, "org.freedesktop.portal.Request", "Close") > 0) {
      --holders_;
      return sd_bus_reply_method_return(call, nullptr);
    }
    const bool asks = sd_bus_message_is_method_call(call, "org.freedesktop.portal.Inhibit", "Inhibit") > 0;
    const char* window = nullptr;
    unsigned flags = 0;
    const bool knows = verdict_ != Verdict::kNotKnown;
    if (!asks || !knows || sd_bus_message_read(call, "su", &window, &flags) <= 0) return -EINVAL;
    flags_ = flags;
    ++asked_;
    const bool holds = verdict_ == Verdict::kHolds;
    if (holds) ++holders_;
    if (verdict_ == Verdict::kRefusesFirst) respond(call, kRefused);
    const int sent = sd_bus_reply_method_return(call, "o", kObject);
    if (verdict_ != Verdict::kRefusesFirst) respond(call, holds ? 0 : kRefused);
    return sent;
  }

  static constexpr std::uint32_t kRefused = 2;

  static void respond(sd_bus_message* call, std::uint32_t verdict) {
    sd_bus_emit_signal(sd_bus_message_get_bus(call), kObject, "org.freedesktop.portal.Request", "Response", "ua{sv}",
                       verdict, 0);
  }

  Verdict verdict_;
  std::atomic<int> holders_{0};
  std::atomic<int> asked_{0};
  std::atomic<unsigned> flags_{0};
  BusTestService service_;
};

// Lists as the real one does, so that systemd-inhibit shows it.
class FakeLogin {
 public:
  explicit FakeLogin(const BusTestDaemon& bus)
      : service_(bus, "org.freedesktop.login1", "/org/freedesktop/login1",
                 [this](auto* call) { return answer(call); }) {}
  ~FakeLogin() {
    for (const Lock& lock : locks_) ::close(lock.watched);
  }
  FakeLogin(const FakeLogin&) = delete;
  FakeLogin& operator=(const FakeLogin&) = delete;

  int holders() {
    const std::lock_guard guard(mutex_);
    std::erase_if(locks_, [](const Lock& lock) {
      pollfd end{lock.watched, POLLIN, 0};
      const bool closed = ::poll(&end, 1, 0) > 0 && (end.revents & POLLHUP) != 0;
      if (closed) ::close(lock.watched);
      return closed;
    });
    return static_cast<int>(locks_.size());
  }

 private:
  struct Lock {
    std::string what, who, why, mode;
    int watched;  // hangs up when the other end is closed everywhere
  };

  int answer(sd_bus_message* call) {
    constexpr const char* kManager = "org.freedesktop.login1.Manager";
    if (sd_bus_message_is_method_call(call, kManager, "Inhibit") > 0) return inhibit(call);
    if (sd_bus_message_is_method_call(call, kManager, "ListInhibitors") > 0) return list(call);
    return -EINVAL;
  }

  int inhibit(sd_bus_message* call) {
    const char *what = nullptr, *who = nullptr, *why = nullptr, *mode = nullptr;
    int ends[2];
    if (sd_bus_message_read(call, "ssss", &what, &who, &why, &mode) <= 0 || ::pipe2(ends, O_CLOEXEC) != 0)
      return -EINVAL;
    const int sent = sd_bus_reply_method_return(call, "h", ends[1]);  // which copies it
    ::close(ends[1]);
    const std::lock_guard guard(mutex_);
    locks_.push_back({what, who, why, mode, ends[0]});
    return sent;
  }

  int list(sd_bus_message* call) {
    sd_bus_message* reply = nullptr;
    sd_bus_message_new_method_return(call, &reply);
    sd_bus_message_open_container(reply, 'a', "(ssssuu)");
    holders();
    {
      const std::lock_guard guard(mutex_);
      for (const Lock& lock : locks_)
        sd_bus_message_append(reply, "(ssssuu)", lock.what.c_str(), lock.who.c_str(), lock.why.c_str(),
                              lock.mode.c_str(), 0U, static_cast<unsigned>(::getpid()));
    }
    sd_bus_message_close_container(reply);
    const int sent = sd_bus_send(nullptr, reply, nullptr);
    sd_bus_message_unref(reply);
    return sent < 0 ? sent : 1;
  }

  std::mutex mutex_;
  std::vector<Lock> locks_;
  BusTestService service_;
};

}  // namespace tandem::test
