// Draws letters in the font that Qt itself chooses for a family, without a screen:
//   font_choice FAMILY FILE.png
#include <QFont>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QGuiApplication application(argc, argv);
  if (argc != 3) return 2;
  QImage picture(120, 40, QImage::Format_RGB32);
  picture.fill(Qt::white);
  QPainter painter(&picture);
  QFont font(QString::fromLocal8Bit(argv[1]));
  font.setPixelSize(21);
  painter.setFont(font);
  painter.drawText(picture.rect(), Qt::AlignCenter, QStringLiteral("Rag 358"));
  painter.end();
  return picture.save(QString::fromLocal8Bit(argv[2])) ? 0 : 1;
}
