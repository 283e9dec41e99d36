#include "playback/automatic_mix.h"

#include "base/text.h"
#include "controls/panel_controls.h"
#include "controls/panel_groups.h"
#include "playlist/list_lines.h"

namespace tandem {

namespace {

constexpr std::int32_t kSmallBuffers = 5120;  // bytes
constexpr std::int32_t kLargeBuffers = 10240;

}  // namespace

void AutomaticMix::tick() {
  if (state_.NextSongLoaded == kFalse) load_ahead();
  const ListBox& list = controls_.PlayList;
  if (list.ListIndex() + 1 == list.ListCount()) return;
  const std::int32_t p = sound_.AudioFile[static_cast<std::size_t>(state_.ActiveDeck)]->Position();
  const std::int64_t length = SongTable.at(state_.CurrentSong).SongLength;
  if (p > to_int32(length - state_.MixTimeMs) && state_.MixStarted == kFalse) start_mix();
}

void AutomaticMix::load_ahead() {
  const std::int16_t idle = state_.idle_deck();
  sound_.AudioFile[static_cast<std::size_t>(idle)]->put_FileName(SongTable.at(state_.CurrentSong + 1).SongFile);
  sound_.WaveMixer->put_Mute(idle, true);
  state_.NextSongLoaded = kTrue;
}

void AutomaticMix::start_mix() {
  ListBox& list = controls_.PlayList;
  sound_.WaveMixer->put_Mute(state_.idle_deck(), false);
  if (state_.CurrentSong < list.ListCount()) state_.CurrentSong = to_int16(state_.CurrentSong + 1);
  list.put_ListIndex(list.ListIndex() + 1);
  display_.ShowSongInfo(list.ListIndex() + 1);
  state_.MixStarted = kTrue;
}

void AutomaticMix::input_finished(int input) {
  const ListBox& list = controls_.PlayList;
  state_.ActiveDeck = state_.idle_deck();
  const SongEntry& song = SongTable.at(list.ListIndex() + 1);
  sound_.AudioFile.at(static_cast<std::size_t>(input))->put_FileName(song.SongFile);
  controls_.Slider1.put_maximum(song.SongLength);
  state_.MixStarted = kFalse;
  state_.NextSongLoaded = kFalse;
  if (!controls_.NextBtn.Enabled) enable_changes();
  const bool last = list.ListIndex() + 1 == list.ListCount();
  if (last && sound_.WaveMixer->Mute(1) && sound_.WaveMixer->Mute(0)) transport_.stop();
}

void AutomaticMix::enable_changes() {
  controls_.NextBtn.Enabled = true;
  controls_.NextBtn.BackColor = kNextAfter;
  controls_.UpList.Enabled = true;
  controls_.DownList.Enabled = true;
}

void AutomaticMix::choose_lead_time(std::size_t choice) {
  const LeadTime& chosen = kLeadTimes.at(choice);
  const bool was_dark = (controls_.*chosen.lamp).LEDColor == kLeadDark;
  if (was_dark) {
    state_.MixTimeMs = chosen.milliseconds;
    light_lead_time(chosen.milliseconds);
    return;
  }
  (controls_.*chosen.lamp).LEDColor = kLeadDark;
  for (const LeadTime& each : kLeadTimes)
    if ((controls_.*each.lamp).LEDColor != kLeadDark) return;
  controls_.AMLed2.LEDColor = kLeadLit;
}

void AutomaticMix::light_lead_time(std::int16_t milliseconds) {
  for (const LeadTime& chosen : kLeadTimes) {
    if (chosen.milliseconds != milliseconds) continue;
    for (const LeadTime& each : kLeadTimes)
      (controls_.*each.lamp).LEDColor = each.milliseconds == milliseconds ? kLeadLit : kLeadDark;
  }
}

void AutomaticMix::change_buffers() {
  const bool small = controls_.BufferSwitch.Position == 0;
  MMWaveOutX& output = *sound_.WaveOut;
  output.stop();
  output.close();
  output.put_BufferSize(small ? kSmallBuffers : kLargeBuffers);
  state_.BufferMode = small ? 0 : 1;
  output.open();
  output.start();
  transport_.stop();
}

void AutomaticMix::close_output() { sound_.WaveOut->close(); }

bool AutomaticMix::sounds_on(std::size_t deck, std::string_view path) const {
  return !sound_.WaveMixer->Mute(static_cast<int>(deck)) && trimmed(sound_.AudioFile[deck]->FileName()) == path;
}

// Leaves ScanIndex at the line, or at the line count.
bool AutomaticMix::find_audible_line() {
  const ListBox& list = controls_.PlayList;
  // NOLINTNEXTLINE(bugprone-too-small-loop-variable): the index has 16 bits on purpose
  for (state_.ScanIndex = 0; state_.ScanIndex < list.ListCount(); state_.ScanIndex = to_int16(state_.ScanIndex + 1)) {
    const std::string_view path = line_rest(list.List(state_.ScanIndex), kNumberCut);
    if (sounds_on(0, path) || sounds_on(1, path)) return true;
  }
  return false;
}

void AutomaticMix::synchronise_list() {
  ListBox& list = controls_.PlayList;
  if (find_audible_line() || list.ListIndex() != -1) {
    list.put_ListIndex(state_.ScanIndex);
    state_.CurrentSong = to_int16(state_.ScanIndex + 1);
    controls_.UpList.Enabled = true;
    controls_.DownList.Enabled = true;
    list.Enabled = true;
    controls_.NextBtn.Enabled = true;
    state_.NextSongLoaded = kFalse;
  }
  sound_.ListTimer->put_Enabled(false);
}

}  // namespace tandem
