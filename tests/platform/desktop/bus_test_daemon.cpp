#include "platform/desktop/bus_test_daemon.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace tandem {

namespace fs = std::filesystem;

BusTestDaemon::BusTestDaemon() {
  std::string name = (fs::temp_directory_path() / "tandem-bus-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no directory for a bus");
  directory_ = name;
}

BusTestDaemon::~BusTestDaemon() {
  daemon_.end();
  std::error_code ignored;
  fs::remove_all(directory_, ignored);
}

// Everybody may own and send everything.
void BusTestDaemon::start() {
  std::ofstream(directory_ / "portal.service")
      << "[D-BUS Service]\nName=org.freedesktop.portal.Desktop\nExec=/usr/bin/touch "
      << (directory_ / "started").string() << "\n";
  std::ofstream(directory_ / "bus.conf")
      << "<busconfig><type>session</type><listen>" << address() << "</listen><auth>EXTERNAL</auth><servicedir>"
      << directory_.string() << "</servicedir>"
      << "<policy context=\"default\"><allow send_destination=\"*\" eavesdrop=\"true\"/><allow eavesdrop=\"true\"/>"
      << "<allow own=\"*\"/></policy></busconfig>\n";
  daemon_ = ChildProcess({"dbus-daemon", "--nofork", "--nopidfile", "--print-address",
                          "--config-file=" + (directory_ / "bus.conf").string()},
                         directory_ / "bus.log");
  // The daemon prints its address once it is listening.
  if (!wait_until([this] { return fs::file_size(directory_ / "bus.log") > 0; })) throw std::runtime_error("no bus");
}

bool BusTestDaemon::has_started_a_service() const { return fs::exists(directory_ / "started"); }

BusTestService::BusTestService(const BusTestDaemon& daemon, const char* name, const char* object, Handler handler)
    : handler_(std::move(handler)) {
  sd_bus_new(&bus_);
  sd_bus_set_address(bus_, daemon.address().c_str());
  sd_bus_set_bus_client(bus_, 1);
  const bool ready = sd_bus_start(bus_) >= 0 &&
                     sd_bus_add_object(bus_, nullptr, object, &BusTestService::on_call, this) >= 0 &&
                     sd_bus_request_name(bus_, name, 0) >= 0;
  if (!ready) throw std::runtime_error(std::string("no service ") + name);
  thread_ = std::thread([this] { serve(); });
}

BusTestService::~BusTestService() {
  ending_.store(true);
  thread_.join();
  sd_bus_flush_close_unref(bus_);
}

void BusTestService::run(std::function<void(sd_bus*)> job) {
  const std::lock_guard lock(mutex_);
  jobs_.push_back(std::move(job));
}

void BusTestService::serve() {
  while (!ending_.load()) {
    std::vector<std::function<void(sd_bus*)>> jobs;
    {
      const std::lock_guard lock(mutex_);
      jobs.swap(jobs_);
    }
    for (const auto& job : jobs) job(bus_);
    const int progress = sd_bus_process(bus_, nullptr);
    if (progress < 0) return;
    if (progress == 0) sd_bus_wait(bus_, 2000);  // microseconds
  }
}

int BusTestService::on_call(sd_bus_message* call, void* self, sd_bus_error*) {
  return static_cast<BusTestService*>(self)->handler_(call);
}

}  // namespace tandem
