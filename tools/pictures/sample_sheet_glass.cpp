// The dot font in its sizes and colours, the song list under the pointer, and the rotary switch in its states.
#include "paint/controls/knob.h"
#include "paint/controls/song_list.h"
#include "paint/strokes/ink.h"
#include "paint/strokes/palette.h"
#include "paint/surfaces/panels.h"
#include "paint/text/caption.h"
#include "paint/text/led_label.h"
#include "tools/pictures/sample_sheets.h"

namespace tandem {

namespace {

using namespace Qt::StringLiterals;

void paint_letters(QPainter& painter) {
  const QString letters =
      u"0123456789 !\"#$%&'()*+,-./:;<=>?@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`{|}~"
      u"ÀÁÂÃÄÅÈÉÊËÌÍÎÏÒÓÔÕÖÙÚÛÜÑÝÇ"_s;
  constexpr int kInARow = 32;
  for (int i = 0; i < letters.size(); ++i) {
    const QPoint at(12 + i % kInARow * 17, 12 + i / kInARow * 24);
    paint_led_label(painter, at, {.text = letters.mid(i, 1), .cells = 1, .pitch = 2, .dark_dots = palette::kWhiteDots});
  }
}

struct Label {
  QPointF at;
  LedLabelState look;
};

void paint_labels(QPainter& painter) {
  using namespace palette;
  const Label labels[] = {
      {{12, 112}, {u"SONG: COUNTER: TIME:"_s, 20, 1, kCaptionLed, {}, {}}},
      {{12, 130}, {u"PITCH +04"_s, 9, 2, kAqua, kReadOutDots, {}}},
      {{140, 130}, {u"PITCH  -"_s, 9, 2, kAqua, kReadOutDots, {}}},
      {{268, 130}, {u"PITCH  0"_s, 9, 2, kAqua, kReadOutDots, {}}},
      {{396, 130}, {u"VOLUME"_s, 9, 2, kYellow, kReadOutDots, {}}},
      {{12, 160}, {u"00:00"_s, 5, 3, kLime, kLimeDots, {}}},
      {{120, 160}, {u"12:34"_s, 5, 3, kLime, kLimeDots, {}}},
      {{230, 167}, {u"21:48"_s, 5, 2, kOrange, kOrangeDots, {}}},
      {{310, 167}, {u"03:45"_s, 5, 2, kWhite, kWhiteDots, {}}},
      {{12, 200}, {u"05 - CANÇÃO_DO_MAR (LIVE & LOUD) #7.MP3"_s, 43, 2, kWhite, kWhiteDots, {}}},
  };
  for (const Label& label : labels) paint_led_label(painter, label.at, label.look);
}

// Rows past the hundredth, names too long for any directory, the thumb in the middle, keyboard focus.
void paint_list(QPainter& painter) {
  const QRectF box(12, 244, 293, 141);
  paint_glass(painter, box);
  SongListState look;
  look.top = 95;
  look.count = 200;
  look.selected = 99;
  look.interaction.focused = true;
  const QString songs[] = {u"/home/ana/Music/Luz do Norte/Amanhecer.mp3"_s,
                           u"/home/ana/Music/Low Tide/Live at the Harbour/Disc 2/Salt Air (Reprise).wav"_s,
                           u"/home/ana/Music/Marea/A name that leaves no room for any folder before it at all.mp3"_s,
                           u"/home/ana/Música/Canção/Ólafur – Þögn.mp3"_s, u"Faro.mp3"_s};
  for (int i = 0; i < kListRows; ++i) look.rows += u"%1 - "_s.arg(look.top + i + 1) + songs[i % 5];
  paint_song_list(painter, box, look);
}

void paint_switches(QPainter& painter) {
  const QStringList captions = {u"Points"_s, u"Lines"_s, u"V.Lines"_s, u"Bar"_s, u"Picks"_s, u"Roll"_s};
  const RotaryState looks[] = {
      {captions, 0, {}, {}}, {captions, 2, 95., {.hover = 1}}, {captions, 5, {}, {.focused = true}}};
  for (int i = 0; i < 3; ++i) {
    const QPointF centre(i == 2 ? 454 : 350, i == 0 ? 282 : 364);
    paint_rotary(painter, {centre, 22, centre.x() + 42, 13}, looks[i]);
  }
}

}  // namespace

void paint_glass_sheet(QPainter& painter) {
  fill_box(painter, QRectF(0, 0, kGlassSheetWidth, kGlassSheetHeight), QColor::fromRgb(0xFF040607));
  paint_letters(painter);
  paint_labels(painter);
  paint_list(painter);
  paint_switches(painter);
}

}  // namespace tandem
