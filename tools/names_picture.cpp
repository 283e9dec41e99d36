// Puts numbers on the controls of a picture of the panel, and their names below it, for the manual:
//   panel_picture board-open 200 panel.png && names_picture panel.png docs/panel-names.png
// The picture shows the whole panel with the board, at any scale. Where the controls are is the layout table's.
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <array>
#include <cstdio>
#include <string_view>

#include "layout/panel_layout.h"
#include "paint/strokes/palette.h"

namespace {

struct Named {
  std::string_view control;
  const char* name;
};
constexpr std::array kNamed{Named{"SongLabel", "title; click on the black glass: small window"},
                            Named{"LblPosition", "playing position"},
                            Named{"LblTempTot", "length of the song"},
                            Named{"ClockLabel", "time of day"},
                            Named{"INDIC", "volume, or pitch while it is moved"},
                            Named{"Slider1", "position: seek"},
                            Named{"Volume", "volume"},
                            Named{"PLAY", "PLAY"},
                            Named{"PAUSE", "PAUSE"},
                            Named{"STOPBtn", "Stop"},
                            Named{"NextBtn", "Next"},
                            Named{"LoadSong", "SONG: add songs"},
                            Named{"AMLedOff", "Auto MIX: lead 0.28, 1, 2.5, 3.5 s"},
                            Named{"MMSwitchX1", "Meter: which display"},
                            Named{"BufferSwitch", "Buf1 / Buf2"},
                            Named{"Bypass", "Bypass / EQ"},
                            Named{"SliderP", "PITCH"},
                            Named{"Command2", "pitch back to 0"},
                            Named{"ShowPlayList", "list, or equalizer"},
                            Named{"ShowControls", "board"},
                            Named{"Display well", "display"},
                            Named{"PlayList", "list of songs"},
                            Named{"UpList", "line up"},
                            Named{"DownList", "line down"},
                            Named{"LoadList", "Open a list"},
                            Named{"SaveList", "Save the list"},
                            Named{"MMLEDX1", "Grid, L.e.d., Inactive, Log/Lin, Pick, Default"},
                            Named{"MMSwitch1", "Type"},
                            Named{"MMSwitch2", "Window"},
                            Named{"MMSwitch3", "Decay"},
                            Named{"MMSwitch4", "Gain"},
                            Named{"MMLEDSpin7", "Ref. Freq"},
                            Named{"MMLEDSpin2", "length of the analysis"},
                            Named{"MMLEDSpin3", "Y Scale"},
                            Named{"MMLEDSpin6", "X Scale"},
                            Named{"MMLEDSpin1", "Veloc.: bars"},
                            Named{"MMLEDSpin5", "Picks"},
                            Named{"MMLEDSpin4", "Delay"},
                            Named{"MMLEDSpin8", "Veloc.: peak marks"}};

// px of the panel.
constexpr int kColumns = 3;
constexpr int kRow = 15;
constexpr int kMargin = 8;
constexpr double kRadius = 6.5;
constexpr int kRows = (static_cast<int>(kNamed.size()) + kColumns - 1) / kColumns;

void draw_number(QPainter& painter, const QPointF& at, std::size_t number) {
  painter.setPen(QPen(QColor(tandem::palette::kBlack), 1));
  painter.setBrush(QColor(tandem::palette::kFocus));
  painter.drawEllipse(at, kRadius, kRadius);
  painter.drawText(QRectF(at.x() - 10, at.y() - 10, 20, 20), Qt::AlignCenter, QString::number(number));
}

void draw_legend(QPainter& painter, std::size_t index, int top, int width) {
  const int row = static_cast<int>(index) % kRows;
  const int column = static_cast<int>(index) / kRows;
  const QPointF at(kMargin + kRadius + column * (width / kColumns), top + kMargin + kRow * (row + 0.5));
  draw_number(painter, at, index + 1);
  painter.setPen(QColor(tandem::palette::kLegend));
  painter.drawText(QRectF(at.x() + 11, at.y() - 10, 200, 20), Qt::AlignVCenter, kNamed[index].name);
}

QImage with_names(const QImage& panel) {
  const QSize size(607, 426);  // px of the panel with its board
  const double scale = static_cast<double>(panel.width()) / size.width();
  QImage picture(panel.width(), panel.height() + static_cast<int>(scale * (kRows * kRow + 2 * kMargin)),
                 QImage::Format_RGB32);
  picture.fill(QColor(tandem::palette::kFaceplate[3]));
  QPainter painter(&picture);
  painter.drawImage(0, 0, panel);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  QFont font(QStringLiteral("sans-serif"));
  font.setPixelSize(9);
  painter.setFont(font);
  const int top = static_cast<int>(panel.height() / scale);
  for (std::size_t i = 0; i < kNamed.size(); ++i) {
    const QRect box = tandem::control_box(kNamed[i].control).box();
    draw_number(painter, QPointF(box.x() + 3, box.y() + 3), i + 1);
    draw_legend(painter, i, top, size.width());
  }
  return picture;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  const QImage panel(argc == 3 ? QString::fromLocal8Bit(argv[1]) : QString());
  if (panel.isNull()) {
    std::fprintf(stderr, "usage: names_picture PANEL.png FILE.png\n");
    return 2;
  }
  if (with_names(panel).save(QString::fromLocal8Bit(argv[2]))) return 0;
  std::fprintf(stderr, "cannot write %s\n", argv[2]);
  return 1;
}
