#include "widgets/window_rig.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QPaintEvent>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>

#include "app/dropped_songs.h"
#include "engine/read/song_measure.h"
#include "settings/settings_file.h"
#include "support/bytes.h"
#include "support/signal.h"
#include "support/wav_writer.h"
#include "widgets/display_area/display_views.h"

namespace tandem::test {

// Sees every paint event of the window.
class WindowRig::PaintWatch : public QObject {
 public:
  QRegion painted;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted += static_cast<QPaintEvent*>(event)->region();
    return false;
  }
};

WindowRig::WindowRig() : watch_(std::make_unique<PaintWatch>()) {
  write_file(directory.file("TP.inf"), text_bytes(factory_settings()));
  player = std::make_unique<SimulatedPlayer>(
      SimulatedPlayer::Options{.directory = directory.path(), .sink = [](auto) {}, .log = {}, .show_message = {}});
  player->load();
  PanelWindow::Hooks hooks;
  hooks.close = [this] { ++closes; };
  hooks.frame_wanted = [this] { ++frames_wanted; };
  hooks.user_action = [this] {
    if (user_action) user_action();
  };
  hooks.drop = [this](const std::vector<std::string>& paths) {
    const auto has_sound = [](const std::string& path) { return measure_song(path).value_or(MeasuredSong{}).opens; };
    const Dropped found = dropped_songs(paths, {SongEntries::kLastSong, SongEntries::kLastSong}, has_sound);
    player->drop(found.list, found.songs);
  };
  window = std::make_unique<PanelWindow>(controls(), views_of(player->program.sound), std::move(hooks));
  window->installEventFilter(watch_.get());
  window->show();
  window->activateWindow();
  if (!QTest::qWaitForWindowActive(window.get())) throw std::runtime_error("the window does not become active");
  move({300, 60});  // off every control
  while (frame(1)) {
  }
  painted();
}

WindowRig::~WindowRig() = default;

PanelItem& WindowRig::item(const std::string& name) const {
  PanelItem* found = window->item(name);
  if (found == nullptr) throw std::runtime_error("no item " + name);
  return *found;
}

std::string WindowRig::song(int number) const { return directory.file("song " + std::to_string(number) + ".wav"); }

void WindowRig::add_songs(int count, double seconds) {
  const Bytes file = wav_file(tones(seconds, 440, 0.3), Encoding::kInt16);
  const int before = controls().PlayList.ListCount();
  for (int i = before + 1; i <= before + count; ++i) {
    write_file(song(i), file);
    player->dialog.answers.push_back(song(i));
    controls().LoadSong.click.raise();
  }
}

void WindowRig::show_equalizer() {
  if (controls().PlayList.Visible) key(Qt::Key_F2);
}
void WindowRig::show_board() {
  if (window->height() < 426) key(Qt::Key_F3);
}
void WindowRig::make_small() {
  if (window->width() > 262) key(Qt::Key_M, Qt::ControlModifier);
}

QPoint WindowRig::middle(const std::string& name) const { return control_box(name).box().center(); }

QPoint WindowRig::in(const std::string& name, int x, int y) const {
  return control_box(name).box().topLeft() + QPoint(x, y);
}

QPoint WindowRig::caption(const std::string& name, int position) const {
  return position_captions(name)[static_cast<std::size_t>(position)].box().center().toPoint();
}

void WindowRig::click(QPoint at, Qt::MouseButton button, Qt::KeyboardModifiers with) {
  QTest::mouseClick(native(), button, with, at);
}
void WindowRig::double_click(QPoint at) { QTest::mouseDClick(native(), Qt::LeftButton, {}, at); }
void WindowRig::press(QPoint at, Qt::KeyboardModifiers with) { QTest::mousePress(native(), Qt::LeftButton, with, at); }
void WindowRig::release(QPoint at, Qt::KeyboardModifiers with) {
  QTest::mouseRelease(native(), Qt::LeftButton, with, at);
}

// The library's own move carries no modifiers.
void WindowRig::move(QPoint at, Qt::KeyboardModifiers with) {
  if (with == Qt::NoModifier) return QTest::mouseMove(native(), at);
  QMouseEvent event(QEvent::MouseMove, at, native()->mapToGlobal(QPointF(at)), Qt::NoButton, Qt::LeftButton, with);
  QCoreApplication::sendEvent(native(), &event);
}

void WindowRig::wheel(QPoint at, int notches, Qt::KeyboardModifiers with) { fine_wheel(at, 120 * notches, with); }

void WindowRig::fine_wheel(QPoint at, int parts, Qt::KeyboardModifiers with) {
  QWheelEvent event(at, native()->mapToGlobal(QPointF(at)), {}, {0, parts}, Qt::NoButton, with, Qt::NoScrollPhase,
                    false);
  QCoreApplication::sendEvent(native(), &event);
}

void WindowRig::key(Qt::Key key, Qt::KeyboardModifiers with) { QTest::keyClick(native(), key, with); }
void WindowRig::key_down(Qt::Key key) { QTest::keyPress(native(), key); }
void WindowRig::key_up(Qt::Key key) { QTest::keyRelease(native(), key); }
void WindowRig::type(char letter) { QTest::keyClick(native(), letter); }

std::string WindowRig::focused() const {
  const QWidget* widget = window->focusWidget();
  return widget == nullptr ? "" : widget->objectName().toStdString();
}

std::vector<std::string> WindowRig::tab_round() {
  focus("PLAY");
  std::vector<std::string> names;
  do {
    names.push_back(focused());
    key(Qt::Key_Tab);
  } while (focused() != "PLAY" && names.size() < 100);
  return names;
}

void WindowRig::drop(const std::vector<std::string>& paths) {
  QMimeData data;
  QList<QUrl> urls;
  for (const std::string& path : paths)
    urls << QUrl::fromEncoded("file://" + QByteArray::fromStdString(path).toPercentEncoding("/"));
  data.setUrls(urls);
  QDragEnterEvent enter({300, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window.get(), &enter);
  if (!enter.isAccepted()) return;
  QDropEvent drop({300, 200}, Qt::CopyAction, &data, Qt::LeftButton, {});
  QCoreApplication::sendEvent(window.get(), &drop);
}

QRegion WindowRig::painted() {
  QCoreApplication::sendPostedEvents();
  QCoreApplication::processEvents();
  return std::exchange(watch_->painted, QRegion());
}

std::vector<std::string>& log_of(Slider& slider, std::vector<std::string>& log) {
  slider.press.connect([&log] { log.emplace_back("press"); });
  slider.change.connect([&log, &slider] { log.push_back("change " + std::to_string(slider.value())); });
  slider.release.connect([&log] { log.emplace_back("release"); });
  return log;
}

bool windows_follow_the_scale_of(QScreen* screen) {
  QWidget window;
  window.show();
  window.windowHandle()->setScreen(screen);
  return window.devicePixelRatioF() == screen->devicePixelRatio();
}

}  // namespace tandem::test
