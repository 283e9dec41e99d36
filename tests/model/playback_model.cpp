// Transport, automatic mix and time display.
#include "model/panel_model.h"

namespace tandem::model {

namespace {
constexpr Number kLit = 33023;
constexpr Number kDark = 16512;
constexpr std::array<Number, 4> kLeadMs{280, 1000, 2500, 3500};
}  // namespace

void PanelModel::show_song_info(Number number) {
  const Song shown = song(number);
  const std::size_t separator = shown.SongFile.rfind('/');
  const std::string file = capitals(shown.SongFile);
  std::string& caption = look.SongLabel.Caption;
  caption = separator == std::string::npos ? file : file.substr(separator + 1);
  if (characters_of(caption).size() < 14) {
    look.SongLabel.Scrolling = false;
  } else if (!caption.starts_with("    ")) {
    caption = kBlanks + caption;
    look.SongLabel.Scrolling = true;
  }
  look.LblTempTot.Caption = song_time_text(shown.SongLength);
}

void PanelModel::play_song(Number number) {
  for (const Number input : {0, 1})
    if (!look.decks.at(static_cast<std::size_t>(input)).Mute) put_mute(input, true);
  put_file(0, song(number).SongFile);
  look.CurrentSong = number;
  put_mute(0, false);
  put_slider_maximum(song(number).SongLength);
  show_song_info(number);
}

void PanelModel::play() {
  if (line(0).empty()) return;
  if (line(look.ListIndex).empty()) {
    // From the top: what sounds on deck 1 goes on sounding.
    put_index(0);
    put_file(0, song(1).SongFile);
    put_mute(0, false);
    look.CurrentSong = 1;
    put_slider_maximum(song(1).SongLength);
    show_song_info(1);
  } else {
    play_song(look.ListIndex + 1);
  }
  look.ActiveDeck = 0;
  look.NextSongLoaded = 0;
  put_interval(10);
  look.PLAY.Picture = 1;
  look.STOPBtn.Picture = 4;
}

void PanelModel::pause() {
  const bool running = look.PAUSE.Colour == 0x008080;
  call(running ? "WaveOut.pause()" : "WaveOut.restart()");
  look.PAUSE.Colour = running ? 0x00FFFF : 0x008080;
  look.PAUSE.Picture = running ? 3 : 2;
}

void PanelModel::stop() {
  put_interval(0);
  put_mute(0, true);
  put_mute(1, true);
  look.MixStarted = 0;
  look.NextSongLoaded = 0;
  look.LblPosition.Caption = "00:00";
  look.PLAY.Picture = 0;
  look.STOPBtn.Picture = 5;
  put_slider(0);
}

void PanelModel::next() {
  const auto count = static_cast<Number>(look.PlayList.size());
  if (look.CurrentSong == count && line(look.ListIndex + 1).empty()) return;
  put_index(look.CurrentSong - 1);
  look.NextBtn.Enabled = look.UpList.Enabled = look.DownList.Enabled = false;
  look.NextBtn.Colour = 0xC0C0C0;
  put_mute(idle(), false);
  if (look.CurrentSong < count) ++look.CurrentSong;
  call("AudioFile(" + std::to_string(look.ActiveDeck) + ").finish(4000)");
  put_index(look.ListIndex + 1);
  show_song_info(look.ListIndex + 1);
}

void PanelModel::tick() {
  if (look.NextSongLoaded == 0) {
    put_file(idle(), song(look.CurrentSong + 1).SongFile);
    put_mute(idle(), true);
    look.NextSongLoaded = -1;
  }
  if (look.ListIndex + 1 == static_cast<Number>(look.PlayList.size())) return;
  const Number position = look.decks.at(static_cast<std::size_t>(look.ActiveDeck)).Position;
  const bool due = position > song(look.CurrentSong).SongLength - look.MixTimeMs;
  if (due && look.MixStarted == 0) start_mix();
}

void PanelModel::start_mix() {
  put_mute(idle(), false);
  if (look.CurrentSong < static_cast<Number>(look.PlayList.size())) ++look.CurrentSong;
  put_index(look.ListIndex + 1);
  show_song_info(look.ListIndex + 1);
  look.MixStarted = -1;
}

void PanelModel::finished(Number input) {
  look.decks.at(static_cast<std::size_t>(input)).Mute = true;  // by the mixer, before it notifies
  look.ActiveDeck = idle();
  const Number number = look.ListIndex + 1;
  put_file(input, song(number).SongFile);
  put_slider_maximum(song(number).SongLength);
  look.MixStarted = 0;
  look.NextSongLoaded = 0;
  if (!look.NextBtn.Enabled) free_the_keys();
  const bool last_line = look.ListIndex + 1 == static_cast<Number>(look.PlayList.size());
  if (last_line && look.decks[0].Mute && look.decks[1].Mute) stop();
}

void PanelModel::free_the_keys() {
  look.NextBtn.Enabled = look.UpList.Enabled = look.DownList.Enabled = true;
  look.NextBtn.Colour = 0xFF8080;
}

void PanelModel::click_lead(std::size_t lamp) {
  if (look.leads.at(lamp) == kDark) {
    look.MixTimeMs = kLeadMs.at(lamp);
    look.leads = {kDark, kDark, kDark, kDark};
    look.leads.at(lamp) = kLit;
    return;
  }
  // A lit lamp that is clicked passes its light to the third, but the lead time stays.
  look.leads.at(lamp) = kDark;
  if (look.leads == std::array<Number, 4>{kDark, kDark, kDark, kDark}) look.leads[2] = kLit;
}

void PanelModel::move_buffer_switch(Number position) {
  look.BufferSwitch = position;
  look.BufferMode = position == 0 ? 0 : 1;
  look.BufferSize = position == 0 ? 5120 : 10240;
  call("WaveOut.stop()");
  call("WaveOut.close()");
  call("WaveOut.BufferSize(" + std::to_string(look.BufferSize) + ")");
  call("WaveOut.open()");
  call("WaveOut.start()");
  stop();
}

bool PanelModel::sounds(Number deck, const std::string& path) const {
  const DeckLook& file = look.decks.at(static_cast<std::size_t>(deck));
  return !file.Mute && trim(file.FileName) == path;
}

void PanelModel::resynchronise() {
  const auto count = static_cast<Number>(look.PlayList.size());
  Number scan = 0;
  for (; scan < count; ++scan) {
    const std::string path = trim(without_first(line(scan), 5));
    if (sounds(0, path) || sounds(1, path)) break;
  }
  if (scan < count || look.ListIndex != -1) {
    put_index(scan);
    look.CurrentSong = scan + 1;
    look.UpList.Enabled = look.DownList.Enabled = look.PlayListEnabled = look.NextBtn.Enabled = true;
    look.NextSongLoaded = 0;
  }
  look.ListTimer = false;
}

void PanelModel::refresh() {
  look.ClockLabel.Caption = time_of_day.substr(0, 5);
  if (look.SeekDragging != 0) return;
  const Number position = look.decks.at(static_cast<std::size_t>(look.ActiveDeck)).Position;
  if (position < 1) return;
  look.LblPosition.Caption = song_time_text(position);
  put_slider(position);
}

void PanelModel::delay_over() {
  release_pitch();
  look.TimerDelay = false;
}

}  // namespace tandem::model
