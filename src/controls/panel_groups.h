// Controls of the panel that are handled alike, in the order of their numbers, as members of PanelControls.
// Constants; any thread.
#pragma once

#include <array>
#include <cstdint>

#include "controls/panel_controls.h"

namespace tandem {

// The four lead times and the lamp that shows each. AMLedOff, captioned "0", is the shortest, not "off".
struct LeadTime {
  Lamp PanelControls::*lamp;
  std::int16_t milliseconds;
};
inline constexpr std::array<LeadTime, 4> kLeadTimes{{{&PanelControls::AMLedOff, 280},
                                                     {&PanelControls::AMLed1, 1000},
                                                     {&PanelControls::AMLed2, 2500},
                                                     {&PanelControls::AMLed3, 3500}}};

inline constexpr std::array<Lamp PanelControls::*, 5> kOptionLamps{&PanelControls::MMLEDX1, &PanelControls::MMLEDX2,
                                                                   &PanelControls::MMLEDX3, &PanelControls::MMLEDX4,
                                                                   &PanelControls::MMLEDX5};

inline constexpr std::array<Spinner PanelControls::*, 8> kSpinners{
    &PanelControls::MMLEDSpin1, &PanelControls::MMLEDSpin2, &PanelControls::MMLEDSpin3, &PanelControls::MMLEDSpin4,
    &PanelControls::MMLEDSpin5, &PanelControls::MMLEDSpin6, &PanelControls::MMLEDSpin7, &PanelControls::MMLEDSpin8};

inline constexpr std::array<Switch PanelControls::*, 4> kBoardSwitches{
    &PanelControls::MMSwitch1, &PanelControls::MMSwitch2, &PanelControls::MMSwitch3, &PanelControls::MMSwitch4};

}  // namespace tandem
