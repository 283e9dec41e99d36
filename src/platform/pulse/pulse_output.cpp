#include "platform/pulse/pulse_output.h"

#include <pulse/thread-mainloop.h>

#include <algorithm>
#include <array>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/pulse/pulse_context.h"
#include "platform/pulse/pulse_stream.h"
#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

constexpr int kRetryMilliseconds = 200;
constexpr int kLeaseMilliseconds = 10;

class PulseThread {  // the loop and its thread
 public:
  PulseThread() : loop_(pa_threaded_mainloop_new()) {
    if (loop_ == nullptr) throw std::runtime_error("no main loop for the sound server");
    pa_threaded_mainloop_set_name(loop_, "tandem-pulse");
  }
  ~PulseThread() { pa_threaded_mainloop_free(loop_); }
  PulseThread(const PulseThread&) = delete;
  PulseThread& operator=(const PulseThread&) = delete;

  pa_mainloop_api* api() { return pa_threaded_mainloop_get_api(loop_); }
  void start() {
    if (pa_threaded_mainloop_start(loop_) < 0) throw std::runtime_error("no thread for the sound server");
  }
  void stop() { pa_threaded_mainloop_stop(loop_); }

 private:
  pa_threaded_mainloop* loop_;
};

}  // namespace

// Everything that happens only asks for tend(), which compares what is with what is wished for.
class PulseOutput::Worker {
 public:
  Worker(OutputRing& ring, OutputCommands& orders, OutputStatus& face, Sharing sharing);
  ~Worker() { thread_.stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

 private:
  void take_orders();
  void tend();
  void tend_stream();
  void drop_stream();
  void retire_stream();
  void make_stream();
  void discard_unplayable();
  void publish();
  void tell_reachable();
  bool current() const { return stream_ && stream_generation_ == wish_.generation(); }

  OutputRing& ring_;
  OutputCommands& orders_;
  OutputStatus& face_;
  Sharing sharing_;
  TargetState wish_;
  bool told_reachable_ = true;
  bool asked_priority_ = false;  // the thread asks for itself
  PulseThread thread_;
  PulseDefer changed_;
  PulseReadable ordered_;
  PulseTimer again_;
  PulseContext server_;
  std::optional<PulseStream> stream_;  // before it is destroyed its server must live
  unsigned stream_generation_ = 0;
};

PulseOutput::Worker::Worker(OutputRing& ring, OutputCommands& orders, OutputStatus& face, Sharing sharing)
    : ring_(ring),
      orders_(orders),
      face_(face),
      sharing_(std::move(sharing)),
      changed_(thread_.api(), [this] { tend(); }),
      ordered_(thread_.api(), orders.fd(), [this] { take_orders(); }),
      again_(thread_.api(), [this] { tend(); }),
      server_(thread_.api(), [this] { changed_.ask(); }) {
  changed_.ask();
  thread_.start();
}

void PulseOutput::Worker::take_orders() {
  for (const OutputCommand& order : orders_.take()) wish_.apply(order);
  tend();
}

void PulseOutput::Worker::tend() {
  if (!std::exchange(asked_priority_, true)) ask_realtime_priority();
  if (stream_ && (server_.ready() == nullptr || stream_->failed())) {
    if (stream_->failed()) again_.start(kRetryMilliseconds);
    drop_stream();
  }
  server_.tend();
  if (stream_ && !current()) retire_stream();
  if (!stream_) make_stream();
  if (current() && stream_->ready()) tend_stream();
  if (!stream_ && !wish_.wanted()) discard_unplayable();
  publish();
}

void PulseOutput::Worker::tend_stream() {
  stream_->resize({wish_.buffer_bytes(), wish_.depth()});
  if (wish_.wanted()) {
    stream_->play();
    publish();  // first, so that what it demands is made at once
    stream_->feed();
  } else {
    stream_->hold(wish_.play_up_to());
  }
}

// What it still held counts as heard: nobody will ever hear it.
void PulseOutput::Worker::drop_stream() {
  stream_.reset();
  const std::uint64_t taken = ring_.taken();
  face_.heard.publish({taken, monotonic_now(), taken});
  sharing_.lease->give_back();
}

void PulseOutput::Worker::retire_stream() {
  if (stream_->ready()) stream_->hold(wish_.play_up_to());
  if (!stream_->ready() || stream_->held() || stream_->suspended()) drop_stream();
}

void PulseOutput::Worker::make_stream() {
  if (!wish_.open() || server_.ready() == nullptr || again_.pending()) return;
  if (!sharing_.lease->take()) {
    again_.start(kLeaseMilliseconds);
    return;
  }
  const PulseStream::Places places = {thread_.api(), server_.ready(), &ring_, &face_.heard, &face_.breaks};
  stream_generation_ = wish_.generation();
  stream_.emplace(places, PulseQueue{wish_.buffer_bytes(), wish_.depth()}, [this] { changed_.ask(); });
  if (stream_->failed()) changed_.ask();
}

// Without a device the end of the sound before a stop would come back at the next start.
void PulseOutput::Worker::discard_unplayable() {
  if (ring_.taken() >= wish_.play_up_to() || !sharing_.lease->take()) return;
  std::array<Sample16, 512> unplayed;
  while (ring_.taken() < wish_.play_up_to()) {
    const auto left = static_cast<std::size_t>(wish_.play_up_to() - ring_.taken());
    if (ring_.read(std::span(unplayed).first(std::min(left, unplayed.size()))) == 0) break;
  }
  drop_stream();
}

void PulseOutput::Worker::publish() {
  const bool playing = current() && stream_->ready() && wish_.wanted() && !stream_->suspended();
  if (stream_ && stream_->request_frames() > 0) face_.request_frames.store(stream_->request_frames());
  face_.set_consuming(playing, ring_);
  tell_reachable();
}

void PulseOutput::Worker::tell_reachable() {
  if (server_.ready() == nullptr && !server_.unreachable()) return;
  const bool reachable = server_.ready() != nullptr;
  if (std::exchange(told_reachable_, reachable) != reachable && sharing_.reachable) sharing_.reachable(reachable);
}

PulseOutput::PulseOutput(OutputRing& ring, Sharing sharing) : ThreadedOutput(ring) {
  if (sharing.lease == nullptr) sharing.lease = &own_lease_;
  worker_ = std::make_unique<Worker>(ring_, orders_, face_, std::move(sharing));
}

PulseOutput::~PulseOutput() = default;

}  // namespace tandem
