// The desktop's services of a panel over fakes, on a private bus, and a client of that bus that asks while the event
// loop runs.
#pragma once

#include <gtest/gtest.h>
#include <systemd/sd-bus.h>

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "desktop/desktop_services.h"
#include "fakes/test_panel.h"
#include "platform/desktop/bus_fixture.h"

namespace tandem::test {

inline constexpr const char* kPlayerInterface = "org.mpris.MediaPlayer2.Player";

class DesktopRig : public BusFixture {
 protected:
  DesktopRig();
  ~DesktopRig() override;
  void SetUp() override;
  void TearDown() override;

  void start();  // the services; the bus before them
  // Runs the event loop, with `now` standing still, until it is so.
  bool soon(const std::function<bool()>& holds);
  // A job of another program on the bus, from its begin to its end, while the event loop runs.
  void meanwhile(const std::function<void(sd_bus*)>& job);
  // Runs a program on the bus to its end; its output with its errors.
  std::string output_of(const std::vector<std::string>& command);

  // Calls a method of the player; the error's name, empty if there is none.
  std::string call(const char* interface, const char* method, const char* types = nullptr, const char* text = nullptr,
                   std::int64_t number = 0);
  std::string player_call(const char* method) { return call(kPlayerInterface, method); }
  std::string text_property(const char* interface, const char* name);
  bool flag(const char* name);
  double number(const char* name);
  std::int64_t long_number(const char* name);
  std::map<std::string, std::string> metadata();  // of the song, numbers as text

  // Signals of the player's interfaces, as they came: "PlaybackStatus Metadata" or "Seeked 1000".
  std::vector<std::string> take_signals();
  bool signalled(const std::string& text);

  TestPanel panel_;
  std::vector<std::vector<std::string>> drops_;
  std::vector<std::string> raises_;  // the tokens
  std::vector<std::string> names_;   // of the songs
  int quits_ = 0;
  int acts_ = 0;
  std::int64_t now_ = 0;
  PanelRemote remote_;
  std::unique_ptr<DesktopServices> services_;

 private:
  void listen();
  static int on_signal(sd_bus_message* signal, void* self, sd_bus_error*);

  sd_bus* listener_ = nullptr;
  std::vector<std::string> signals_;
};

}  // namespace tandem::test
