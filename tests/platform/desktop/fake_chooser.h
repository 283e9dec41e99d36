// A stand-in for the desktop portal's file dialog.
#pragma once

#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "platform/desktop/bus_test_daemon.h"

namespace tandem {

// Gives the prepared reply as soon as a dialog is requested, or keeps its dialog open.
class FakeChooser {
 public:
  struct Reply {
    unsigned response = 0;
    std::vector<std::string> urls = {};
    bool answers = true;  // else it leaves its dialog open
  };
  FakeChooser(const BusTestDaemon& bus, Reply reply)
      : reply_(std::move(reply)),
        service_(bus, "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
                 [this](sd_bus_message* call) { return answer(call); }) {}

  std::string asked() {
    const std::lock_guard lock(mutex_);
    return asked_;
  }

  // Ends the dialog that is open.
  void choose(unsigned response, std::vector<std::string> urls) {
    service_.run([response, urls = std::move(urls)](sd_bus* bus) {
      sd_bus_message* signal = nullptr;
      sd_bus_message_new_signal(bus, &signal, kRequest, "org.freedesktop.portal.Request", "Response");
      sd_bus_message_append(signal, "u", response);
      sd_bus_message_open_container(signal, 'a', "{sv}");
      sd_bus_message_append(signal, "{sv}", "writable", "b", 1);
      sd_bus_message_open_container(signal, 'e', "sv");
      sd_bus_message_append(signal, "s", "uris");
      sd_bus_message_open_container(signal, 'v', "as");
      sd_bus_message_open_container(signal, 'a', "s");
      for (const std::string& url : urls) sd_bus_message_append(signal, "s", url.c_str());
      for (int container = 0; container < 4; ++container) sd_bus_message_close_container(signal);
      sd_bus_send(bus, signal, nullptr);
      sd_bus_message_unref(signal);
    });
  }

 private:
  static constexpr const char* kRequest = "/org/freedesktop/portal/desktop/request/1_7/t";

  static bool wants_several(sd_bus_message* call) {
    int several = 0;
    sd_bus_message_enter_container(call, 'a', "{sv}");
    while (sd_bus_message_enter_container(call, 'e', "sv") > 0) {
      const char* name = "";
      sd_bus_message_read_basic(call, 's', &name);
      if (name == std::string("multiple")) {
        sd_bus_message_read(call, "v", "b", &several);
      } else {
        sd_bus_message_skip(call, "v");
      }
      sd_bus_message_exit_container(call);
    }
    return several != 0;
  }
  int answer(sd_bus_message* call) {
    if (sd_bus_message_get_interface(call) != std::string("org.freedesktop.portal.FileChooser")) return -EINVAL;
    const char* window = nullptr;
    const char* title = nullptr;
    sd_bus_message_read(call, "ss", &window, &title);
    {
      const std::lock_guard lock(mutex_);
      asked_ = std::string(sd_bus_message_get_member(call)) + ": " + title + (wants_several(call) ? ", several" : "");
    }
    const int sent = sd_bus_reply_method_return(call, "o", kRequest);
    if (reply_.answers) choose(reply_.response, reply_.urls);
    return sent;
  }

  Reply reply_;
  std::mutex mutex_;
  std::string asked_;
  BusTestService service_;
};

}  // namespace tandem
