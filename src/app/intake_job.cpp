#include "app/intake_job.h"

#include <pthread.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>
#include <utility>

#include "base/field_text.h"
#include "base/runtime_error.h"
#include "base/whole_file.h"

namespace tandem {

namespace {

constexpr std::chrono::milliseconds kPatience{200};
constexpr std::chrono::milliseconds kSlice{10};

// The song's number and at most that many songs; a list with more is not opened.
std::vector<std::string> fields_of(const std::string& list, std::size_t most_songs) try {
  const std::string text = read_whole_file(list);
  std::vector<std::string> fields;
  for (FieldReader reader(text); !reader.at_end() && fields.size() <= most_songs + 1;)
    fields.push_back(reader.read_text());
  return fields.size() <= most_songs + 1 ? fields : std::vector<std::string>();
} catch (const RuntimeError&) {
  return {};  // the handler meets the same error
}

}  // namespace

struct IntakeJob::Work {
  Work(Request request_, std::shared_ptr<MeasuredSongs> songs_, std::function<void()> notify_)
      : request(std::move(request_)), songs(std::move(songs_)), notify(std::move(notify_)) {}

  void run() {
    const std::vector<std::string> paths = songs_wanted();
    all = paths.size();
    for (const std::string& path : paths) {
      if (stop.stop_requested()) break;
      has_sound(path);
      ++done;
    }
    const std::lock_guard lock(mutex);
    ended = true;
    if (notify) notify();
    on_end.notify_all();
  }

  std::vector<std::string> songs_wanted() {
    if (request.kind == Kind::List) return fields_of(request.paths.front(), request.most_with_list);
    if (request.kind == Kind::Songs) return request.paths;
    found = dropped_songs(
        request.paths, {request.most, request.most_with_list},
        [this](const std::string& path) { return has_sound(path); }, stop.get_token());
    std::vector<std::string> paths = found.songs;
    if (!found.list.empty()) {
      const std::vector<std::string> listed = fields_of(found.list, request.most_with_list);
      paths.insert(paths.begin(), listed.begin(), listed.end());
    }
    return paths;
  }

  // Measures the song unless it is known.
  bool has_sound(const std::string& path) {
    auto song = songs->find(path);
    if (!song) {
      current = 0;
      song = measure_song(path, stop.get_token(), [this](std::int64_t at, std::int64_t size) {
        if (size > 0) current = static_cast<double>(at) / static_cast<double>(size);
      });
      if (song) songs->keep(path, *song);
    }
    return song && song->opens;
  }

  const Request request;
  const std::shared_ptr<MeasuredSongs> songs;
  std::stop_source stop;
  std::atomic<std::size_t> done{0};
  std::atomic<std::size_t> all{0};
  std::atomic<double> current{0};
  Dropped found;  // the thread's until it has ended

  std::mutex mutex;
  std::condition_variable on_end;
  std::function<void()> notify;
  bool ended = false;
};

IntakeJob::IntakeJob(Request request, std::shared_ptr<MeasuredSongs> songs, std::function<void()> finished)
    : work_(std::make_shared<Work>(std::move(request), std::move(songs), std::move(finished))) {
  std::thread thread([work = work_] { work->run(); });
  pthread_setname_np(thread.native_handle(), "tandem-intake");
  thread.detach();
}

IntakeJob::~IntakeJob() {
  if (work_ == nullptr) return;
  work_->stop.request_stop();
  wait(kPatience);
}

bool IntakeJob::wait(std::chrono::milliseconds patience) {
  std::unique_lock lock(work_->mutex);
  work_->notify = nullptr;
  return work_->on_end.wait_for(lock, patience, [this] { return work_->ended; });
}

void IntakeJob::cancel(const std::vector<std::unique_ptr<IntakeJob>>& jobs) {
  for (const auto& job : jobs) job->work_->stop.request_stop();
  std::chrono::milliseconds left = kPatience;
  for (const auto& job : jobs) {
    while (!job->wait(std::min(left, kSlice)) && left.count() > 0) left -= kSlice;
    job->work_.reset();
  }
}

bool IntakeJob::finished() const {
  const std::lock_guard lock(work_->mutex);
  return work_->ended;
}

IntakeJob::Progress IntakeJob::progress() const { return {work_->done, work_->all, work_->current}; }

Dropped IntakeJob::found() const { return work_->found; }

}  // namespace tandem
