#include "engine/components/device_control.h"

#include <utility>

namespace tandem {

void DeviceControl::queue(std::function<void()> command) {
  if (closing_) {
    waiting_.push_back(std::move(command));
  } else {
    command();
  }
}

void DeviceControl::close_gate() {
  if (closing_) return;
  closing_ = true;
  commands_.send({.kind = RenderCommand::Kind::CloseGate});
}

void DeviceControl::open_gate() {
  queue([this] { commands_.send({.kind = RenderCommand::Kind::OpenGate}); });
}

void DeviceControl::gate_closed() {
  closing_ = false;
  for (const auto& command : std::exchange(waiting_, {})) command();
}

void DeviceControl::open() {
  if (std::exchange(open_, true)) return;
  queue([this, bytes = buffer_bytes_] { output_.open(bytes); });
}

void DeviceControl::close() {
  if (!std::exchange(open_, false)) return;
  if (running_) stop();
  queue([this] { output_.close(); });
}

void DeviceControl::start() {
  if (running_) return;
  open();
  running_ = true;
  queue([this] { output_.start(); });
  if (!paused_) open_gate();
}

void DeviceControl::stop() {
  if (!std::exchange(running_, false)) return;
  if (!paused_) close_gate();
  queue([this] { output_.stop(); });
}

// A pause outlives a stop: the device that is started again stays silent until restart().
void DeviceControl::pause() {
  if (std::exchange(paused_, true) || !running_) return;
  close_gate();
  queue([this] { output_.pause(); });
}

void DeviceControl::restart() {
  if (!std::exchange(paused_, false) || !running_) return;
  queue([this] { output_.restart(); });
  open_gate();
}

void DeviceControl::watch_device() {
  if (reported_lost_ || !output_.lost()) return;
  reported_lost_ = true;
  device_lost.raise();
}

}  // namespace tandem
