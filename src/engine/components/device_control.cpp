#include "engine/components/device_control.h"

#include <utility>

namespace tandem {

void DeviceControl::order(std::function<void()> device_order) {
  if (closing_) {
    waiting_.push_back(std::move(device_order));
  } else {
    device_order();
  }
}

void DeviceControl::close_gate() {
  if (closing_) return;
  closing_ = true;
  orders_.send({.kind = RenderCommand::Kind::CloseGate});
}

void DeviceControl::open_gate() {
  order([this] { orders_.send({.kind = RenderCommand::Kind::OpenGate}); });
}

void DeviceControl::gate_closed() {
  closing_ = false;
  for (const auto& device_order : std::exchange(waiting_, {})) device_order();
}

void DeviceControl::open() {
  if (std::exchange(open_, true)) return;
  order([this, bytes = buffer_bytes_] { output_.open(bytes); });
}

void DeviceControl::close() {
  if (!std::exchange(open_, false)) return;
  if (running_) stop();
  order([this] { output_.close(); });
}

void DeviceControl::start() {
  if (running_) return;
  open();
  running_ = true;
  order([this] { output_.start(); });
  if (!paused_) open_gate();
}

void DeviceControl::stop() {
  if (!std::exchange(running_, false)) return;
  if (!paused_) close_gate();
  order([this] { output_.stop(); });
}

// A pause outlives a stop: the device that is started again stays silent until restart().
void DeviceControl::pause() {
  if (std::exchange(paused_, true) || !running_) return;
  close_gate();
  order([this] { output_.pause(); });
}

void DeviceControl::restart() {
  if (!std::exchange(paused_, false) || !running_) return;
  order([this] { output_.restart(); });
  open_gate();
}

void DeviceControl::watch_device() {
  if (reported_lost_ || !output_.lost()) return;
  reported_lost_ = true;
  device_lost.raise();
}

}  // namespace tandem
