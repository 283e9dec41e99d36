#include <utility>
#include <variant>

#include "script/control_names.h"
#include "script/panel_values.h"

namespace tandem {

namespace {

// Adds the properties of one control, as its kind has them.
class Properties {
 public:
  Properties(ValueTable& table, std::string name) : table_(table), name_(std::move(name)) {}

  void operator()(const Button* button) const {
    add("BackColor", button->BackColor);
    table_.add_word(name_ + ".Picture", [button] {
      return button->Picture == Button::kNoPicture ? "None" : "Icone(" + std::to_string(button->Picture) + ")";
    });
    add_constant("Caption", button->Caption);
    common(button);
  }
  void operator()(const Panel* panel) const {
    add_constant("Caption", panel->Caption);
    common(panel);
  }
  void operator()(const Label* label) const {
    add("Caption", label->Caption);
    common(label);
  }
  void operator()(const Lamp* lamp) const {
    add("LEDColor", lamp->LEDColor);
    common(lamp);
  }
  void operator()(const LedLabel* label) const {
    add("Caption", label->Caption);
    add("LEDColor", label->LEDColor);
    add("Scrolling", label->Scrolling);
    add_constant("NumChars", label->NumChars);
    add_constant("ScrollSpeed", LedLabel::ScrollSpeed);
    common(label);
  }
  void operator()(const Gauge* gauge) const {
    add("Progress", gauge->Progress);
    add_constant("Point2", Gauge::Point2);
    common(gauge);
  }
  void operator()(const Slider* slider) const {
    valued("Position", slider);
    add_constant("LineSize", slider->LineSize);
  }
  void operator()(const Wheel* wheel) const { valued("Value", wheel); }
  void operator()(const Switch* control) const {
    valued("Position", control);
    add_constant("NumPositions", control->NumPositions());
  }
  void operator()(const Spinner* spinner) const {
    valued("Value", spinner);
    add_constant("NumDigits", spinner->Digits);
  }
  void operator()(const ListBox* list) const {
    table_.add_indexed(name_ + ".List", [list](std::int32_t index) { return list->List(index); });
    table_.add_indexed(name_ + ".Selected", [list](std::int32_t index) { return list->Selected(index); });
    table_.add(name_ + ".ListCount", [list] { return list->ListCount(); });
    table_.add(name_ + ".ListIndex", [list] { return list->ListIndex(); });
    common(list);
  }

 private:
  void common(const Control* control) const {
    add("Visible", control->Visible);
    add("Enabled", control->Enabled);
  }
  void valued(const std::string& property, const ValuedControl* control) const {
    table_.add(name_ + "." + property, [control] { return control->value(); });
    table_.add(name_ + ".MinValue", [control] { return control->minimum(); });
    table_.add(name_ + ".MaxValue", [control] { return control->maximum(); });
    common(control);
  }
  template <class T>
  void add(const std::string& property, const Property<T>& value) const {
    table_.add(name_ + "." + property, [&value] { return value.get(); });
  }
  template <class T>
  void add_constant(const std::string& property, const T& value) const {
    table_.add(name_ + "." + property, [value] { return value; });
  }

  ValueTable& table_;
  std::string name_;
};

void add_window(ValueTable& table, const WindowFrame& window, const Picture& image) {
  table.add("Painel.Width", [&window] { return window.Width.get(); });
  table.add("Painel.Height", [&window] { return window.Height.get(); });
  table.add("Painel.Left", [&window] { return window.Left.get(); });
  table.add("Painel.Top", [&window] { return window.Top.get(); });
  table.add("Screen.Width", [&window] { return window.ScreenWidth; });
  table.add("Screen.Height", [&window] { return window.ScreenHeight; });
  table.add("Image1.Width", [&image] { return image.Width; });
  table.add("Image1.Height", [&image] { return image.Height; });
}

}  // namespace

void add_control_values(ValueTable& table, PanelControls& controls) {
  for (const auto& [name, control] : named_controls(controls)) std::visit(Properties(table, name), control);
  add_window(table, controls.Painel, controls.Image1);
  const PlainTimer& delay = controls.TimerDelay;
  table.add("TimerDelay.Interval", [&delay] { return delay.Interval; });
  table.add("TimerDelay.Enabled", [&delay] { return delay.Enabled(); });
  const FileDialog& dialog = controls.CommonDialog;
  table.add("CommonDialog.InitDir", [&dialog] { return dialog.InitDir; });
  table.add("CommonDialog.Filter", [&dialog] { return dialog.Filter; });
  table.add("CommonDialog.FileName", [&dialog] { return dialog.FileName; });
}

}  // namespace tandem
