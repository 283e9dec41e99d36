#include "playback/transport.h"

#include <cstddef>

#include "controls/panel_controls.h"

namespace tandem {

namespace {

constexpr std::int32_t kMixInterval = 10;        // ms
constexpr std::int32_t kRunOut = 4000;           // ms in which a skipped song ends
constexpr Colour kNextWhileSkipping = clSilver;  // &HC0C0C0

}  // namespace

void Transport::play() {
  const ListBox& list = controls_.PlayList;
  if (list.List(0).empty()) return;
  if (list.List(list.ListIndex()).empty()) {
    start_first();
  } else {
    start_selected(list.ListIndex() + 1);
  }
  state_.ActiveDeck = 0;
  state_.NextSongLoaded = kFalse;
  sound_.MixTimer->put_Interval(kMixInterval);
  controls_.PLAY.Picture = 1;
  controls_.STOPBtn.Picture = 4;
}

void Transport::start_first() {
  controls_.PlayList.put_ListIndex(0);
  sound_.AudioFile[0]->put_FileName(SongTable.at(1).SongFile);
  sound_.WaveMixer->put_Mute(0, false);
  state_.CurrentSong = 1;
  controls_.Slider1.put_maximum(SongTable.at(1).SongLength);
  display_.ShowSongInfo(1);
}

void Transport::start_selected(std::int32_t song) {
  MMWaveMixerX& mixer = *sound_.WaveMixer;
  if (!mixer.Mute(0)) mixer.put_Mute(0, true);
  if (!mixer.Mute(1)) mixer.put_Mute(1, true);
  sound_.AudioFile[0]->put_FileName(SongTable.at(song).SongFile);
  state_.CurrentSong = to_int16(song);
  mixer.put_Mute(0, false);
  controls_.Slider1.put_maximum(SongTable.at(song).SongLength);
  display_.ShowSongInfo(song);
}

void Transport::pause() {
  const bool pausing = controls_.PAUSE.BackColor == clOlive;
  if (pausing) {
    sound_.WaveOut->pause();
  } else {
    sound_.WaveOut->restart();
  }
  controls_.PAUSE.BackColor = pausing ? clYellow : clOlive;
  controls_.PAUSE.Picture = pausing ? 3 : 2;
}

void Transport::stop() {
  sound_.MixTimer->put_Interval(0);
  sound_.WaveMixer->put_Mute(0, true);
  sound_.WaveMixer->put_Mute(1, true);
  state_.MixStarted = kFalse;
  state_.NextSongLoaded = kFalse;
  controls_.LblPosition.Caption = "00:00";
  controls_.PLAY.Picture = 0;
  controls_.STOPBtn.Picture = 5;
  controls_.Slider1.Position = 0;
}

void Transport::next() {
  ListBox& list = controls_.PlayList;
  if (state_.CurrentSong == list.ListCount() && list.List(list.ListIndex() + 1).empty()) return;
  list.put_ListIndex(state_.CurrentSong - 1);
  disable_changes();
  sound_.WaveMixer->put_Mute(state_.idle_deck(), false);
  if (state_.CurrentSong < list.ListCount()) state_.CurrentSong = to_int16(state_.CurrentSong + 1);
  sound_.AudioFile[static_cast<std::size_t>(state_.ActiveDeck)]->finish(kRunOut);
  list.put_ListIndex(list.ListIndex() + 1);
  display_.ShowSongInfo(list.ListIndex() + 1);
}

// No skip and no reordering during the change-over.
void Transport::disable_changes() {
  controls_.NextBtn.Enabled = false;
  controls_.NextBtn.BackColor = kNextWhileSkipping;
  controls_.UpList.Enabled = false;
  controls_.DownList.Enabled = false;
}

}  // namespace tandem
