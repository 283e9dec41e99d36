// Display area and song list.
#include "layout/layout_tables.h"

namespace tandem {

namespace {

using K = ControlKind;
using G = ControlGroup;

// Name, x, y, w, h, kind, group, caption, tab, tip, accessible name, cells or digits, dot pitch.
constexpr ControlBox kRight[] = {
    {"Display well", 262, 14, 341, 95, K::GlassPanel, G::Visual, "", 0, "", "(decorative)"},
    {"MMSpectrum1", 264, 16, 337, 91, K::Display, G::Visual, "", 0, "", "Spectrum analyser"},
    {"MMMeterX1", 264, 16, 163, 91, K::Display, G::Visual, "", 0, "", "Left level, dB"},
    {"MMLevelX1", 426, 16, 13, 91, K::Display, G::Visual, "", 0, "", "Level bar"},
    {"MMMeterX2", 438, 16, 163, 91, K::Display, G::Visual, "", 0, "", "Right level, dB"},
    {"MMOscopeX1", 264, 16, 337, 91, K::Display, G::Visual, "", 0, "", "Oscilloscope"},
    {"PlayList", 262, 113, 293, 141, K::SongList, G::List, "", 40, "", "Playlist"},
    {"UpList", 559, 113, 44, 28, K::Key, G::List, "", 41, "", "Move song up"},
    {"DownList", 559, 145, 44, 28, K::Key, G::List, "", 42, "", "Move song down"},
    {"LoadList", 559, 196, 44, 27, K::Key, G::List, "Open", 43, "", "Open playlist file"},
    {"SaveList", 559, 227, 44, 27, K::Key, G::List, "Save", 44, "", "Save playlist file"},
};

}  // namespace

std::span<const ControlBox> layout_right() { return kRight; }

}  // namespace tandem
