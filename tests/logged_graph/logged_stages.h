// The single components of a logged graph: each wraps one of another graph.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "audio/sound_graph.h"
#include "logged_graph/logged_graph.h"

namespace tandem {

// The component that is wrapped, its name, and the log.
template <class Component>
struct Logged {
  std::unique_ptr<Component> inner;
  std::string name;
  CallLog log;

  // An operation with its arguments as text.
  void log_call(const std::string& operation, const std::string& arguments) const {
    log(name + "." + operation + "(" + arguments + ")");
  }
};

// What all wrappers have in common.
template <class Component>
class LoggedComponent : public Component {
 public:
  explicit LoggedComponent(Logged<Component> parts) : parts_(std::move(parts)) {}

 protected:
  Component& inner() const { return *parts_.inner; }
  // Logs an operation with its arguments as text, then has the wrapped component do it.
  template <class Method, class... Values>
  void call(const std::string& operation, const std::string& arguments, Method method, const Values&... values) {
    parts_.log_call(operation, arguments);
    (inner().*method)(values...);
  }

 private:
  Logged<Component> parts_;
};

std::unique_ptr<MMAudioFileX> logged(Logged<MMAudioFileX> parts);
std::unique_ptr<MMPitchX> logged(Logged<MMPitchX> parts);
std::unique_ptr<MMWaveMixerX> logged(Logged<MMWaveMixerX> parts);
std::unique_ptr<MMEqualizerX> logged(Logged<MMEqualizerX> parts);
std::unique_ptr<MMWaveOutX> logged(Logged<MMWaveOutX> parts);
std::unique_ptr<MMConnectorX> logged(Logged<MMConnectorX> parts);
std::unique_ptr<MMHiTimerX> logged(Logged<MMHiTimerX> parts);

}  // namespace tandem
