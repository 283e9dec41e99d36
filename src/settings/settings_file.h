// TP.inf in the program's directory: the panel's adjustments, one value a line, in a fixed order. UI thread.
//   1-15 sl0(0..14); 16 Volume; 17-24 MMLEDSpin1..8; 25-28 MMSwitch1..4; 29 MMSwitchX1; 30-34 MMLEDX1..5 (0 off, 1 on);
//   35 lead time in ms; 36 buffer mode; 37 folder of the last song
// A number line is a blank or the minus sign, the digits and a blank. Lines end with CR LF.
#pragma once

#include <string>
#include <string_view>

#include "base/field_text.h"
#include "controls/run_state.h"

namespace tandem {

struct PanelControls;

// The file of the factory state.
std::string factory_settings();

class SettingsFile {
 public:
  SettingsFile(PanelControls& controls, RunState& state, const std::string& directory)
      : controls_(controls), state_(state), path_(directory + "/TP.inf") {}

  const std::string& path() const { return path_; }

  // Takes lines 1 to 34 live from the controls. The lead time is one line for each lamp that is lit, so that none, or
  // more than one, shifts the lines after it: on purpose. Throws FileAccess.
  void write() const;

  // Fills the variables of RunState; the slider levels go into the sliders at once. A file that is missing or short
  // gives the factory values for everything. Throws Overflow, naming file and line, for a number too large for its
  // variable, FileAccess for a file that can't be read. Values are not compared with ranges: the controls limit them.
  void read();

 private:
  std::string text() const;
  void read_from(std::string_view text);
  void read_levels(FieldReader& fields);
  void read_variables(FieldReader& fields);

  PanelControls& controls_;
  RunState& state_;
  std::string path_;
};

}  // namespace tandem
