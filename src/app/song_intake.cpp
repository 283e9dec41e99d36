#include "app/song_intake.h"

#include <algorithm>
#include <utility>

#include "controls/chosen_files.h"
#include "shell/overlap.h"

namespace tandem {

namespace {

constexpr SongIntake::Milliseconds kNoProgress = 500;  // what takes no longer shows no progress
constexpr SongIntake::Milliseconds kProgress = 100;    // between two looks at the progress
constexpr int kProgramEnds = -1;                       // what an event loop returns that is not begun any more

std::string full_list() { return "The list holds " + std::to_string(SongEntries::kLastSong) + " songs. "; }

}  // namespace

SongIntake::SongIntake(Program& program, std::shared_ptr<MeasuredSongs> songs, Hooks hooks)
    : program_(program), songs_(std::move(songs)), hooks_(std::move(hooks)) {}

SongIntake::~SongIntake() = default;

std::size_t SongIntake::room() const {
  const std::int32_t lines = std::min(program_.controls.PlayList.ListCount(), SongEntries::kLastSong);
  return static_cast<std::size_t>(SongEntries::kLastSong - lines);
}

std::vector<std::string> SongIntake::that_fit(std::vector<std::string> paths) const {
  const std::size_t chosen = paths.size();
  paths = tandem::that_fit(std::move(paths), room());
  if (paths.size() < chosen)
    hooks_.say(full_list() + std::to_string(chosen - paths.size()) + " of " + std::to_string(chosen) +
               " were not added.");
  return paths;
}

SongIntake::Waiting& SongIntake::begin(IntakeJob::Request request) {
  waiting_.push_back(
      {std::make_unique<IntakeJob>(std::move(request), songs_, hooks_.wake), nullptr, nullptr, std::nullopt});
  hooks_.wake();
  return waiting_.back();
}

bool SongIntake::is_ready(const Waiting& first) const {
  return first.job->finished() && !songs_overlap(program_.sound);
}

// After the loop was ended, another event of the same round may have begun an overlap.
bool SongIntake::prepare(const std::string& result, IntakeJob::Kind kind, const std::vector<std::string>& others) {
  QEventLoop loop;
  Waiting& own = begin({kind, chosen_paths(result), 0, SongEntries::kLastSong});
  bool cancelled = false;
  own.loop = &loop;
  own.cancelled = &cancelled;
  while (loop.exec() != kProgramEnds && !cancelled) {
    if (!std::exchange(returning_, false) || !is_ready(own)) continue;
    waiting_.pop_front();
    if (!others.empty()) drop(others);
    songs_->trust(true);  // until the next look(), which comes when the dialog's handler has returned
    return true;
  }
  if (!cancelled) waiting_.remove_if([&own](const Waiting& each) { return &each == &own; });
  return false;
}

void SongIntake::drop(const std::vector<std::string>& paths) {
  begin({IntakeJob::Kind::Drop, paths, room(), SongEntries::kLastSong});
}

void SongIntake::add(const Dropped& found) {
  WindowFrame& window = program_.controls.Painel;
  if (!found.list.empty()) window.list_dropped.raise(found.list);
  const std::size_t fit = std::min(found.songs.size(), room());
  for (std::size_t i = 0; i < fit; ++i) window.files_dropped.raise(found.songs[i]);
  if (found.more || fit < found.songs.size())
    hooks_.say(full_list() + std::to_string(fit) + " were added, the others were not.");
}

std::optional<SongIntake::Milliseconds> SongIntake::look(Milliseconds now) {
  songs_->trust(false);
  while (!waiting_.empty() && is_ready(waiting_.front()) && waiting_.front().loop == nullptr) {
    const Dropped found = waiting_.front().job->found();
    waiting_.pop_front();
    songs_->trust(true);
    add(found);
    songs_->trust(false);
  }
  returning_ = !waiting_.empty() && waiting_.front().loop != nullptr && is_ready(waiting_.front());
  if (waiting_.empty()) {
    progress_.reset();
    return std::nullopt;
  }
  Waiting& first = waiting_.front();
  if (returning_) first.loop->quit();
  if (!first.since) first.since = now;
  const Milliseconds waited = now - *first.since;
  if (waited < kNoProgress) return now + kNoProgress - waited;
  show_progress(first);
  return now + kProgress;
}

void SongIntake::show_progress(const Waiting& first) {
  if (!progress_) progress_ = std::make_unique<ProgressWindow>(parent_, [this] { cancel_first(); });
  if (first.job->finished())
    return progress_->show_progress("Two songs overlap. What you have chosen is added after that.", -1);
  const IntakeJob::Progress at = first.job->progress();
  if (at.all == 0) return progress_->show_progress("Looking for songs…", -1);
  const auto all = static_cast<double>(at.all);
  progress_->show_progress(
      "Measuring song " + QString::number(std::min(at.done + 1, at.all)) + " of " + QString::number(at.all),
      std::min(1.0, (static_cast<double>(at.done) + at.current) / all));
}

void SongIntake::cancel_first() {
  if (waiting_.empty()) return;
  const Waiting first = std::move(waiting_.front());
  waiting_.pop_front();
  returning_ = false;
  if (first.loop != nullptr) {
    *first.cancelled = true;
    first.loop->quit();
  }
  if (progress_) progress_->hide();
  hooks_.wake();
}

void SongIntake::leave_desktop() {
  std::vector<std::unique_ptr<IntakeJob>> jobs;
  for (Waiting& each : waiting_) jobs.push_back(std::move(each.job));
  IntakeJob::cancel(jobs);
  while (!waiting_.empty()) cancel_first();
  progress_.reset();
  parent_ = nullptr;
}

}  // namespace tandem
