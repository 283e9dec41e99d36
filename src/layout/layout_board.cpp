// The board, and what is never drawn.
#include "layout/layout_tables.h"

namespace tandem {

namespace {

using K = ControlKind;
using G = ControlGroup;

// Name, x, y, w, h, kind, group, caption, tab, tip, accessible name, cells or digits, dot pitch.
constexpr ControlBox kBoard[] = {
    {"Board", 4, 258, 599, 164, K::BevelledPanel, G::Board, "", 0, "", "Analyser settings"},
    {"MMLEDX1", 14, 269, 22, 11, K::LampButton, G::Board, "Grid", 50, "", "Grid"},
    {"Label5(0)", 44, 267, 54, 15, K::Caption, G::Board, "Grid", 0, "", ""},
    {"MMLEDX2", 14, 295, 22, 11, K::LampButton, G::Board, "L.e.d.", 51, "", "L.e.d."},
    {"Label5(1)", 44, 293, 54, 15, K::Caption, G::Board, "L.e.d.", 0, "", ""},
    {"MMLEDX3", 14, 321, 22, 11, K::LampButton, G::Board, "Inactive", 52, "", "Inactive"},
    {"Label5(2)", 44, 319, 54, 15, K::Caption, G::Board, "Inactive", 0, "", ""},
    {"MMLEDX4", 14, 347, 22, 11, K::LampButton, G::Board, "Log/Lin", 53, "", "Log/Lin"},
    {"Label5(3)", 44, 345, 54, 15, K::Caption, G::Board, "Log/Lin", 0, "", ""},
    {"MMLEDX5", 14, 373, 22, 11, K::LampButton, G::Board, "Pick", 54, "", "Pick"},
    {"Label5(4)", 44, 371, 54, 15, K::Caption, G::Board, "Pick", 0, "", ""},
    {"MMLEDX6", 14, 399, 22, 11, K::LampButton, G::Board, "Default", 55, "", "Default"},
    {"Label5(5)", 44, 397, 54, 15, K::Caption, G::Board, "Default", 0, "", ""},
    {"MMSwitch1", 106, 262, 122, 106, K::Rotary, G::Board, "Type", 60, "", "Type: <position>"},
    {"MMSwitch2", 230, 262, 122, 106, K::Rotary, G::Board, "Window", 61, "", "Window: <position>"},
    {"MMSwitch3", 354, 262, 122, 106, K::Rotary, G::Board, "Decay", 62, "", "Decay: <position>"},
    {"MMSwitch4", 478, 262, 122, 106, K::Rotary, G::Board, "Gain", 63, "", "Gain: <position>"},
    {"MMLEDSpin7", 108, 388, 56, 22, K::Spinner, G::Board, "Ref. Freq", 70, "", "Ref. Freq", 4},
    {"MMLEDSpin2", 170, 388, 56, 22, K::Spinner, G::Board, "", 71, "", "FFT length", 4},
    {"MMLEDSpin3", 237, 388, 46, 22, K::Spinner, G::Board, "Y Scale", 72, "", "Y Scale", 3},
    {"MMLEDSpin6", 304, 388, 36, 22, K::Spinner, G::Board, "X Scale", 73, "", "X Scale", 2},
    {"MMLEDSpin1", 366, 388, 36, 22, K::Spinner, G::Board, "Veloc.", 74, "", "Bar fall speed", 2},
    {"MMLEDSpin5", 428, 388, 36, 22, K::Spinner, G::Board, "Picks", 75, "", "Picks", 2},
    {"MMLEDSpin4", 490, 388, 36, 22, K::Spinner, G::Board, "Delay", 76, "", "Delay", 2},
    {"MMLEDSpin8", 552, 388, 36, 22, K::Spinner, G::Board, "Veloc.", 77, "", "Peak fall speed", 2},
    {"Label5(6)", 118, 268, 40, 13, K::Caption, G::Board, "Type", 0, "", ""},
    {"Label5(7)", 242, 268, 40, 13, K::Caption, G::Board, "Window", 0, "", ""},
    {"Label5(8)", 366, 268, 40, 13, K::Caption, G::Board, "Decay", 0, "", ""},
    {"Label5(9)", 490, 268, 40, 13, K::Caption, G::Board, "Gain", 0, "", ""},
    {"Label5(10)", 106, 373, 61, 12, K::Caption, G::Board, "Ref. Freq", 0, "", ""},
    {"Label5(11)", 230, 373, 61, 12, K::Caption, G::Board, "Y Scale", 0, "", ""},
    {"Label5(12)", 292, 373, 61, 12, K::Caption, G::Board, "X Scale", 0, "", ""},
    {"Label5(13)", 354, 373, 61, 12, K::Caption, G::Board, "Veloc.", 0, "", ""},
    {"Label5(14)", 416, 373, 61, 12, K::Caption, G::Board, "Picks", 0, "", ""},
    {"Label5(15)", 478, 373, 61, 12, K::Caption, G::Board, "Delay", 0, "", ""},
    {"Label5(16)", 540, 373, 61, 12, K::Caption, G::Board, "Veloc.", 0, "", ""},
    {"ListAux", 0, 0, 0, 0, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"ListAux2", 0, 0, 0, 0, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"TimerDelay", 0, 0, 0, 0, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"CommonDialog", 0, 0, 0, 0, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(0)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(1)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(2)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(3)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(4)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
    {"Icone(5)", 0, 0, 24, 20, K::NotDrawn, G::Hidden, "", 0, "", ""},
};

}  // namespace

std::span<const ControlBox> layout_board() { return kBoard; }

}  // namespace tandem
