#include "app/player.h"

#include <QAccessible>
#include <QApplication>
#include <QMessageBox>
#include <algorithm>
#include <chrono>
#include <thread>

#include "app/error_report.h"
#include "displays/display_set.h"
#include "engine/core/frames.h"
#include "platform/desktop/window_outline.h"
#include "platform/system/program_directory.h"
#include "platform/system/time_of_day.h"
#include "platform/system/upper_case.h"
#include "shell/mix_forecast.h"
#include "shell/mix_view.h"
#include "widgets/display_area/display_views.h"

namespace tandem {

namespace {

constexpr double kActiveFrame = 1000.0 / 60;  // milliseconds from frame to frame with the user present
constexpr double kInactiveFrame = 1000.0 / 30;
constexpr TimerQueue::Milliseconds kPoll = 10;  // while the device is about to answer
// So long the desktop waits for a window that is not to be seen.
constexpr TimerQueue::Milliseconds kWaitForWindow = 1000;

void show_message(const std::string& text) {
  auto* box = new QMessageBox(QMessageBox::Warning, "Tandem", QString::fromStdString(text));
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();  // does not wait: the timers go on
}

}  // namespace

Player::Player()
    : output_(ring_),
      engine_threads_(step_clock_, [this] { wakeup_.ring(); }),
      engine_(output_, ring_, engine_threads_),
      program_([this](TimerQueue& timers) { return make_graph(timers); }, environment()),
      pump_(engine_.display_feed()),
      intake_(program_, engine_.measured_songs(), {[this] { wakeup_.ring(); }, show_message}) {
  dialog_.fit = [this](std::vector<std::string> paths) { return intake_.that_fit(std::move(paths)); };
  dialog_.prepare = [this](const std::string& result) {
    if (dialog_.asks_for_lists()) return intake_.prepare(result, IntakeJob::Kind::List);
    return intake_.prepare(result, IntakeJob::Kind::Songs, dialog_.take_others());
  };
  program_.panel.load();
  engine_.deliver();
}

Player::~Player() = default;

SoundGraph Player::make_graph(TimerQueue& timers) {
  SoundGraph graph;
  engine_.fill(graph, timers);
  add_displays(graph);
  return graph;
}

Environment Player::environment() { return {program_directory(), time_of_day, upper_case, show_message, dialog_}; }

void Player::show() {
  clock_ = std::make_unique<QtClock>([this](Milliseconds now) { return work(now); });
  PanelWindow::Hooks hooks;
  hooks.close = [this] { close(); };
  hooks.frame_wanted = [this] {
    moving_ = true;
    clock_->reschedule();
  };
  hooks.user_action = [this] { user_action(); };
  hooks.drop = [this](const std::vector<std::string>& paths) { intake_.drop(paths); };
  if (ShmPresenter::is_possible())
    hooks.present = [this](const QImage& picture, std::span<const QRect> boxes) {
      return presenter_ && presenter_->present(picture, boxes);
    };
  hooks.outline = [this](const QRect& panel) { set_window_outline(*window_->windowHandle(), panel); };
  window_ = std::make_unique<PanelWindow>(program_.controls, views_of(program_.sound), std::move(hooks));
  compositor_watch_ = std::make_unique<CompositorWatch>([this] { clock_->reschedule(); });
  window_->set_composited(compositor_watch_->composites());
  dialog_.set_parent(window_.get());
  intake_.set_parent(window_.get());
  window_->show();
  shown_ = clock_->now();
  watch_window();
  input_watch_ = std::make_unique<UserInputWatch>([this] { user_moves(); });
  wakeup_.connect([this] { clock_->reschedule(); });
  clock_->reschedule();
}

// A handler may have started a timer or sent commands to the engine: both are handled as soon as it has returned.
void Player::user_action() {
  engine_.skip_ticks_for(0);
  clock_->reschedule();
}

// The first move after a rest is answered by a short queue at once.
void Player::user_moves() {
  if (latency_policy_.note_input(clock_->now())) clock_->reschedule();
}

void Player::attend(Milliseconds now) {
  engine_.set_deep_queue(latency_policy_.deep(now, window_->attended(), window_->exposed(), output_.underruns()));
  const MixForecast forecast = mix_forecast(program_, engine_.sounding());
  engine_.skip_ticks_for(forecast.quiet);
  engine_.set_mix_point(forecast.deck, forecast.mix_point);
}

// What may delay neither the first sound nor the first picture. A window that begins minimized, or on another
// workspace, has no first picture for long.
void Player::ask_the_system(Milliseconds now) {
  if (!realtime_kit_ && output_.frames_played() > static_cast<std::uint64_t>(kSampleRate / 10))
    realtime_kit_.emplace().ask();
  if (motion_ || (!window_->exposed() && now < shown_ + kWaitForWindow)) return;
  const bool by_style = window_->reduced_motion();
  motion_.emplace([this, by_style](bool reduced) { window_->set_reduced_motion(by_style || reduced); });
  join_desktop();
}

std::optional<TimerQueue::Milliseconds> Player::work(Milliseconds now) {
  engine_.deliver();
  const auto look_again = intake_.look(now);
  if (intake_.is_returning()) return now;
  program_.timers.advance(now);
  engine_.deliver();
  attend(now);
  follow_compositor();
  ask_the_system(now);
  if (services_) services_->update(now);
  auto next = program_.timers.next_due();
  const auto sooner = [&next](std::optional<Milliseconds> due) {
    if (due && (!next || *due < *next)) next = due;
  };
  sooner(look_again);
  if (!services_) sooner(shown_ + kWaitForWindow);
  if (!engine_.device_idle()) sooner(now + kPoll);
  sooner(draw_frame(now));
  return next;
}

// Nothing is drawn while it could not be seen; what comes to rest is looked at again at the panel's next tick. A screen
// reader reads a covered window too.
std::optional<TimerQueue::Milliseconds> Player::draw_frame(Milliseconds now) {
  if (window_->exposed() || QAccessible::isActive()) show_mix(now);
  if (!window_->exposed()) return std::nullopt;
  const Milliseconds before = frames_.last();
  if (frames_.take(now, window_->attended() ? kActiveFrame : kInactiveFrame)) {
    window_->visual().feed(pump_.take(output_.frames_played()));
    if (moving_ || !window_->visual().at_rest()) moving_ = window_->frame(static_cast<double>(now - before) / 1000);
  }
  if (!moving_) return std::nullopt;
  return frames_.next();
}

// As often as the counter, for what sounds is looked up in the list; an overlap is seen with the song that begins it.
void Player::show_mix(Milliseconds now) {
  constexpr Milliseconds kPeriod = 200;
  const Flag mixing = program_.state.MixStarted;
  if (mixing == mixing_ && now < mix_shown_ + kPeriod) return;
  mixing_ = mixing;
  mix_shown_ = now;
  window_->show_mix(mix_view(program_));
}

// The last sound is faded and played before the program ends, but nothing is waited for long.
void Player::play_out() {
  constexpr Milliseconds kLongest = 300;
  const Milliseconds until = clock_->now() + kLongest;
  while (!engine_.device_idle() && clock_->now() < until) {
    engine_.deliver();
    std::this_thread::sleep_for(std::chrono::milliseconds(2));
  }
}

void Player::close() {
  if (std::exchange(closed_, true)) return;
  intake_.leave_desktop();
  try {
    program_.panel.unload();
  } catch (const RuntimeError& error) {
    failure_ = error;
  }
  window_->hide();
  play_out();
  QCoreApplication::exit();  // quit() would ask the windows, and one may refuse
}

void Player::save_at_exit() {
  if (std::exchange(closed_, true)) return;
  try {
    program_.panel.unload();
  } catch (const RuntimeError& error) {
    print_error(error.what());
  }
}

void Player::leave_desktop() {
  close();
  wakeup_.connect(nullptr);
  input_watch_.reset();
  clock_.reset();
  dialog_.leave_desktop();
  realtime_kit_.reset();
  menu_.reset();
  services_.reset();
  remote_.reset();
  motion_.reset();
  occlusion_watch_.reset();
  compositor_watch_.reset();
  presenter_.reset();
  window_.reset();
}

}  // namespace tandem
