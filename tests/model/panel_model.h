// A second, independent description of what the panel does: transport, mix, list, displays and board as one struct of
// plain values with one function for each event. It knows no control and no component; what the panel asks of the sound
// components is kept in calls, in the words of tests/logged_graph/logged_graph.h.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fakes/fake_audio_file.h"
#include "model/panel_look.h"

namespace tandem::model {

struct Song {
  std::string SongFile;
  Number SongLength = 0;
  bool operator==(const Song&) const = default;
};

struct Ended {};  // an error has ended a handler; what it did until then stays

class PanelModel {
 public:
  explicit PanelModel(const test::FakeFiles& files) : files_(files) {}

  PanelLook look;
  std::array<Song, 201> SongTable;
  std::vector<std::string> calls;           // of the last event, on decks, pitch, mixer, output and MixTimer
  std::map<std::string, std::string> disk;  // playlist files: path to bytes
  std::string time_of_day = "12:34:56";
  bool ended = false;  // an error ended the last event's handler

  // Runs one event's handler and catches its early end.
  template <class Handler>
  void event(Handler handler) {
    calls.clear();
    ended = false;
    handle(handler);
  }

  // Transport.
  void play();
  void pause();
  void stop();
  void next();
  // Automatic mix.
  void tick();
  void finished(Number input);
  void click_lead(std::size_t lamp);
  void move_buffer_switch(Number position);
  void lose_device() { call("WaveOut.close()"); }
  void resynchronise();
  // Time display.
  void refresh();
  void delay_over();
  // Lets time pass in steps of 10 ms; timers that are due together tick in the order MixTimer, Timer, ListTimer,
  // TimerDelay, and an error in one leaves the others their turn.
  void wait(std::int64_t milliseconds);
  // List.
  void click_line(Number line);
  void double_click_line(Number line);
  void move_up();
  void move_down();
  void toggle_list();
  // Files: what the dialog answers, empty if it is cancelled.
  void load_song(const std::string& answer);
  void drop(const std::string& names) { add_songs(names); }
  void save(const std::string& answer);
  void open(const std::string& answer);
  void press_load_song(bool down) { look.LoadSong.Colour = down ? 0xE0E0E0 : 0x808080; }
  // Shaping.
  void press_pitch();
  void move_pitch(Number value);
  void release_pitch();
  void click_pitch_reset();
  void press_pitch_reset(bool down) { look.Command2.Colour = down ? 0x808080 : 0xC0C0C0; }
  void move_volume(Number value);
  void press_seek() { look.SeekDragging = -1; }
  void move_seek(Number value);
  void release_seek();
  void move_band(std::size_t band, Number value);
  void move_bypass(Number position);
  // Board and window.
  void click_lamp(std::size_t lamp);  // MMLEDX1 is 0
  void move_spinner(std::size_t spinner, Number value);
  void press_spinner(std::size_t spinner, bool up);
  void move_switch(std::size_t index, Number position);  // MMSwitchX1 is 4
  void toggle_board();
  void toggle_size();

 private:
  template <class Handler>
  void handle(Handler handler) {
    try {
      handler();
    } catch (const Ended&) {
      ended = true;
    }
  }
  void call(const std::string& text) { calls.push_back(text); }
  Song& song(Number number);
  const std::string& line(Number index) const;
  void put_index(Number index);
  void put_file(Number deck, const std::string& name);
  void put_mute(Number input, bool mute);
  void put_interval(Number milliseconds);
  void put_slider_maximum(Number maximum);
  void put_slider(Number position);
  Number idle() const { return (look.ActiveDeck + 1) & 1; }

  void show_song_info(Number number);
  void play_song(Number number);
  void start_mix();
  void free_the_keys();
  bool sounds(Number deck, const std::string& path) const;

  void renumber(std::vector<std::string>& list, std::size_t count);
  void compact_table();
  void rebuild_list();
  void swap_songs(Number number);

  struct Probe {
    std::string FileName;
    Number Length = 0;
  };
  Probe probe(const std::string& name) const;
  void append_line(const std::string& path);
  void add_songs(const std::string& names);
  void add_one(const std::string& name);
  void add_many(const std::vector<std::string>& characters, std::size_t folder_length);
  void label_first(const std::string& title);

  void pitch_texts(Number value, bool above);
  void pitch_sign(Number value);
  void set(SpectrumSetting setting, Number value);
  Number get(SpectrumSetting setting) const { return look.analyser.at(static_cast<std::size_t>(setting)); }
  void click_led_style(Number& lamp);
  void restore_board();
  void choose_display(Number position);
  void show_displays(std::array<bool, 5> chosen);

  void start_list_timer();
  void start_delay();

  const test::FakeFiles& files_;
  std::int64_t now_ = 0;  // milliseconds
  std::int64_t mix_due_ = 0;
  std::int64_t refresh_due_ = 200;
  std::int64_t list_due_ = 0;
  std::int64_t delay_due_ = 0;
  std::array<Song, 201> SongTableCopy_;
  std::array<std::string, 201> PickedNames_;
};

// "01 - path".
std::string line_text(Number number, std::string_view path);
std::vector<std::string> characters_of(std::string_view text);  // code points of a valid text
std::string without_first(const std::string& text, std::size_t characters);
std::string trim(const std::string& text);
std::string capitals(std::string text);
std::string time_text(Number milliseconds);  // "m:ss"
std::string song_time_text(Number milliseconds);
std::vector<std::string> fields_of(const std::string& bytes);

}  // namespace tandem::model
