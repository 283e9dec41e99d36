// The player takes no arguments but --version and --help: it is the panel, whose settings lie beside the program.

#include <QApplication>
#include <QFile>
#include <QIcon>
#include <QPixmap>
#include <QToolTip>
#include <cstdio>
#include <optional>
#include <stdexcept>

#include "app/close_signals.h"
#include "app/command_words.h"
#include "app/display_guard.h"
#include "app/error_report.h"
#include "app/exit_guard.h"
#include "app/player.h"
#include "app/session_end.h"
#include "desktop/names.h"
#include "desktop/panel_palette.h"
#include "desktop/panel_style.h"
#include "paint/panel/program_icon.h"
#include "widgets/accessibility/panel_accessible.h"

namespace {

// Qt waits for the X server before it paints where it painted last, unless it sends small pictures itself.
void prefer_small_pictures() {
  if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM")) qputenv("QT_XCB_NO_MITSHM", "1");
}

// For a session that has no bus, Qt's library would start one: a program that outlives the player.
void start_no_bus() {
  constexpr const char* kAddress = "DBUS_SESSION_BUS_ADDRESS";
  const bool has_bus =
      qEnvironmentVariableIsSet(kAddress) || QFile::exists(qEnvironmentVariable("XDG_RUNTIME_DIR") + "/bus");
  if (!has_bus) qputenv(kAddress, "disabled:");
}

// Qt itself would abort.
void need_display() {
  if (!tandem::has_display() && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
    throw std::runtime_error("There is no display: neither DISPLAY nor WAYLAND_DISPLAY is set.");
}

QIcon window_icon() {
  QIcon icon;
  for (const int pixels : {16, 32, 48, 128}) icon.addPixmap(QPixmap::fromImage(tandem::program_icon(pixels)));
  return icon;
}

int play(int argc, char** argv) {
  tandem::Player player;  // the sound first: it is ready while the window is made
  need_display();
  auto guard = std::make_optional<tandem::DisplayGuard>();
  QApplication application(argc, argv);
  guard.reset();
  QApplication::setApplicationName("Tandem");
  QGuiApplication::setDesktopFileName(tandem::kApplicationName);
  QGuiApplication::setWindowIcon(window_icon());
  QApplication::setStyle(new tandem::PanelStyle);  // the application's own from here on
  QApplication::setPalette(tandem::panel_palette());
  QToolTip::setPalette(tandem::panel_palette());  // a desktop's theme may have one for tips alone
  tandem::install_accessibility();
  // A session manager that saves its session, or a logout that is cancelled, leaves the player as it is; the session's
  // real end closes its window.
  bool user_is_there = true;
  const tandem::CloseSignals close_signals([&] {
    user_is_there = false;
    player.close();
  });
  player.show();
  const tandem::SessionEnd session_end([&] {
    if (!player.is_closed()) user_is_there = false;
  });
  const tandem::ExitGuard exit_guard([&player] { player.save_at_exit(); });
  const int status = QApplication::exec();
  player.leave_desktop();
  if (!player.failure()) return status;
  if (user_is_there) throw *player.failure();
  tandem::print_error(player.failure()->what());  // no box: neither a signal nor the session's end waits for the user
  return 1;
}

}  // namespace

int main(int argc, char** argv) {
  if (const auto answer = tandem::answer_to_words(argc, argv)) return std::fputs(answer->c_str(), stdout) < 0 ? 1 : 0;
  prefer_small_pictures();
  start_no_bus();
  try {
    return play(argc, argv);
  } catch (const std::exception& error) {
    tandem::report_error(error.what());
    return 1;
  }
}
