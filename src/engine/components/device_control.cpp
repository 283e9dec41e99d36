#include "engine/components/device_control.h"

#include <utility>

namespace tandem {

void DeviceControl::queue(std::function<void()> command) {
  if (fading_out_) {
    waiting_.push_back(std::move(command));
  } else {
    command();
  }
}

void DeviceControl::send_fade_out() {
  if (fading_out_) return;
  fading_out_ = true;
  commands_.send({.kind = RenderCommand::Kind::FadeOut});
}

void DeviceControl::send_fade_in() {
  queue([this] { commands_.send({.kind = RenderCommand::Kind::FadeIn}); });
}

void DeviceControl::faded_out() {
  fading_out_ = false;
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
  if (!paused_) send_fade_in();
}

void DeviceControl::stop() {
  if (!std::exchange(running_, false)) return;
  if (!paused_) send_fade_out();
  queue([this] { output_.stop(); });
}

// A pause outlives a stop: the device that is started again stays silent until restart().
void DeviceControl::pause() {
  if (std::exchange(paused_, true) || !running_) return;
  send_fade_out();
  queue([this] { output_.pause(); });
}

void DeviceControl::restart() {
  if (!std::exchange(paused_, false) || !running_) return;
  queue([this] { output_.restart(); });
  send_fade_in();
}

void DeviceControl::watch_device() {
  if (reported_lost_ || !output_.lost()) return;
  reported_lost_ = true;
  device_lost.raise();
}

}  // namespace tandem
