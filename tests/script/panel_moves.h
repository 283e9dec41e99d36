// User moves of the controls, by name. A disabled control ignores it, a hidden one takes it. UI thread.
// A name that stands for nothing, or for a control that can't be moved so, throws UnknownWord.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "script/control_names.h"

namespace tandem {

class PanelMoves {
 public:
  explicit PanelMoves(PanelControls& controls) : controls_(named_controls(controls)) {}

  // The mouse goes down, clicks, goes up. Lamps, labels, gauge and panels only know the click.
  void click(const std::string& name) const;
  void press(const std::string& name) const;
  void release(const std::string& name) const;

  void move(const std::string& name, std::int32_t value) const;                       // slider, wheel, switch, spinner
  void drag(const std::string& name, const std::vector<std::int32_t>& values) const;  // press, each value, release
  void up(const std::string& name) const;                                             // a spinner's button
  void down(const std::string& name) const;

  void select(const std::string& name, std::int32_t line) const;  // a line of a list, from 0
  void double_click(const std::string& name, std::int32_t line) const;

 private:
  const AnyControl& control(const std::string& name) const;
  template <class Kind>
  Kind& as(const std::string& name) const;
  ValuedControl& valued(const std::string& name) const;
  ListBox* list_with(const std::string& name, std::int32_t line) const;

  std::map<std::string, AnyControl> controls_;
};

}  // namespace tandem
