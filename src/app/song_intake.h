// Songs on their way into the list: what was chosen in the dialog or dropped on the window. UI thread.
//
// They are measured on a thread of their own before the panel's handler gets them, so that it never waits for the disk,
// and they are held back while two songs overlap, for a list that changes then cuts the incoming song. What takes
// longer than half a second shows how far it is and can be cancelled. The panel goes on meanwhile.
#pragma once

#include <QEventLoop>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/intake_job.h"
#include "app/progress_window.h"
#include "shell/program.h"

namespace tandem {

class SongIntake {
 public:
  using Milliseconds = std::int64_t;
  struct Hooks {
    std::function<void()> wake;                           // from any thread: look() is wanted soon
    std::function<void(const std::string& message)> say;  // to the user; must not wait
  };
  SongIntake(Program& program, std::shared_ptr<MeasuredSongs> songs, Hooks hooks);
  ~SongIntake();
  SongIntake(const SongIntake&) = delete;
  SongIntake& operator=(const SongIntake&) = delete;

  void set_parent(QWidget* parent) { parent_ = parent; }  // the window that its own belongs to

  // Of the songs chosen those for which the list has room; says so if they are not all.
  std::vector<std::string> that_fit(std::vector<std::string> paths) const;
  // What the dialog is about to return, in its form. Runs an event loop until that may be added; false if the user, or
  // leave_desktop(), cancels it. `others`: songs chosen in other folders; they are added after it as if dropped.
  bool prepare(const std::string& result, IntakeJob::Kind kind, const std::vector<std::string>& others = {});
  // Takes its time; what was dropped is added by a later look().
  void drop(const std::vector<std::string>& paths);

  bool is_empty() const { return waiting_.empty(); }  // nothing is on its way

  // At every tick of the clock, after ends of songs were delivered and before the panel's timers tick (with short songs
  // the next overlap begins there): adds what is ready. Returns when to look again, nothing while there is nothing to
  // do.
  std::optional<Milliseconds> look(Milliseconds now);
  // The dialog is about to return what it holds: the timers wait until its handler has run.
  bool is_returning() const { return returning_; }

  // Cancels everything, before the window and the QApplication end.
  void leave_desktop();

 private:
  struct Waiting {
    std::unique_ptr<IntakeJob> job;
    QEventLoop* loop = nullptr;  // of the dialog; nullptr for a drop
    bool* cancelled = nullptr;   // the dialog's
    std::optional<Milliseconds> since;
  };

  std::size_t room() const;
  Waiting& begin(IntakeJob::Request request);
  bool is_ready(const Waiting& first) const;
  void add(const Dropped& found);
  void cancel_first();
  void show_progress(const Waiting& first);

  Program& program_;
  std::shared_ptr<MeasuredSongs> songs_;
  Hooks hooks_;
  QWidget* parent_ = nullptr;
  bool returning_ = false;
  std::list<Waiting> waiting_;  // in the order in which they are added
  std::unique_ptr<ProgressWindow> progress_;
};

}  // namespace tandem
