#include "tools/pictures/sample_panels.h"

#include "paint/strokes/palette.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

DisplayState display_look() {
  DisplayState look;
  look.song = {u"HARBOUR.MP3"_s, 15, 2, palette::kWhite, palette::kWhiteDots, {}};
  look.position = {u"02:17"_s, 5, 3, palette::kLime, palette::kLimeDots, {}};
  look.total = {u"03:45"_s, 5, 2, palette::kWhite, palette::kWhiteDots, {}};
  look.read_out = {u"VOLUME"_s, 9, 2, palette::kYellow, palette::kReadOutDots, {}};
  look.clock = {u"21:48"_s, 5, 2, palette::kOrange, palette::kOrangeDots, {}};
  look.gauge_percent = 78;
  return look;
}

TransportState transport_look() {
  TransportState look;
  look.position.share = .61;
  look.play = {.back_colour = palette::kPlayingKey, .lit = true, .face = Icon::PlayActive};
  look.pause = {.back_colour = palette::kOlive, .face = Icon::Pause};
  look.stop = {.face = Icon::Stop};
  look.next = {.back_colour = 0xFFC04000, .face = Icon::Next};
  look.load = {.back_colour = 0xFF808080, .caption = u"SONG"_s, .bold = true};
  look.volume.share = .78;
  return look;
}

MixState mix_look() {
  MixState look;
  const QString captions[] = {u"0"_s, u"1,0"_s, u"2,5"_s, u"3,5"_s};
  for (std::size_t i = 0; i < 4; ++i) {
    look.lead[i] = {i == 2 ? palette::kOrange : palette::kBrown, i == 2, captions[i], {}};
  }
  look.meter = {{u"Spec"_s, u"V.U."_s, u"Scope"_s}, 0, {}, {}};
  look.buffer = {{u"Buf1"_s, u"Buf2"_s}, 0, 0, {}};
  look.bypass = {{u"Bypass"_s, u"EQ"_s}, 1, 1, {}};
  look.show_list = {.back_colour = 0xFF0000FF, .caption = u"Playlist"_s};
  look.show_board = {.back_colour = palette::kGreen, .caption = u"Controls"_s};
  look.pitch = {0, -20, 20, {18, 13}, palette::kAqua, {}};
  return look;
}

EqualizerState equalizer_look() {
  constexpr int kGains[] = {5, 6, 4, 2, 0, -1, -2, -2, 0, 1, 2, 3, 4, 5, 4};
  EqualizerState look;
  for (std::size_t i = 0; i < look.bands.size(); ++i) {
    look.bands[i].value = kGains[i];
    look.gains[i] = (kGains[i] >= 0 ? u" "_s : QString()) + QString::number(kGains[i]);
  }
  return look;
}

ListState list_look() {
  ListState look;
  const QString home = u"/home/ana/Music/"_s;
  const QString songs[] = {u"Luz do Norte/Amanhecer.mp3"_s,
                           u"Luz do Norte/Ponte de Ferro.mp3"_s,
                           u"Low Tide/Salt Air.mp3"_s,
                           u"Low Tide/Harbour.mp3"_s,
                           u"Low Tide/Paper Boats.mp3"_s,
                           u"Kestrel Five/Slow Signal.wav"_s,
                           u"Kestrel Five/Copper Wire.wav"_s,
                           u"Marea/Ola Verde.mp3"_s,
                           u"Marea/Faro.mp3"_s,
                           u"Glass Garden/Winter Sun (Extended Mix).mp3"_s};
  int number = 0;
  for (const QString& song : songs) look.songs.rows += u"%1 - "_s.arg(++number, 2, 10, QChar(u'0')) + home + song;
  look.songs.count = 12;
  look.songs.selected = 3;
  look.up.face = Icon::Up;
  look.down.face = Icon::Down;
  look.open.caption = u"Open"_s;
  look.save.caption = u"Save"_s;
  return look;
}

BoardState board_look() {
  BoardState look;
  constexpr bool kLit[] = {false, true, true, true, false, true};
  const QString captions[] = {u"Grid"_s, u"L.e.d."_s, u"Inactive"_s, u"Log/Lin"_s, u"Pick"_s, u"Default"_s};
  for (std::size_t i = 0; i < 6; ++i) {
    const QRgb off = i == 5 ? palette::kOlive : palette::kGreen;
    const QRgb on = i == 5 ? palette::kYellow : palette::kLime;
    look.lamps[i] = {kLit[i] ? on : off, kLit[i], captions[i], {}};
  }
  const int chosen[] = {3, 1, 1, 1};
  const std::string_view names[] = {"MMSwitch1", "MMSwitch2", "MMSwitch3", "MMSwitch4"};
  for (std::size_t i = 0; i < 4; ++i) {
    for (const PositionCaption& c : position_captions(names[i])) {
      look.switches[i].captions += QString::fromUtf8(c.caption.data(), static_cast<qsizetype>(c.caption.size()));
    }
    look.switches[i].position = chosen[i];
  }
  constexpr int kValues[] = {1000, 64, 40, 1, 8, 1, 18, 20};
  for (std::size_t i = 0; i < 8; ++i)
    look.spinners[i] = {kValues[i], control_box(kSpinnerNames[i]).count, i < 5, {}, {}, false};
  return look;
}

