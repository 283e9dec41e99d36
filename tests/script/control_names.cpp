#include "script/control_names.h"

#include <cstddef>

namespace tandem {

namespace {

using Names = std::map<std::string, AnyControl>;

Names display_panel(PanelControls& c) {
  return {{"MMPanelX1(0)", &c.MMPanelX1[0]},
          {"MMPanelX1(1)", &c.MMPanelX1[1]},
          {"SongLabel", &c.SongLabel},
          {"LblPosition", &c.LblPosition},
          {"LblTempTot", &c.LblTempTot},
          {"ClockLabel", &c.ClockLabel},
          {"MMLEDLABELX1", &c.MMLEDLABELX1},
          {"MMLEDLABELX2", &c.MMLEDLABELX2},
          {"MMLEDLABELX3", &c.MMLEDLABELX3},
          {"INDIC", &c.INDIC},
          {"MeterVol", &c.MeterVol},
          {"LED1", &c.LED1},
          {"LED2", &c.LED2},
          {"LED3", &c.LED3}};
}

Names transport(PanelControls& c) {
  return {{"PLAY", &c.PLAY},       {"PAUSE", &c.PAUSE},       {"STOPBtn", &c.STOPBtn},
          {"NextBtn", &c.NextBtn}, {"LoadSong", &c.LoadSong}, {"Slider1", &c.Slider1},
          {"Volume", &c.Volume},   {"AMLedOff", &c.AMLedOff}, {"AMLed1", &c.AMLed1},
          {"AMLed2", &c.AMLed2},   {"AMLed3", &c.AMLed3},     {"BufferSwitch", &c.BufferSwitch},
          {"Bypass", &c.Bypass},   {"SliderP", &c.SliderP},   {"Command2", &c.Command2}};
}

Names song_list(PanelControls& c) {
  return {{"PlayList", &c.PlayList}, {"ListAux", &c.ListAux},           {"ListAux2", &c.ListAux2},
          {"UpList", &c.UpList},     {"DownList", &c.DownList},         {"LoadList", &c.LoadList},
          {"SaveList", &c.SaveList}, {"ShowPlayList", &c.ShowPlayList}, {"ShowControls", &c.ShowControls}};
}

Names board(PanelControls& c) {
  return {{"MMLEDX1", &c.MMLEDX1},       {"MMLEDX2", &c.MMLEDX2},       {"MMLEDX3", &c.MMLEDX3},
          {"MMLEDX4", &c.MMLEDX4},       {"MMLEDX5", &c.MMLEDX5},       {"MMLEDX6", &c.MMLEDX6},
          {"MMLEDSpin1", &c.MMLEDSpin1}, {"MMLEDSpin2", &c.MMLEDSpin2}, {"MMLEDSpin3", &c.MMLEDSpin3},
          {"MMLEDSpin4", &c.MMLEDSpin4}, {"MMLEDSpin5", &c.MMLEDSpin5}, {"MMLEDSpin6", &c.MMLEDSpin6},
          {"MMLEDSpin7", &c.MMLEDSpin7}, {"MMLEDSpin8", &c.MMLEDSpin8}, {"MMSwitch1", &c.MMSwitch1},
          {"MMSwitch2", &c.MMSwitch2},   {"MMSwitch3", &c.MMSwitch3},   {"MMSwitch4", &c.MMSwitch4},
          {"MMSwitchX1", &c.MMSwitchX1}};
}

Names equalizer(PanelControls& c) {
  Names names;
  for (std::size_t band = 0; band < kBands; ++band) {
    const std::string index = "(" + std::to_string(band) + ")";
    names["sl0" + index] = &c.sl0[band];
    names["dbLabel0" + index] = &c.dbLabel0[band];
  }
  return names;
}

}  // namespace

Names named_controls(PanelControls& controls) {
  Names all = display_panel(controls);
  for (Names part : {transport(controls), song_list(controls), board(controls), equalizer(controls)}) all.merge(part);
  return all;
}

}  // namespace tandem
