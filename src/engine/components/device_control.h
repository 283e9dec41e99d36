// The output device as the panel sees it. UI thread.
// Pause, stop and close first let the chain fade out: the device's commands wait until the render thread has reported
// the end of the fade.
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
  void faded_out();     // the render thread has reported it
  void watch_device();  // raises device_lost once when the output is lost for good
  bool idle() const { return waiting_.empty() && !fading_out_; }

 private:
  void queue(std::function<void()> command);
  void send_fade_out();
  void send_fade_in();

  Output& output_;
  CommandSender& commands_;
  std::vector<std::function<void()>> waiting_;  // commands for the device once it has faded out
  std::int32_t buffer_bytes_ = 5120;
  bool open_ = false;
  bool running_ = false;
  bool paused_ = false;
  bool fading_out_ = false;  // a fade out was sent and its end is not reported yet
  bool reported_lost_ = false;
};

}  // namespace tandem
