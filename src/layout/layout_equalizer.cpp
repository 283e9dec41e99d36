// The equalizer.
#include "layout/layout_tables.h"

namespace tandem {

namespace {

using K = ControlKind;
using G = ControlGroup;

// Name, x, y, w, h, kind, group, caption, tab, tip, accessible name, cells or digits, dot pitch.
constexpr ControlBox kEqualizer[] = {
    {"MMPanelX1(0)", 262, 113, 341, 141, K::BevelledPanel, G::Equalizer, "10 BANDS EQUALIZER", 0, "",
     "10 bands equalizer, press to change the window size"},
    {"Label2(0)", 267, 132, 22, 10, K::Caption, G::Equalizer, "32", 0, "", ""},
    {"Label2(1)", 289, 132, 22, 10, K::Caption, G::Equalizer, "64", 0, "", ""},
    {"Label2(2)", 311, 132, 22, 10, K::Caption, G::Equalizer, "130", 0, "", ""},
    {"Label2(3)", 333, 132, 22, 10, K::Caption, G::Equalizer, "260", 0, "", ""},
    {"Label2(4)", 355, 132, 22, 10, K::Caption, G::Equalizer, "470", 0, "", ""},
    {"Label2(5)", 377, 132, 22, 10, K::Caption, G::Equalizer, "540", 0, "", ""},
    {"Label2(6)", 399, 132, 22, 10, K::Caption, G::Equalizer, "630", 0, "", ""},
    {"Label2(7)", 421, 132, 22, 10, K::Caption, G::Equalizer, "1K2", 0, "", ""},
    {"Label2(8)", 443, 132, 22, 10, K::Caption, G::Equalizer, "2K5", 0, "", ""},
    {"Label2(9)", 465, 132, 22, 10, K::Caption, G::Equalizer, "4K", 0, "", ""},
    {"Label2(10)", 487, 132, 22, 10, K::Caption, G::Equalizer, "5K4", 0, "", ""},
    {"Label2(11)", 509, 132, 22, 10, K::Caption, G::Equalizer, "6K3", 0, "", ""},
    {"Label2(12)", 531, 132, 22, 10, K::Caption, G::Equalizer, "8K3", 0, "", ""},
    {"Label2(13)", 553, 132, 22, 10, K::Caption, G::Equalizer, "12K", 0, "", ""},
    {"Label2(14)", 575, 132, 22, 10, K::Caption, G::Equalizer, "18K", 0, "", ""},
    {"sl0(0)", 267, 144, 22, 84, K::Fader, G::Equalizer, "", 21, "", "Equalizer 32 Hz, <position> dB"},
    {"sl0(1)", 289, 144, 22, 84, K::Fader, G::Equalizer, "", 22, "", "Equalizer 64 Hz, <position> dB"},
    {"sl0(2)", 311, 144, 22, 84, K::Fader, G::Equalizer, "", 23, "", "Equalizer 130 Hz, <position> dB"},
    {"sl0(3)", 333, 144, 22, 84, K::Fader, G::Equalizer, "", 24, "", "Equalizer 260 Hz, <position> dB"},
    {"sl0(4)", 355, 144, 22, 84, K::Fader, G::Equalizer, "", 25, "", "Equalizer 470 Hz, <position> dB"},
    {"sl0(5)", 377, 144, 22, 84, K::Fader, G::Equalizer, "", 26, "", "Equalizer 540 Hz, <position> dB"},
    {"sl0(6)", 399, 144, 22, 84, K::Fader, G::Equalizer, "", 27, "", "Equalizer 630 Hz, <position> dB"},
    {"sl0(7)", 421, 144, 22, 84, K::Fader, G::Equalizer, "", 28, "", "Equalizer 1K2 Hz, <position> dB"},
    {"sl0(8)", 443, 144, 22, 84, K::Fader, G::Equalizer, "", 29, "", "Equalizer 2K5 Hz, <position> dB"},
    {"sl0(9)", 465, 144, 22, 84, K::Fader, G::Equalizer, "", 30, "", "Equalizer 4K Hz, <position> dB"},
    {"sl0(10)", 487, 144, 22, 84, K::Fader, G::Equalizer, "", 31, "", "Equalizer 5K4 Hz, <position> dB"},
    {"sl0(11)", 509, 144, 22, 84, K::Fader, G::Equalizer, "", 32, "", "Equalizer 6K3 Hz, <position> dB"},
    {"sl0(12)", 531, 144, 22, 84, K::Fader, G::Equalizer, "", 33, "", "Equalizer 8K3 Hz, <position> dB"},
    {"sl0(13)", 553, 144, 22, 84, K::Fader, G::Equalizer, "", 34, "", "Equalizer 12K Hz, <position> dB"},
    {"sl0(14)", 575, 144, 22, 84, K::Fader, G::Equalizer, "", 35, "", "Equalizer 18K Hz, <position> dB"},
    {"dbLabel0(0)", 268, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(0))"},
    {"dbLabel0(1)", 290, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(1))"},
    {"dbLabel0(2)", 312, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(2))"},
    {"dbLabel0(3)", 334, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(3))"},
    {"dbLabel0(4)", 356, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(4))"},
    {"dbLabel0(5)", 378, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(5))"},
    {"dbLabel0(6)", 400, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(6))"},
    {"dbLabel0(7)", 422, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(7))"},
    {"dbLabel0(8)", 444, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(8))"},
    {"dbLabel0(9)", 466, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(9))"},
    {"dbLabel0(10)", 488, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(10))"},
    {"dbLabel0(11)", 510, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(11))"},
    {"dbLabel0(12)", 532, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(12))"},
    {"dbLabel0(13)", 554, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(13))"},
    {"dbLabel0(14)", 576, 234, 20, 12, K::GainWindow, G::Equalizer, "", 0, "", "(value of sl0(14))"},
};

}  // namespace

std::span<const ControlBox> layout_equalizer() { return kEqualizer; }

}  // namespace tandem
