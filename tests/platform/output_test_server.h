// A private sound server for one test: pulseaudio on a unix socket in a temporary directory, with one null sink, and a
// recorder of what that sink plays. Or PipeWire with its session manager and its PulseAudio protocol (dbus-daemon,
// pipewire, wireplumber, pipewire-pulse). Needs pactl and parec besides. Everything it started is killed by its process
// number, and the directory removed, when it is destroyed.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "engine/device/output_ring.h"

namespace tandem {

// Asks until it holds; false after the deadline.
bool wait_until(const std::function<bool()>& holds, std::chrono::milliseconds deadline = std::chrono::seconds(10));

class ChildProcess {  // killed and reaped at the end
 public:
  ChildProcess() = default;
  ChildProcess(const std::vector<std::string>& command, const std::filesystem::path& output);
  ~ChildProcess() { end(); }
  ChildProcess(ChildProcess&& other) noexcept;
  ChildProcess& operator=(ChildProcess&& other) noexcept;

  bool running() const { return pid_ > 0; }
  void send(int signal) const;
  int wait();  // for its own end; the exit status
  void end();  // SIGKILL
  pid_t number() const { return pid_; }

 private:
  pid_t pid_ = -1;
};

enum class SoundServer { kPulseaudio, kPipewire };

SoundServer server_of_environment();  // PipeWire if TANDEM_TEST_SERVER is "pipewire"
bool is_installed(SoundServer server);

class OutputTestServer {
 public:
  // Not started; PULSE_SERVER of this process points at its socket.
  explicit OutputTestServer(SoundServer server = server_of_environment());
  ~OutputTestServer();
  OutputTestServer(const OutputTestServer&) = delete;
  OutputTestServer& operator=(const OutputTestServer&) = delete;

  // Returns when it answers and has its sink, "null0"; throws std::runtime_error if it does not. As a user's server
  // does, a prompt one asks for real-time scheduling; PipeWire always does.
  void start(bool prompt = false);
  void kill_hard() { daemon_.end(); }
  void freeze();
  void thaw();
  // For how long threads of this process and of the server were ready to run, but others had the processors.
  std::chrono::milliseconds waited_for_a_processor() const;

  // `format`: as pactl names it.
  void load_sink(const std::string& name, int rate = 44100, const std::string& format = "s16le");
  // The formats of the streams that play, as pactl names them.
  std::string stream_formats() const;
  // What a sink of that rate plays from now on, as float; ends with the next recording.
  void start_float_recording(const std::string& sink, int rate);
  std::vector<StereoFrame> float_recording() const;
  void unload_sink(const std::string& name);
  void suspend_sink(const std::string& name, bool suspended);
  void move_streams_to(const std::string& name);  // makes it the default too

  void start_recording();                   // returns when sound comes in
  std::vector<Sample16> recording() const;  // so far
  std::filesystem::path directory() const { return directory_; }

 private:
  void start_pulseaudio(bool prompt);
  void start_pipewire();
  bool answers() const;
  std::string control(const std::vector<std::string>& arguments) const;

  SoundServer server_;
  std::filesystem::path directory_;
  std::filesystem::path socket_;
  std::vector<ChildProcess> helpers_;  // of PipeWire, in the order in which they were started
  ChildProcess daemon_;
  ChildProcess recorder_;
  std::vector<std::pair<std::string, std::string>> modules_;  // of the sinks: name, number
};

}  // namespace tandem
