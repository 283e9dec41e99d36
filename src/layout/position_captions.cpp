#include "layout/panel_layout.h"

namespace tandem {

namespace {

// Control, position, caption, x, y, w, h, angle.
constexpr PositionCaption kCaptions[] = {
    {"MMSwitchX1", 0, "Spec", 60, 206, 34, 12, 64},         {"MMSwitchX1", 1, "V.U.", 60, 221, 34, 12, 90},
    {"MMSwitchX1", 2, "Scope", 60, 236, 34, 12, 116},       {"MMSwitch1", 0, "Points", 180, 283.5, 46, 12, 35},
    {"MMSwitch1", 1, "Lines", 180, 296.5, 46, 12, 57},      {"MMSwitch1", 2, "V.Lines", 180, 309.5, 46, 12, 79},
    {"MMSwitch1", 3, "Bar", 180, 322.5, 46, 12, 101},       {"MMSwitch1", 4, "Picks", 180, 335.5, 46, 12, 123},
    {"MMSwitch1", 5, "Roll", 180, 348.5, 46, 12, 145},      {"MMSwitch2", 0, "Rectang", 304, 277, 46, 12, 35},
    {"MMSwitch2", 1, "Hamming", 304, 290, 46, 12, 53.3},    {"MMSwitch2", 2, "Hanning", 304, 303, 46, 12, 71.7},
    {"MMSwitch2", 3, "Blackman", 304, 316, 46, 12, 90},     {"MMSwitch2", 4, "Gaussiano", 304, 329, 46, 12, 108.3},
    {"MMSwitch2", 5, "Welch", 304, 342, 46, 12, 126.7},     {"MMSwitch2", 6, "Parzen", 304, 355, 46, 12, 145},
    {"MMSwitch3", 0, "None", 428, 296.5, 46, 12, 51},       {"MMSwitch3", 1, "Step", 428, 309.5, 46, 12, 77},
    {"MMSwitch3", 2, "Exponenc.", 428, 322.5, 46, 12, 103}, {"MMSwitch3", 3, "Uniform", 428, 335.5, 46, 12, 129},
    {"MMSwitch4", 0, "None", 552, 296.5, 46, 12, 51},       {"MMSwitch4", 1, "3 db", 552, 309.5, 46, 12, 77},
    {"MMSwitch4", 2, "6db", 552, 322.5, 46, 12, 103},       {"MMSwitch4", 3, "9 db", 552, 335.5, 46, 12, 129},
    {"BufferSwitch", 0, "Buf1", 120, 192, 28, 12, 0},       {"BufferSwitch", 1, "Buf2", 120, 208, 28, 12, 0},
    {"Bypass", 0, "Bypass", 177, 192, 31, 12, 0},           {"Bypass", 1, "EQ", 177, 208, 31, 12, 0},
};

}  // namespace

std::span<const PositionCaption> position_captions() { return kCaptions; }

}  // namespace tandem
