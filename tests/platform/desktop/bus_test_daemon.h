// A private message bus for one test: dbus-daemon on a unix socket in a temporary directory, and services on it that
// run on threads of their own. Needs the program dbus-daemon. What it started is killed by its process number.
#pragma once

#include <systemd/sd-bus.h>

#include <atomic>
#include <filesystem>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/output_test_server.h"

namespace tandem {

class BusTestDaemon {
 public:
  BusTestDaemon();  // not started
  ~BusTestDaemon();
  BusTestDaemon(const BusTestDaemon&) = delete;
  BusTestDaemon& operator=(const BusTestDaemon&) = delete;

  void start();  // returns when it listens; throws std::runtime_error if it does not
  void kill_hard() { daemon_.end(); }
  void freeze() { daemon_.send(SIGSTOP); }
  bool has_started_a_service() const;  // the desktop portal, which it starts for who calls it as callers usually do
  std::string address() const { return "unix:path=" + (directory_ / "bus").string(); }

 private:
  std::filesystem::path directory_;
  ChildProcess daemon_;
};

class BusTestService {
 public:
  // Answers a call; a negative errno makes an error of it.
  using Handler = std::function<int(sd_bus_message*)>;

  // Returns when it owns the name. The handler runs on the service's thread.
  BusTestService(const BusTestDaemon& daemon, const char* name, const char* object, Handler handler);
  ~BusTestService();
  BusTestService(const BusTestService&) = delete;
  BusTestService& operator=(const BusTestService&) = delete;

  void run(std::function<void(sd_bus*)> job);  // soon, on the service's thread

 private:
  void serve();
  static int on_call(sd_bus_message* call, void* self, sd_bus_error*);

  Handler handler_;
  sd_bus* bus_ = nullptr;
  std::atomic<bool> ending_{false};
  std::mutex mutex_;
  std::vector<std::function<void(sd_bus*)>> jobs_;
  std::thread thread_;
};

}  // namespace tandem
