// Names and values of what differs between two looks.
#include <sstream>

#include "model/panel_look.h"

namespace tandem::model {

namespace {

std::ostream& operator<<(std::ostream& out, const Box& box) {
  return out << "{Enabled " << box.Enabled << " Visible " << box.Visible << " colour " << std::hex << box.Colour
             << std::dec << " picture " << box.Picture << '}';
}
std::ostream& operator<<(std::ostream& out, const Text& text) {
  return out << "{\"" << text.Caption << "\" colour " << std::hex << text.Colour << std::dec << " scrolling "
             << text.Scrolling << '}';
}
std::ostream& operator<<(std::ostream& out, const DeckLook& deck) {
  return out << "{\"" << deck.FileName << "\" at " << deck.Position << " pitch " << deck.Pitch << " mute " << deck.Mute
             << '}';
}

template <class T>
void write(std::ostream& out, const T& value) {
  if constexpr (requires { out << value; }) {
    out << value;
  } else {
    out << '[';
    for (const auto& one : value) {
      write(out, one);
      out << ", ";
    }
    out << ']';
  }
}

struct Comparison {
  const PanelLook& expected;
  const PanelLook& found;
  std::ostringstream out;

  template <class T>
  void field(const char* name, T PanelLook::*member) {
    if (expected.*member == found.*member) return;
    out << "  " << name << ": expected ";
    write(out, expected.*member);
    out << ", found ";
    write(out, found.*member);
    out << '\n';
  }
};

void compare_state(Comparison& all) {
  all.field("CurrentSong", &PanelLook::CurrentSong);
  all.field("ActiveDeck", &PanelLook::ActiveDeck);
  all.field("SelectedEntry", &PanelLook::SelectedEntry);
  all.field("SongCount", &PanelLook::SongCount);
  all.field("MixTimeMs", &PanelLook::MixTimeMs);
  all.field("BufferMode", &PanelLook::BufferMode);
  all.field("MixStarted", &PanelLook::MixStarted);
  all.field("NextSongLoaded", &PanelLook::NextSongLoaded);
  all.field("SeekDragging", &PanelLook::SeekDragging);
  all.field("PitchMoving", &PanelLook::PitchMoving);
  all.field("LastFolder", &PanelLook::LastFolder);
  all.field("InitDir", &PanelLook::InitDir);
  all.field("Filter", &PanelLook::Filter);
  all.field("PlayList", &PanelLook::PlayList);
  all.field("ListAux", &PanelLook::ListAux);
  all.field("ListAux2", &PanelLook::ListAux2);
  all.field("ListIndex", &PanelLook::ListIndex);
  all.field("PlayListEnabled", &PanelLook::PlayListEnabled);
  all.field("PlayListVisible", &PanelLook::PlayListVisible);
  all.field("decks", &PanelLook::decks);
  all.field("MixTimer", &PanelLook::MixTimer);
  all.field("BufferSize", &PanelLook::BufferSize);
  all.field("MixerVolume", &PanelLook::MixerVolume);
  all.field("ListTimer", &PanelLook::ListTimer);
  all.field("TimerDelay", &PanelLook::TimerDelay);
  all.field("Bypassed", &PanelLook::Bypassed);
}

void compare_player(Comparison& all) {
  all.field("PLAY", &PanelLook::PLAY);
  all.field("PAUSE", &PanelLook::PAUSE);
  all.field("STOPBtn", &PanelLook::STOPBtn);
  all.field("NextBtn", &PanelLook::NextBtn);
  all.field("UpList", &PanelLook::UpList);
  all.field("DownList", &PanelLook::DownList);
  all.field("LoadList", &PanelLook::LoadList);
  all.field("SaveList", &PanelLook::SaveList);
  all.field("LoadSong", &PanelLook::LoadSong);
  all.field("Command2", &PanelLook::Command2);
  all.field("ShowPlayList", &PanelLook::ShowPlayList);
  all.field("ShowControls", &PanelLook::ShowControls);
  all.field("leads", &PanelLook::leads);
  all.field("EqualizerVisible", &PanelLook::EqualizerVisible);
  all.field("SongLabel", &PanelLook::SongLabel);
  all.field("LblPosition", &PanelLook::LblPosition);
  all.field("LblTempTot", &PanelLook::LblTempTot);
  all.field("ClockLabel", &PanelLook::ClockLabel);
  all.field("INDIC", &PanelLook::INDIC);
  all.field("signs", &PanelLook::signs);
  all.field("MeterVol", &PanelLook::MeterVol);
  all.field("Progress", &PanelLook::Progress);
  all.field("Volume", &PanelLook::Volume);
  all.field("SliderP", &PanelLook::SliderP);
  all.field("Slider1", &PanelLook::Slider1);
  all.field("Slider1Maximum", &PanelLook::Slider1Maximum);
  all.field("BufferSwitch", &PanelLook::BufferSwitch);
}

void compare_board(Comparison& all) {
  all.field("bands", &PanelLook::bands);
  all.field("gains", &PanelLook::gains);
  all.field("gain_texts", &PanelLook::gain_texts);
  all.field("lamps", &PanelLook::lamps);
  all.field("spinners", &PanelLook::spinners);
  all.field("switches", &PanelLook::switches);
  all.field("analyser", &PanelLook::analyser);
  all.field("displays", &PanelLook::displays);
  all.field("targets", &PanelLook::targets);
  all.field("Width", &PanelLook::Width);
  all.field("Height", &PanelLook::Height);
  all.field("Top", &PanelLook::Top);
}

}  // namespace

std::string differences(const PanelLook& expected, const PanelLook& found) {
  Comparison all{expected, found, {}};
  compare_state(all);
  compare_player(all);
  compare_board(all);
  return all.out.str();
}

}  // namespace tandem::model
