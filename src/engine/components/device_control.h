// The output device as the panel sees it. UI thread.
// Pause, stop and close first let the chain fade out: the device's commands wait until the render thread has reported
// that the gate is closed.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "audio/mm_stages.h"
#include "engine/device/output.h"
#include "engine/render/render_messages.h"

namespace tandem {

class DeviceControl final : public MMWaveOutX {
 public:
  DeviceControl(Output& output, CommandSender& commands) : output_(output), commands_(commands) {}

  std::int32_t BufferSize() const override { return buffer_bytes_; }
  void put_BufferSize(std::int32_t bytes) override { buffer_bytes_ = bytes; }
  void open() override;
  void close() override;
  void start() override;
  void stop() override;
  void pause() override;
  void restart() override;

  bool playing() const { return running_ && !paused_; }
  void gate_closed();   // the render thread has reported it
  void watch_device();  // raises device_lost once when the output is lost for good
  bool idle() const { return waiting_.empty() && !closing_; }

 private:
  void queue(std::function<void()> command);
  void close_gate();
  void open_gate();

  Output& output_;
  CommandSender& commands_;
  std::vector<std::function<void()>> waiting_;  // commands for the device once the gate is closed
  std::int32_t buffer_bytes_ = 5120;
  bool open_ = false;
  bool running_ = false;
  bool paused_ = false;
  bool closing_ = false;  // the gate has been asked to close and has not reported yet
  bool reported_lost_ = false;
};

}  // namespace tandem
