// Every key at rest, under the pointer, pressed, with focus and disabled.
#include <array>

#include "paint/controls/key.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/faceplate.h"
#include "paint/text/caption.h"
#include "tools/pictures/sample_sheets.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

constexpr InteractionState kTouches[] = {
    {}, {.hover = 1}, {.hover = 1, .pressed = true}, {.focused = true}, {.enabled = false}};
constexpr int kFirstColumn = 190;
constexpr int kColumnPitch = 62;

struct KeyRow {
  QString name;
  KeyState look;
  QSize size;
  QRgb disabled_colour = 0;  ///< 0 = the same back colour
  QRgb pressed_colour = 0;
};

std::array<KeyRow, 13> key_rows() {
  constexpr QSize kTransport(37, 30);
  constexpr QSize kShow(53, 24);
  constexpr QRgb kNext = 0xFFC04000;
  return {{
      {u"PLAY stopped"_s, {.icon = Icon::Play}, kTransport},
      {u"PLAY playing"_s, {palette::kPlayingKey, true, Icon::PlayActive}, kTransport},
      {u"PAUSE at rest"_s, {palette::kOlive, false, Icon::Pause}, kTransport},
      {u"PAUSE engaged"_s, {palette::kYellow, true, Icon::PauseActive}, kTransport},
      {u"STOPBtn playing"_s, {.icon = Icon::Stop}, kTransport},
      {u"STOPBtn stopped"_s, {palette::kStoppedKey, true, Icon::StopActive}, kTransport},
      {u"NextBtn first"_s, {kNext, false, Icon::Next}, kTransport, palette::kSilver},
      {u"NextBtn after a skip"_s, {0xFF8080FF, true, Icon::Next}, kTransport, palette::kSilver},
      {u"LoadSong"_s, {0xFF808080, false, Icon::None, u"SONG"_s, true}, kTransport, 0, 0xFFE0E0E0},
      {u"ShowPlayList hidden"_s, {0xFF0000FF, false, Icon::None, u"Playlist"_s}, kShow},
      {u"ShowPlayList shown"_s, {palette::kAqua, true, Icon::None, u"Playlist"_s}, kShow},
      {u"ShowControls hidden"_s, {palette::kGreen, false, Icon::None, u"Controls"_s}, kShow},
      {u"ShowControls shown"_s, {palette::kLime, true, Icon::None, u"Controls"_s}, kShow},
  }};
}

void paint_row(QPainter& painter, const KeyRow& row, double y) {
  draw_caption(painter, {16, y + row.size.height() / 2. + 4}, row.name);
  for (int column = 0; column < 5; ++column) {
    KeyState look = row.look;
    look.interaction = kTouches[column];
    if (!look.interaction.enabled && row.disabled_colour != 0) look.back_colour = row.disabled_colour;
    if (look.interaction.pressed && row.pressed_colour != 0) look.back_colour = row.pressed_colour;
    const int x = kFirstColumn + kColumnPitch * column - row.size.width() / 2;
    paint_key(painter, {QPointF(x, y), row.size.toSizeF()}, look);
  }
}

void paint_studs(QPainter& painter, double y) {
  draw_caption(painter, {16, y + 11}, u"Command2"_s);
  for (int column = 0; column < 4; ++column) {
    paint_stud(painter, {kFirstColumn + kColumnPitch * column - 6., y, 13, 13}, kTouches[column]);
  }
}

}  // namespace

void paint_keys_sheet(QPainter& painter) {
  paint_faceplate(painter, {kKeysSheetWidth, kStatesSheetHeight});
  const QString titles[] = {u"rest"_s, u"hover"_s, u"pressed"_s, u"focus"_s, u"disabled"_s};
  for (int column = 0; column < 5; ++column) {
    draw_caption(painter, {kFirstColumn + kColumnPitch * column + .5, 22}, titles[column], {.bold = true},
                 Anchor::Middle);
  }
  double y = 34;
  for (const KeyRow& row : key_rows()) {
    paint_row(painter, row, y);
    y += row.size.height() + 7;
  }
  paint_studs(painter, y);
}

}  // namespace tandem
