#include "app/progress_window.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "base/colours.h"
#include "paint/strokes/palette.h"

namespace tandem {

namespace {

constexpr int kWidth = 380;  // px
constexpr int kSteps = 1000;

QString name(QRgb colour) { return QColor(colour).name(); }

// Plate, glass and keys as on the panel.
QString style_of_panel() {
  using namespace palette;
  return QStringLiteral(
             "QWidget { background: %1; color: %2; }"
             "QProgressBar { background: %3; border: 1px solid %4; border-radius: 2px; height: 10px; }"
             "QProgressBar::chunk { background: %5; }"
             "QPushButton { background: %6; border: 1px solid %4; border-radius: 3px; padding: 5px 18px; }"
             "QPushButton:hover { background: %7; }"
             "QPushButton:focus { border-color: %8; }")
      .arg(name(kFaceplate[2]), name(kLegend), name(kGlassMiddle), name(kOuterEdge), from_bgr(clLime).name(),
           name(kTileTop), name(kTileHoverTop), name(kFocus));
}

}  // namespace

ProgressWindow::ProgressWindow(QWidget* parent, std::function<void()> cancelled)
    : QWidget(parent, Qt::Dialog),
      cancelled_(std::move(cancelled)),
      text_(new QLabel(this)),
      bar_(new QProgressBar(this)),
      cancel_(new QPushButton(QStringLiteral("Cancel"), this)) {
  setWindowTitle(QStringLiteral("Tandem"));
  setAttribute(Qt::WA_ShowWithoutActivating);
  setStyleSheet(style_of_panel());
  setFixedWidth(kWidth);
  text_->setWordWrap(true);
  bar_->setTextVisible(false);
  auto* column = new QVBoxLayout(this);
  column->addWidget(text_);
  column->addWidget(bar_);
  column->addWidget(cancel_, 0, Qt::AlignRight);
  connect(cancel_, &QPushButton::clicked, this, [this] { cancelled_(); });
}

void ProgressWindow::show_progress(const QString& text, double share) {
  if (text_->text() != text) text_->setText(text);
  bar_->setRange(0, share < 0 ? 0 : kSteps);  // of no range: it runs to and fro
  if (share >= 0) bar_->setValue(static_cast<int>(share * kSteps));
  if (!isVisible()) show();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  cancelled_();
}

void ProgressWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return cancelled_();
  QWidget::keyPressEvent(event);
}

}  // namespace tandem
