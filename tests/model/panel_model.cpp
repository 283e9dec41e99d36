#include "model/panel_model.h"

#include <algorithm>

namespace tandem::model {

Song& PanelModel::song(Number number) {
  if (number < 0 || number > 200) throw Ended{};
  return SongTable.at(static_cast<std::size_t>(number));
}

const std::string& PanelModel::line(Number index) const {
  static const std::string none;
  const auto count = static_cast<Number>(look.PlayList.size());
  return index < 0 || index >= count ? none : look.PlayList[static_cast<std::size_t>(index)];
}

void PanelModel::put_index(Number index) {
  if (index < -1 || index >= static_cast<Number>(look.PlayList.size())) throw Ended{};
  look.ListIndex = index;
}

void PanelModel::put_file(Number deck, const std::string& name) {
  call("AudioFile(" + std::to_string(deck) + ").FileName(" + name + ")");
  DeckLook& file = look.decks.at(static_cast<std::size_t>(deck));
  file.FileName = files_.refused_by_decks.contains(name) ? "" : name;
  file.Position = 0;
}

void PanelModel::put_mute(Number input, bool mute) {
  call("WaveMixer.Mute(" + std::to_string(input) + (mute ? ", True)" : ", False)"));
  look.decks.at(static_cast<std::size_t>(input)).Mute = mute;
}

void PanelModel::put_interval(Number milliseconds) {
  call("MixTimer.Interval(" + std::to_string(milliseconds) + ")");
  look.MixTimer = milliseconds;
  mix_due_ = now_ + milliseconds;
}

void PanelModel::put_slider(Number position) { look.Slider1 = std::max(0, std::min(position, look.Slider1Maximum)); }

void PanelModel::put_slider_maximum(Number maximum) {
  look.Slider1Maximum = maximum;
  put_slider(look.Slider1);
}

std::string line_text(Number number, std::string_view path) {
  return (number < 10 ? "0" : "") + std::to_string(number) + " - " + std::string(path);
}

std::vector<std::string> characters_of(std::string_view text) {
  std::vector<std::string> characters;
  for (const char byte : text)
    if ((static_cast<unsigned char>(byte) & 0xC0U) == 0x80U && !characters.empty()) {
      characters.back() += byte;
    } else {
      characters.emplace_back(1, byte);
    }
  return characters;
}

std::string without_first(const std::string& text, std::size_t characters) {
  std::string rest;
  const std::vector<std::string> all = characters_of(text);
  for (std::size_t i = characters; i < all.size(); ++i) rest += all[i];
  return rest;
}

std::string trim(const std::string& text) {
  std::size_t from = 0;
  std::size_t to = text.size();
  while (from < to && text[from] == ' ') ++from;
  while (to > from && text[to - 1] == ' ') --to;
  return text.substr(from, to - from);
}

std::string capitals(std::string text) {
  for (char& letter : text)
    if (letter >= 'a' && letter <= 'z') letter = static_cast<char>(letter - 'a' + 'A');
  return text;
}

std::string time_text(Number milliseconds) {
  const Number seconds = milliseconds / 1000;
  const std::string below = std::to_string(seconds % 60);
  return std::to_string(seconds / 60) + ":" + (below.size() < 2 ? "0" : "") + below;
}

std::string song_time_text(Number milliseconds) { return "0" + time_text(milliseconds).substr(0, 4); }

}  // namespace tandem::model
