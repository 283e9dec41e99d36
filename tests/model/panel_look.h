// Everything that can be seen of the panel, as plain values: taken from the real panel, and kept by the model.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "audio/mm_displays.h"

namespace tandem::model {

using Number = std::int32_t;

// The panel's colours, blue in the upper byte.
inline constexpr Number kRed = 0x0000FF;
inline constexpr Number kMaroon = 0x000080;
inline constexpr Number kYellow = 0x00FFFF;
inline constexpr Number kOlive = 0x008080;
inline constexpr Number kLime = 0x00FF00;
inline constexpr Number kGreen = 0x008000;
inline constexpr Number kAqua = 0xFFFF00;
inline constexpr Number kTeal = 0x808000;

inline const std::string kBlanks(14, ' ');  // before and after a running title

struct Box {  // a button, lamp or display: what is used of it
  bool Enabled = true;
  bool Visible = true;
  Number Colour = 0;  // BackColor or LEDColor
  Number Picture = 0;
  bool operator==(const Box&) const = default;
};

struct Text {  // an LED label
  std::string Caption;
  Number Colour = 0;
  bool Scrolling = false;
  bool operator==(const Text&) const = default;
};

struct DeckLook {
  std::string FileName;
  Number Position = 0;
  float Pitch = 0.0F;
  bool Mute = true;
  bool operator==(const DeckLook&) const = default;
};

struct PanelLook {
  Number CurrentSong = 0, ActiveDeck = 0, SelectedEntry = 0, SongCount = 0, MixTimeMs = 0, BufferMode = 0;
  Number MixStarted = 0, NextSongLoaded = 0, SeekDragging = 0, PitchMoving = 0;  // flags, -1 or 0
  std::string LastFolder, InitDir, Filter;

  std::vector<std::string> PlayList, ListAux, ListAux2;
  Number ListIndex = -1;
  bool PlayListEnabled = true, PlayListVisible = true;

  std::array<DeckLook, 2> decks;
  Number MixTimer = 0, BufferSize = 0, MixerVolume = 0;
  bool ListTimer = false, TimerDelay = false, Bypassed = false;

  Box PLAY, PAUSE, STOPBtn, NextBtn, UpList, DownList, LoadList, SaveList, LoadSong, Command2, ShowPlayList,
      ShowControls;
  std::array<Number, 4> leads{};  // LEDColor of AMLedOff, AMLed1, AMLed2, AMLed3
  bool EqualizerVisible = false;

  Text SongLabel, LblPosition, LblTempTot, ClockLabel, INDIC;
  std::array<Box, 3> signs;  // LED1 .. LED3
  Box MeterVol;
  Number Progress = 0, Volume = 0, SliderP = 0, Slider1 = 0, Slider1Maximum = 0, BufferSwitch = 0;

  std::array<Number, 15> bands{};
  std::array<double, 15> gains{};
  std::array<std::string, 15> gain_texts;

  std::array<Number, 6> lamps{};     // LEDColor of MMLEDX1 .. MMLEDX6
  std::array<Number, 8> spinners{};  // MMLEDSpin1 .. MMLEDSpin8
  std::array<Number, 5> switches{};  // MMSwitch1 .. MMSwitch4, MMSwitchX1
  std::array<Number, static_cast<std::size_t>(SpectrumSetting::Count)> analyser{};
  std::array<Box, 5> displays;         // MMSpectrum1, MMMeterX1, MMMeterX2, MMLevelX1, MMOscopeX1
  std::array<std::string, 5> targets;  // of the connector, in the same order
  Number Width = 0, Height = 0, Top = 0;

  bool operator==(const PanelLook&) const = default;
};

// Names of the fields in which the two differ, each with both values.
std::string differences(const PanelLook& expected, const PanelLook& found);

}  // namespace tandem::model
