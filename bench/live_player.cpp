// The player as it is, with a script that adds songs and presses the controls, for measurements from outside: the same
// panel, window and engine as the program.
//   live_player [--hidden] [--display 0|1|2] [--equalizer] [--pitch P] [--seconds N] [--buffer 0|1] [--record]
//               [--factory] SONG...
// plays the songs until it is ended, or for N seconds; it then prints its own CPU time, context switches and memory,
// and with --record the underruns of its output. The board is put to its "Default", with --factory it stays as the
// factory settings have it.

#include <sys/resource.h>

#include <QApplication>
#include <QTimer>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "app/close_signals.h"
#include "app/player.h"
#include "controls/chosen_files.h"

namespace {

struct Wishes {
  bool hidden = false;
  bool equalizer = false;
  int display = 0;
  int pitch = 0;
  int seconds = 0;
  int buffer = 0;
  bool record = false;
  bool factory = false;
  std::vector<std::string> songs;
};

Wishes read_wishes(int argc, char** argv) {
  Wishes wishes;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    const auto number = [&] { return i + 1 < argc ? std::atoi(argv[++i]) : 0; };
    if (word == "--hidden") {
      wishes.hidden = true;
    } else if (word == "--equalizer") {
      wishes.equalizer = true;
    } else if (word == "--display") {
      wishes.display = number();
    } else if (word == "--pitch") {
      wishes.pitch = number();
    } else if (word == "--buffer") {
      wishes.buffer = number();
    } else if (word == "--record") {
      wishes.record = true;
    } else if (word == "--factory") {
      wishes.factory = true;
    } else if (word == "--seconds") {
      wishes.seconds = number();
    } else if (word != "--play") {
      wishes.songs.emplace_back(word);
    }
  }
  return wishes;
}

void press_controls(tandem::Player& player, const Wishes& wishes) {
  tandem::PanelControls& controls = player.program().controls;
  for (const std::string& songs : tandem::dialog_results(wishes.songs)) controls.Painel.files_dropped.raise(songs);
  if (wishes.buffer != 0) controls.BufferSwitch.move(wishes.buffer);
  if (wishes.equalizer)
    for (std::size_t band = 0; band < tandem::kBands; ++band) controls.sl0[band].move(band % 2 == 0 ? 3 : -2);
  controls.MMSwitchX1.move(wishes.display);
  if (!wishes.factory) controls.MMLEDX6.click.raise();  // the analyser's default settings
  controls.MMSwitchX1.move(wishes.display);
  controls.PLAY.click.raise();
  if (wishes.pitch != 0) controls.SliderP.move(wishes.pitch);
  player.engine().deliver();
}

void print_underruns(const tandem::FlightRecorder& recorder) {
  for (const tandem::FlightRecorder::Underrun& underrun : recorder.underruns())
    std::printf("underrun at %s\n", tandem::FlightRecorder::text(underrun).c_str());
  if (recorder.failed_conversions() > 0)
    std::printf("%llu failed conversions\n", static_cast<unsigned long long>(recorder.failed_conversions()));
  std::fflush(stdout);
}

double seconds_of(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

void print_usage(const rusage& before, int seconds) {
  rusage now{};
  getrusage(RUSAGE_SELF, &now);
  const double cpu =
      seconds_of(now.ru_utime) + seconds_of(now.ru_stime) - seconds_of(before.ru_utime) - seconds_of(before.ru_stime);
  std::printf("cpu %.2f %%  voluntary switches %.0f/s  peak memory %.1f MB\n", 100 * cpu / seconds,
              static_cast<double>(now.ru_nvcsw - before.ru_nvcsw) / seconds, static_cast<double>(now.ru_maxrss) / 1024);
  std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
  const Wishes wishes = read_wishes(argc, argv);
  if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM")) qputenv("QT_XCB_NO_MITSHM", "1");
  tandem::Player player;
  press_controls(player, wishes);  // as soon as there is a panel: players given songs as arguments start as early
  int own_words = 1;               // Qt would take some of our words for its own
  QApplication application(own_words, argv);
  player.show();
  const tandem::CloseSignals close_signals([&player] { player.close(); });
  if (wishes.hidden) QTimer::singleShot(0, [&] { player.window().hide(); });
  rusage before{};
  constexpr int kSettle = 6000;  // milliseconds that do not count
  if (wishes.seconds > 0) {
    QTimer::singleShot(kSettle, [&before] { getrusage(RUSAGE_SELF, &before); });
    QTimer::singleShot(kSettle + 1000 * wishes.seconds, [&] {
      print_usage(before, wishes.seconds);
      player.close();
    });
  }
  const int status = QApplication::exec();
  if (wishes.record) print_underruns(player.engine().flight_recorder());
  player.leave_desktop();
  return status;
}
