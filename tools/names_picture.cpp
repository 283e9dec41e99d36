// Draws the panel with its board open and the list shown, a number on every control and the controls' names below it:
//   names_picture PERCENT FILE.png
// Places and names are the layout table's, the picture is the window's own, so neither can grow old: docs/names.png is
// made by `names_picture 140 docs/names.png`.
#include <QApplication>
#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <vector>

#include "layout/panel_layout.h"
#include "paint/strokes/palette.h"
#include "tools/pictures/panel_scene.h"

namespace {

// px of the panel at 100 %.
constexpr int kColumns = 4;
constexpr int kRow = 13;
constexpr int kMargin = 9;
constexpr double kRadius = 5.5;

// Not what this state of the window does not show: of the displays the spectrum alone.
bool is_shown(const tandem::ControlBox& box) {
  using Kind = tandem::ControlKind;
  if (box.kind == Kind::Display) return box.name == "MMSpectrum1";
  return box.kind != Kind::PitchLamp && box.kind != Kind::Gauge && box.kind != Kind::BevelledPanel;
}

bool is_in_picture(const tandem::ControlBox& box) {
  const bool has_name = !box.accessible.empty() && !box.accessible.starts_with('(');
  return has_name && box.group != tandem::ControlGroup::Equalizer && box.group != tandem::ControlGroup::Hidden &&
         is_shown(box);
}

std::vector<tandem::ControlBox> controls_in_picture() {
  std::vector<tandem::ControlBox> boxes;
  const auto all = tandem::panel_layout();
  std::copy_if(all.begin(), all.end(), std::back_inserter(boxes), is_in_picture);
  return boxes;
}

// Without what changes: "Position: <caption>", "Volume <Progress> %".
QString name_of(const tandem::ControlBox& box) {
  const std::string_view name = box.accessible.substr(0, box.accessible.find_first_of(":<(,"));
  return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size())).trimmed();
}

// Beside what the control says.
QPointF place_of_number(const tandem::ControlBox& control) {
  using Kind = tandem::ControlKind;
  const bool in_title = control.group == tandem::ControlGroup::Chrome;
  const QRectF box = in_title ? chrome_box(control, tandem::WindowSize::Board) : control.box();
  if (in_title) return {box.left() - 1, kRadius + 1};
  if (control.kind == Kind::LedLabel) return {box.left() - kRadius, box.top() + 3};
  if (control.kind == Kind::Rotary) return {box.left() + 7, box.bottom() - 8};
  if (control.kind == Kind::LeadLamp) return {box.center().x(), box.top() - 1};
  return {box.left() + 4, box.top() + 4};
}

void draw_number(QPainter& painter, const QPointF& at, int number) {
  painter.setPen(QPen(QColor(tandem::palette::kBlack), 0.7));
  painter.setBrush(QColor(tandem::palette::kFocus));
  painter.drawEllipse(at, kRadius, kRadius);
  painter.drawText(QRectF(at.x() - 10, at.y() - 10, 20, 20), Qt::AlignCenter, QString::number(number));
}

QImage panel_with_list(double scale) {
  tandem::PanelScene scene("board-open", scale);
  tandem::PanelControls& c = scene.controls();
  c.MMPanelX1[0].Visible = false;
  c.PlayList.Visible = true;
  for (tandem::Button* key : {&c.UpList, &c.DownList, &c.LoadList, &c.SaveList}) key->Visible = true;
  c.ShowPlayList.BackColor = tandem::clAqua;
  return scene.picture().convertToFormat(QImage::Format_RGB32);
}

QImage with_names(const QImage& panel, double scale) {
  const std::vector<tandem::ControlBox> boxes = controls_in_picture();
  const int rows = (static_cast<int>(boxes.size()) + kColumns - 1) / kColumns;
  QImage picture(panel.width(), panel.height() + static_cast<int>(scale * (rows * kRow + 2 * kMargin)),
                 QImage::Format_RGB32);
  picture.fill(QColor(tandem::palette::kFaceplate[3]));
  QPainter painter(&picture);
  painter.drawImage(0, 0, panel);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scale, scale);
  QFont font(QStringLiteral("sans-serif"));
  font.setPixelSize(8);
  painter.setFont(font);
  const double width = panel.width() / scale;
  const double top = panel.height() / scale + kMargin;
  for (int i = 0; i < static_cast<int>(boxes.size()); ++i) {
    draw_number(painter, place_of_number(boxes[static_cast<std::size_t>(i)]), i + 1);
    const int column = i / rows;
    const QPointF at(kMargin + kRadius + column * (width / kColumns), top + kRow * (i % rows + 0.5));
    draw_number(painter, at, i + 1);
    painter.setPen(QColor(tandem::palette::kLegend));
    painter.drawText(QRectF(at.x() + 9, at.y() - 10, width / kColumns - 20, 20), Qt::AlignVCenter,
                     name_of(boxes[static_cast<std::size_t>(i)]));
  }
  return picture;
}

// Five bits a colour: the faceplate's texture would make up most of the file.
QImage coarse(QImage picture) {
  for (int y = 0; y < picture.height(); ++y) {
    auto* line = reinterpret_cast<QRgb*>(picture.scanLine(y));
    std::transform(line, line + picture.width(), line, [](QRgb colour) { return colour & 0xFFF8F8F8U; });
  }
  return picture;
}

}  // namespace

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  const double scale = argc == 3 ? std::atof(argv[1]) / 100 : 0;
  if (scale < .5 || scale > 8) {
    std::fprintf(stderr, "usage: names_picture PERCENT FILE.png\n");
    return 2;
  }
  const QImage picture = coarse(with_names(panel_with_list(scale), scale));
  if (picture.save(QString::fromLocal8Bit(argv[2]), "PNG", 0)) return 0;
  std::fprintf(stderr, "cannot write %s\n", argv[2]);
  return 1;
}
