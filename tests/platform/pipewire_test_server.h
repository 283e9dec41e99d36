// A private PipeWire for one test, with its session manager and its PulseAudio protocol (pipewire-pulse), and one null
// sink of 48000 Hz, "null0". Needs the programs dbus-daemon, pipewire, wireplumber, pipewire-pulse, pactl and parec.
// Everything it started is killed by its process number, and the directory removed, when it is destroyed.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "engine/core/frames.h"
#include "platform/output_test_server.h"

namespace tandem {

class PipewireTestServer {
 public:
  static bool is_installed();

  // Returns when it answers and has its sink; PULSE_SERVER of this process points at it. Throws std::runtime_error.
  PipewireTestServer();
  ~PipewireTestServer();
  PipewireTestServer(const PipewireTestServer&) = delete;
  PipewireTestServer& operator=(const PipewireTestServer&) = delete;

  void start_recording();  // of null0, as float at 48000 Hz; returns when sound comes in
  std::vector<StereoFrame> recording() const;
  const std::filesystem::path& directory() const { return directory_; }

 private:
  void start(const std::vector<std::string>& command);
  bool asks(const std::vector<std::string>& command) const;

  std::filesystem::path directory_;
  std::vector<ChildProcess> children_;
};

}  // namespace tandem
