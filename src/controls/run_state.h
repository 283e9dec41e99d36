// The panel's variables that no control shows. UI thread only.
// They are 16 bits wide where the name says nothing else; flags are -1 for true and 0 for false.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "base/runtime_error.h"

namespace tandem {

struct RunState {
  std::int16_t SongCount = 0;      // songs added since the list was last emptied
  std::int16_t CurrentSong = 0;    // number (from 1) of the song that is sounding
  std::int16_t ActiveDeck = 0;     // 0 or 1: the deck of the current song
  std::int16_t SelectedEntry = 0;  // the line of PlayList last clicked, from 0
  std::int16_t MixTimeMs = 0;      // how long before a song's end the next one starts
  std::int16_t BufferMode = 0;     // 0: buffers of 5120 bytes, else 10240

  Flag MixStarted = kFalse;      // the next song has been started for the current one
  Flag NextSongLoaded = kFalse;  // the next song is on the idle deck
  Flag SeekDragging = kFalse;    // the user holds Slider1
  Flag PitchMoving = kFalse;     // SliderP has changed since it was pressed

  std::string LastFolder;  // of the last song or playlist opened

  // Scratch of the handlers.
  std::int16_t LoopIndex = 0;
  std::int16_t ScanIndex = 0;
  std::int16_t BandIndex = 0;
  std::int16_t BandLow = 0;
  std::int16_t BandHigh = 0;

  // What the settings file held, until it is in the controls.
  std::array<std::int16_t, 16> EqLevels{};
  std::int32_t SavedVolume = 0;
  std::array<std::int16_t, 9> SpinValues{};
  std::array<std::int16_t, 5> SwitchPositions{};
  std::int16_t DisplayChoice = 0;
  std::array<std::int16_t, 6> OptionFlags{};

  std::int16_t idle_deck() const { return static_cast<std::int16_t>((ActiveDeck + 1) & 1); }
};

}  // namespace tandem
