// drag_source PATH...: a small window in the lower right of the screen from which these files and folders are dragged,
// as from a file manager.

#include <QApplication>
#include <QDrag>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>
#include <QWidget>

namespace {

class Source final : public QWidget {
 public:
  explicit Source(QList<QUrl> paths) : paths_(std::move(paths)) {
    setGeometry(900, 700, 250, 100);
    setWindowTitle("Source");
  }

 protected:
  void mouseMoveEvent(QMouseEvent*) override {
    auto* urls = new QMimeData;
    urls->setUrls(paths_);
    auto* drag = new QDrag(this);  // owned by Qt until the other side has asked for the data
    drag->setMimeData(urls);
    drag->exec(Qt::CopyAction);
  }

 private:
  QList<QUrl> paths_;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QList<QUrl> paths;
  for (int i = 1; i < argc; ++i) paths << QUrl::fromLocalFile(QString::fromLocal8Bit(argv[i]));
  Source source(paths);
  source.show();
  return QApplication::exec();
}
