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
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "app/close_signals.h"
#include "app/player.h"
#include "controls/chosen_files.h"

namespace {

struct Options {
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

const std::map<std::string_view, bool Options::*> kFlags{{"--hidden", &Options::hidden},
                                                         {"--equalizer", &Options::equalizer},
                                                         {"--record", &Options::record},
                                                         {"--factory", &Options::factory}};
const std::map<std::string_view, int Options::*> kNumbers{{"--display", &Options::display},
                                                          {"--pitch", &Options::pitch},
                                                          {"--seconds", &Options::seconds},
                                                          {"--buffer", &Options::buffer}};

Options read_options(int argc, char** argv) {
  Options options;
  for (int i = 1; i < argc; ++i) {
    const std::string_view word = argv[i];
    if (const auto flag = kFlags.find(word); flag != kFlags.end()) {
      options.*flag->second = true;
    } else if (const auto number = kNumbers.find(word); number != kNumbers.end()) {
      options.*number->second = i + 1 < argc ? std::atoi(argv[++i]) : 0;
    } else if (word != "--play") {
      options.songs.emplace_back(word);
    }
  }
  return options;
}

void press_controls(tandem::Player& player, const Options& options) {
  tandem::PanelControls& controls = player.program().controls;
  for (const std::string& songs : tandem::dialog_results(options.songs)) controls.Painel.files_dropped.raise(songs);
  if (options.buffer != 0) controls.BufferSwitch.move(options.buffer);
  if (options.equalizer)
    for (std::size_t band = 0; band < tandem::kBands; ++band) controls.sl0[band].move(band % 2 == 0 ? 3 : -2);
  controls.MMSwitchX1.move(options.display);
  if (!options.factory) controls.MMLEDX6.click.raise();  // the analyser's default settings
  controls.MMSwitchX1.move(options.display);
  controls.PLAY.click.raise();
  if (options.pitch != 0) controls.SliderP.move(options.pitch);
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
  const Options options = read_options(argc, argv);
  if (!qEnvironmentVariableIsSet("QT_XCB_NO_MITSHM")) qputenv("QT_XCB_NO_MITSHM", "1");
  tandem::Player player;
  press_controls(player, options);  // as soon as there is a panel: players given songs as arguments start as early
  int own_words = 1;                // Qt would take some of our words for its own
  QApplication application(own_words, argv);
  player.show();
  const tandem::CloseSignals close_signals([&player] { player.close(); });
  if (options.hidden) QTimer::singleShot(0, [&] { player.window().hide(); });
  rusage before{};
  constexpr int kSettle = 6000;  // milliseconds that do not count
  if (options.seconds > 0) {
    QTimer::singleShot(kSettle, [&before] { getrusage(RUSAGE_SELF, &before); });
    QTimer::singleShot(kSettle + 1000 * options.seconds, [&] {
      print_usage(before, options.seconds);
      player.close();
    });
  }
  const int status = QApplication::exec();
  if (options.record) print_underruns(player.engine().flight_recorder());
  player.leave_desktop();
  return status;
}
