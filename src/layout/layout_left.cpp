// Head, display panel, transport and the lower left.
#include "layout/layout_tables.h"

namespace tandem {

namespace {

using K = ControlKind;
using G = ControlGroup;

// Name, x, y, w, h, kind, group, caption, tab, tip, accessible name, cells or digits, dot pitch.
constexpr ControlBox kLeft[] = {
    {"Window grip", 0, 0, 607, 14, K::Grip, G::Chrome, "", 0, "", "(none)"},
    {"Minimise", 571, 1, 16, 13, K::ChromeButton, G::Chrome, "", 81, "", "Minimise"},
    {"Close", 588, 1, 16, 13, K::ChromeButton, G::Chrome, "", 82, "", "Close"},
    {"MMPanelX1(1)", 4, 14, 254, 95, K::GlassPanel, G::Display, "", 0, "", "Display, press to change the window size"},
    {"Image1", 10, 20, 241, 83, K::Picture, G::Display, "", 0, "", "(decorative)"},
    {"MMLEDLABELX1", 15, 29, 29, 7, K::LedLabel, G::Display, "SONG:", 0, "", "(label of SongLabel)", 5, 1},
    {"SongLabel", 69, 22, 178, 14, K::LedLabel, G::Display, "", 0, "", "Song: <caption>", 15, 2},
    {"MMLEDLABELX2", 15, 60, 47, 7, K::LedLabel, G::Display, "COUNTER:", 0, "", "(label of LblPosition)", 8, 1},
    {"LblPosition", 69, 46, 87, 21, K::LedLabel, G::Display, "", 0, "", "Position: <caption>", 5, 3},
    {"LblTempTot", 189, 53, 58, 14, K::LedLabel, G::Display, "", 0, "", "Total time: <caption>", 5, 2},
    {"INDIC", 15, 76, 106, 14, K::LedLabel, G::Display, "VOLUME", 0, "", "Read-out: <caption>", 9, 2},
    {"MMLEDLABELX3", 153, 83, 29, 7, K::LedLabel, G::Display, "TIME:", 0, "", "(label of ClockLabel)", 5, 1},
    {"ClockLabel", 189, 76, 58, 14, K::LedLabel, G::Display, "", 0, "", "Time of day: <caption>", 5, 2},
    {"MeterVol", 15, 95, 231, 6, K::Gauge, G::Display, "", 0, "", "Volume <Progress> %"},
    {"LED1", 15, 95, 30, 6, K::PitchLamp, G::Display, "", 0, "", "Pitch below zero"},
    {"LED2", 116, 95, 30, 6, K::PitchLamp, G::Display, "", 0, "", "Pitch zero"},
    {"LED3", 217, 95, 30, 6, K::PitchLamp, G::Display, "", 0, "", "Pitch above zero"},
    {"Slider1", 4, 113, 204, 14, K::Slider, G::Transport, "", 6, "", "Song position"},
    {"PLAY", 4, 131, 40, 30, K::Key, G::Transport, "", 1, "", "Play"},
    {"PAUSE", 48, 131, 37, 30, K::Key, G::Transport, "", 2, "", "Pause (pressed state = paused)"},
    {"STOPBtn", 89, 131, 37, 30, K::Key, G::Transport, "", 3, " Stop ", "Stop"},
    {"NextBtn", 130, 131, 37, 30, K::Key, G::Transport, "", 4, "", "Next song"},
    {"LoadSong", 171, 131, 37, 30, K::Key, G::Transport, "SONG", 5, " Load a Song ", "Load a song"},
    {"Volume", 212, 113, 46, 48, K::Wheel, G::Transport, "", 7, " Volume ", "Volume"},
    {"Label3(0)", 9, 168, 50, 12, K::Caption, G::Mix, "Auto MIX  >", 0, "", ""},
    {"Label3(1)", 67, 168, 16, 12, K::Caption, G::Mix, "0", 0, "", ""},
    {"AMLedOff", 84, 166, 16, 16, K::LeadLamp, G::Mix, "", 10, " 2,5 seg. ", "Auto mix lead 0.28 s"},
    {"Label3(2)", 101, 168, 16, 12, K::Caption, G::Mix, "1,0", 0, "", ""},
    {"AMLed1", 118, 166, 16, 16, K::LeadLamp, G::Mix, "", 11, " 0,5 seg. ", "Auto mix lead 1 s"},
    {"Label3(3)", 135, 168, 16, 12, K::Caption, G::Mix, "2,5", 0, "", ""},
    {"AMLed2", 152, 166, 16, 16, K::LeadLamp, G::Mix, "", 12, " 1,5 seg. ", "Auto mix lead 2.5 s"},
    {"Label3(4)", 169, 168, 16, 12, K::Caption, G::Mix, "3,5", 0, "", ""},
    {"AMLed3", 186, 166, 16, 16, K::LeadLamp, G::Mix, "", 13, " 2,5 seg. ", "Auto mix lead 3.5 s"},
    {"MMSwitchX1", 4, 187, 90, 67, K::Rotary, G::Mix, "Meter", 14, "", "Meter: <position>"},
    {"Label3(5)", 9, 190, 28, 12, K::Caption, G::Mix, "Meter", 0, "", ""},
    {"BufferSwitch", 104, 190, 12, 32, K::SlideSwitch, G::Mix, "Buf1 / Buf2", 15, "", "Output buffer: <position>"},
    {"Bypass", 161, 190, 12, 32, K::SlideSwitch, G::Mix, "Bypass / EQ", 16, "", "Equalizer: <position>"},
    {"PITCH legend", 221, 168, 31, 12, K::Caption, G::Mix, "PITCH", 0, "", ""},
    {"ShowPlayList", 98, 230, 53, 24, K::Key, G::Mix, "Playlist", 17, " Show Playlist ", "Show playlist"},
    {"ShowControls", 155, 230, 53, 24, K::Key, G::Mix, "Controls", 18, " Show Controls ", "Show controls board"},
    {"SliderP", 214, 181, 20, 73, K::Fader, G::Mix, "", 8, " Pitch Adjust ", "Pitch"},
    {"Command2", 242, 211, 13, 13, K::Stud, G::Mix, "", 9, "", "Reset pitch"},
};

}  // namespace

std::span<const ControlBox> layout_left() { return kLeft; }

}  // namespace tandem
