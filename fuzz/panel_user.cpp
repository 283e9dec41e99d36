#include "panel_user.h"

#include "controls/panel_groups.h"
#include "fuzz_target.h"
#include "settings/settings_file.h"
#include "support/bytes.h"
#include "support/wav_writer.h"

namespace tandem::fuzz {

namespace {

using test::Encoding;
using test::music;
using test::wav_file;

SimulatedPlayer::Options options_for(const SongShelf& shelf) {
  return {.directory = shelf.path(), .sink = {}, .log = {}, .show_message = [](const std::string&) {
            require(false, "the user gets no message");
          }};
}

}  // namespace

SongShelf::SongShelf() {
  const auto add = [this](const std::string& name, const test::Bytes& bytes) {
    test::write_file(directory_.file(name), bytes);
    names_.push_back(name);
  };
  const test::Bytes song = wav_file(music(0.6), Encoding::kInt16);
  add("a.wav", song);
  add("tiny.wav", wav_file(music(0.004), Encoding::kInt16));
  add("a longer name of a song.wav", wav_file(music(0.4, 22050, 1), Encoding::kInt8));
  add("cut.wav", test::slice(song, 0, song.size() / 3));
  add("garbage.mp3", test::random_bytes(3000, 1));
  add("three.wav", wav_file(music(3.0, 8000, 1), Encoding::kInt16));
  add("empty.wav", {});
  add("tagged.mp3", test::read_file(TANDEM_FUZZ_SEEDS "/song/mp3_tagged"));
  names_.emplace_back("missing.mp3");
  std::string list;
  for (const std::string& name : names_) list += " " + directory_.file(name) + "\r\n";
  test::write_file(directory_.file("mixed.m3l"), test::text_bytes(list));
}

std::string SongShelf::song(unsigned number) const { return directory_.file(names_[number % names_.size()]); }

std::string SongShelf::answer(unsigned first, unsigned count) const {
  if (count < 2) return song(first);
  std::string text = directory_.path();
  for (unsigned i = 0; i < count; ++i) text += '\0' + names_[(first + i) % names_.size()];
  return text;
}

PanelUser::PanelUser(const SongShelf& shelf)
    : shelf_(shelf), player_(options_for(shelf)), controls_(player_.program.controls) {
  test::write_file(shelf.path() + "/TP.inf", test::text_bytes(factory_settings()));
  player_.load();
  for (unsigned i = 0; i < 3; ++i) answer(shelf.song(i), controls_.LoadSong);
}

PanelUser::~PanelUser() { player_.unload(); }

void PanelUser::press(Button& key) {
  if (!key.Enabled) return;
  key.press.raise();
  key.release.raise();
  key.click.raise();
}

void PanelUser::answer(const std::string& text, Button& key) {
  player_.dialog.answers.assign(1, text);
  press(key);
}

void PanelUser::act(unsigned what, unsigned first, unsigned second) {
  press_key(what % 32, first, second);
  if (second % 4 == 0) player_.run(10 + 10 * (first % 4));
}

void PanelUser::press_key(unsigned kind, unsigned first, unsigned second) {
  switch (kind) {
    case 0:
    case 1:
      return press(controls_.PLAY);
    case 2:
      return press(first % 4 == 0 ? controls_.STOPBtn : controls_.NextBtn);
    case 3:
    case 4:
      return press(controls_.NextBtn);
    case 5:
      return press(controls_.PAUSE);
    case 6:
      return press(controls_.UpList);
    case 7:
      return press(controls_.DownList);
    case 8:
    case 9:
      return player_.run(first);
    case 10:
      return player_.run(first % 8 == 0 ? 4000 : 20);
    default:
      return use_list(kind, first, second);
  }
}

void PanelUser::use_list(unsigned kind, unsigned first, unsigned second) {
  const std::int32_t lines = controls_.PlayList.ListCount();
  const auto line = [lines, first] { return static_cast<std::int32_t>(first) % lines; };
  switch (kind) {
    case 11:
    case 12:
      if (lines > 0 && controls_.PlayList.Enabled) controls_.PlayList.user_select(line());
      return;
    case 13:
    case 14:
      if (lines > 0 && controls_.PlayList.Enabled) controls_.PlayList.user_double_click(line());
      return;
    case 15:
    case 16:
      return answer(first % 9 == 0 ? "" : shelf_.answer(first, second % 5), controls_.LoadSong);
    case 17:
      return controls_.Painel.files_dropped.raise(shelf_.answer(first, second % 3));
    case 18:
      return answer(shelf_.playlist(first), controls_.LoadList);
    case 19:
      return answer(shelf_.playlist(0), controls_.SaveList);
    default:
      return turn(kind, first, second);
  }
}

void PanelUser::turn(unsigned kind, unsigned first, unsigned second) {
  switch (kind) {
    case 20:
      return (controls_.*kLeadTimes.at(first % 4).lamp).click.raise();
    case 21:
      return controls_.BufferSwitch.move(static_cast<std::int32_t>(first % 2));
    case 22:
      return controls_.Bypass.move(static_cast<std::int32_t>(first % 2));
    case 23:
      controls_.SliderP.user_press();
      controls_.SliderP.move(static_cast<std::int32_t>(first % 41) - 20);
      if (second % 2 == 0) controls_.SliderP.user_release();
      return;
    case 24:
    case 25:
      controls_.Slider1.user_press();
      controls_.Slider1.move(controls_.Slider1.maximum() / 256 * static_cast<std::int32_t>(first + 1));
      if (second % 8 != 0) controls_.Slider1.user_release();
      return;
    case 26:
      return controls_.Volume.move(static_cast<std::int32_t>(first * 129));
    case 27:
      return controls_.sl0.at(first % kBands).move(static_cast<std::int32_t>(second % 25) - 12);
    default:
      return use_board(first, second);
  }
}

void PanelUser::use_board(unsigned first, unsigned second) {
  Spinner& spinner = controls_.*kSpinners.at(second % 8);
  switch (first % 9) {
    case 0:
      return (controls_.*kOptionLamps.at(second % 5)).click.raise();
    case 1:
      return controls_.MMLEDX6.click.raise();
    case 2:
      return spinner.user_up();
    case 3:
      return spinner.user_down();
    case 4:
      return spinner.move(static_cast<std::int32_t>(second) * 90);
    case 5:
      return (controls_.*kBoardSwitches.at(second % 4)).move(static_cast<std::int32_t>(second / 4 % 8));
    case 6:
      return controls_.MMSwitchX1.move(static_cast<std::int32_t>(second % 3));
    case 7:
      return press(second % 2 == 0 ? controls_.ShowControls : controls_.ShowPlayList);
    default:
      return second % 2 == 0 ? controls_.MMPanelX1[1].click.raise() : press(controls_.Command2);
  }
}

}  // namespace tandem::fuzz
