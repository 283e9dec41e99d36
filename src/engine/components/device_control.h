// The output device as the panel sees it. UI thread.
// Whatever breaks off the sound (pause, stop, close) first lets the chain fade out: the orders to the device wait until
// the render thread has reported that the gate is closed.
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
  DeviceControl(Output& output, OrderSender& orders) : output_(output), orders_(orders) {}

  std::int32_t BufferSize() const override { return buffer_bytes_; }
  void put_BufferSize(std::int32_t bytes) override { buffer_bytes_ = bytes; }
  void open() override;
  void close() override;
  void start() override;
  void stop() override;
  void pause() override;
  void restart() override;

  bool playing() const { return running_ && !paused_; }
  void gate_closed();   // news of the render thread
  void watch_device();  // raises device_lost once when the output is lost for good
  bool idle() const { return waiting_.empty() && !closing_; }

 private:
  void order(std::function<void()> device_order);
  void close_gate();
  void open_gate();

  Output& output_;
  OrderSender& orders_;
  std::vector<std::function<void()>> waiting_;  // orders to the device after the closing gate
  std::int32_t buffer_bytes_ = 5120;
  bool open_ = false;
  bool running_ = false;
  bool paused_ = false;
  bool closing_ = false;  // the gate was asked to close and has not answered
  bool reported_lost_ = false;
};

}  // namespace tandem
