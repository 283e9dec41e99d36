#include "desktop/about_box.h"

#include <QMessageBox>

#include "desktop/version.h"

namespace tandem {

QString about_text() {
  return QStringLiteral(
             "<h3>Tandem %1</h3>"
             "<p>Plays MP3 and WAV files and overlaps each song with the next.</p>"
             "<p>Copyright 2026 Tandem authors. MIT licence.</p>"
             "<p>It stands on Qt %2 (LGPL 3), mpg123 and libsndfile (LGPL 2.1), soxr (LGPL 2.1), KISS FFT (BSD),"
             " utf8proc (MIT), FriBidi, libpulse, ALSA and libsystemd (LGPL 2.1), XCB (MIT); letters: Roboto (Apache "
             "2.0).</p>"
             "<p>Built by %3.</p>")
      .arg(kVersion, qVersion(), kBuild);
}

void show_about_box(QWidget* window) {
  auto* box = new QMessageBox(QMessageBox::NoIcon, "About Tandem", about_text(), QMessageBox::Close, window);
  box->setObjectName("AboutBox");
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace tandem