using Change = void (*)(PanelSpecimen&);

void show_equalizer(PanelSpecimen&) {}

void show_list(PanelSpecimen& specimen) {
  PanelState& look = specimen.look;
  look.window.song_list = true;
  look.mix.show_list.back_colour = palette::kAqua;
  look.mix.show_list.lit = true;
}

void show_playlist(PanelSpecimen& specimen) {
  show_list(specimen);
  specimen.look.list.songs.selected = 9;
  specimen.look.display.song.text = u"R SUN (EXTENDED"_s;
  specimen.look.display.total.text = u"06:58"_s;
  specimen.look.display.position.text = u"01:24"_s;
  specimen.look.transport.position.share = .2;
}

void show_needles(PanelSpecimen& specimen) {
  specimen.look.visual.display = VisualDisplay::Needles;
  specimen.look.mix.meter.position = 1;
}

void show_scope(PanelSpecimen& specimen) {
  specimen.look.visual.display = VisualDisplay::Oscilloscope;
  specimen.look.mix.meter.position = 2;
}

void open_board(PanelSpecimen& specimen) {
  specimen.look.window.size = WindowSize::Board;
  specimen.look.mix.show_board.back_colour = palette::kLime;
  specimen.look.mix.show_board.lit = true;
}

void shrink(PanelSpecimen& specimen) { specimen.look.window.size = WindowSize::Compact; }

void set_pitch_mode(PanelSpecimen& specimen) {
  PanelState& look = specimen.look;
  look.display.pitch_mode = true;
  look.display.pitch = 10;
  look.display.read_out.text = u"PITCH +02"_s;
  look.display.read_out.colour = palette::kAqua;
  look.mix.pitch.value = 10;
  look.mix.pitch.interaction.focused = true;
}

void stop_playing(PanelSpecimen& specimen) {
  PanelState& look = specimen.look;
  look.display.position.text = u"00:00"_s;
  look.display.gauge_percent = 52;
  look.transport.position.share = 0;
  look.transport.volume.share = .52;
  look.transport.play = {.face = Icon::Play};
  look.transport.stop = {.back_colour = palette::kStoppedKey, .lit = true, .face = Icon::StopActive};
  for (std::size_t i = 0; i < 4; ++i) {
    look.mix.lead[i].lit = i == 1;
    look.mix.lead[i].colour = i == 1 ? palette::kOrange : palette::kBrown;
  }
  look.mix.buffer.position = 1;
  look.mix.buffer.cap = 1;
  specimen.left.assign(specimen.left.size(), 0);
  specimen.right = specimen.left;
}

void disable_next(PanelSpecimen& specimen) {
  show_list(specimen);
  PanelState& look = specimen.look;
  look.list.songs.selected = 4;
  look.list.up.interaction.enabled = false;
  look.list.down.interaction.enabled = false;
  look.transport.next.back_colour = palette::kSilver;
  look.transport.next.interaction.enabled = false;
  look.display.song.text = u"PAPER BOATS.MP3"_s;
  look.display.total.text = u"04:12"_s;
  look.display.position.text = u"02:18"_s;
}

struct Example {
  std::string_view name;
  Change change;
};

constexpr Example kExamples[] = {
    {"full-equalizer", show_equalizer}, {"full-playlist", show_playlist}, {"full-vu", show_needles},
    {"full-scope", show_scope},         {"board-open", open_board},       {"compact", shrink},
    {"pitch-mode", set_pitch_mode},     {"stopped", stop_playing},        {"next-disabled", disable_next}};

VisualState visual_look(const PanelSpecimen& specimen) {
  VisualState look;
  look.display = VisualDisplay::Spectrum;
  look.left_needle.db = -2.4;
  look.right_needle = {-.6, true};
  look.level = {15, 16};
  look.scope = {specimen.left_trace, specimen.right_trace};
  return look;
}

std::unique_ptr<PanelSpecimen> make_base() {
  auto specimen = std::make_unique<PanelSpecimen>();
  specimen->left = specimen_spectrum(32, 11, 1);
  specimen->right = specimen_spectrum(32, 23, 1.06);
  specimen->left_trace = specimen_trace(.4, 1.02, 3);
  specimen->right_trace = specimen_trace(1.25, .82, 9);
  specimen->look.window.song_list = false;
  specimen->look.display = display_look();
  specimen->look.transport = transport_look();
  specimen->look.mix = mix_look();
  specimen->look.visual = visual_look(*specimen);
  specimen->look.equalizer = equalizer_look();
  specimen->look.list = list_look();
  specimen->look.board = board_look();
  return specimen;
}

}  // namespace

std::vector<std::string_view> specimen_names() {
  std::vector<std::string_view> names;
  for (const Example& example : kExamples) names.push_back(example.name);
  return names;
}

std::unique_ptr<PanelSpecimen> sample_panel(std::string_view name) {
  for (const Example& example : kExamples) {
    if (example.name != name) continue;
    auto specimen = make_base();
    example.change(*specimen);
    specimen->look.visual.spectrum.left = specimen->left;
    specimen->look.visual.spectrum.right = specimen->right;
    return specimen;
  }
  return nullptr;
}

}  // namespace tandem
