#include "platform/pulse/pulse_output.h"

#include <optional>
#include <utility>

#include "platform/pulse/pulse_context.h"
#include "platform/pulse/pulse_sink.h"
#include "platform/pulse/pulse_stream.h"
#include "platform/pulse/pulse_thread.h"
#include "platform/realtime/realtime_priority.h"

namespace tandem {

namespace {

constexpr int kRetryMilliseconds = 200;
constexpr int kTokenMilliseconds = 10;

}  // namespace

// Whatever happens only asks for look_after(), which compares what there is with the target.
class PulseOutput::Worker {
 public:
  Worker(PulseOutput& output, std::function<void(bool)> reachable);
  ~Worker() { thread_.stop(); }
  Worker(const Worker&) = delete;
  Worker& operator=(const Worker&) = delete;

 private:
  void look_after();
  void drive_stream();
  void drop_stream();
  void drop_failed_stream();
  void retire_stream();
  void make_stream();
  void publish();
  void publish_reachable();
  void look_after_sink();
  bool current() const {
    return stream_ && stream_generation_ == output_.target().generation() && stream_->format() == format();
  }
  std::optional<DeviceFormat> format() const;

  PulseOutput& output_;
  std::function<void(bool)> reachable_;
  bool was_reachable_ = true;
  bool asked_priority_ = false;  // the thread asks for itself
  PulseThread thread_;
  PulseDefer changed_;
  PulseReadable commanded_;
  PulseTimer again_;
  PulseContext context_;
  PulseSink sink_;                     // destroyed before its context, as the stream
  std::optional<PulseStream> stream_;  // destroyed before its context
  std::uint32_t stream_generation_ = 0;
  bool server_converts_ = false;  // since our own conversion has failed; until the output is opened again
  StreamName stream_name_;
};

PulseOutput::Worker::Worker(PulseOutput& output, std::function<void(bool)> reachable)
    : output_(output),
      reachable_(std::move(reachable)),
      changed_(thread_.api(), [this] { look_after(); }),
      commanded_(thread_.api(), output.wake_fd(), [this] { look_after(); }),
      again_(thread_.api(), [this] { look_after(); }),
      context_(thread_.api(), [this] { changed_.ask(); }),
      sink_([this] { changed_.ask(); }) {
  changed_.ask();
  thread_.start();
}

void PulseOutput::Worker::look_after() {
  if (!std::exchange(asked_priority_, true)) ask_realtime_priority();
  output_.take_commands();
  if (stream_ && context_.ready() == nullptr) drop_stream();
  if (stream_ && stream_->failed()) drop_failed_stream();
  look_after_sink();
  if (stream_ && !current()) retire_stream();
  if (!stream_) make_stream();
  output_.stream_name_.try_read(stream_name_);  // what is just being written comes with the wake-up after it
  if (stream_ && stream_->ready()) stream_->put_name(stream_name_);
  if (current() && stream_->ready()) drive_stream();
  if (!stream_ && !output_.target().wants_sound()) output_.discard_unplayable();
  publish();
}

void PulseOutput::Worker::look_after_sink() {
  if (context_.ready() == nullptr) sink_.attach(nullptr);  // before its context goes
  context_.tend();
  sink_.attach(context_.ready());
  if (stream_ && stream_->ready()) sink_.follow(stream_->sink());
}

void PulseOutput::Worker::drive_stream() {
  const TargetState& target = output_.target();
  stream_->resize({target.buffer_bytes(), target.queue_length()});
  if (target.wants_sound()) {
    stream_->play();
    publish();  // first, so that what it demands is made at once
    stream_->feed();
  } else {
    stream_->hold(target.play_up_to());
  }
}

void PulseOutput::Worker::drop_stream() {
  stream_.reset();
  output_.abandon_taken();
  output_.token_.give_back();
}

void PulseOutput::Worker::drop_failed_stream() {
  if (stream_->unconverted()) {
    server_converts_ = true;
    output_.ring_.flight_recorder().conversion_failed();
  } else {
    again_.start(kRetryMilliseconds);
  }
  drop_stream();
}

// The sink's, or our own rate if the server has to convert.
std::optional<DeviceFormat> PulseOutput::Worker::format() const {
  std::optional<DeviceFormat> found = sink_.format();
  if (found && server_converts_) found->rate = kSampleRate;
  return found;
}

void PulseOutput::Worker::retire_stream() {
  if (stream_->ready()) stream_->hold(output_.target().play_up_to());
  if (!stream_->ready() || stream_->held() || stream_->suspended()) drop_stream();
}

void PulseOutput::Worker::make_stream() {
  const TargetState& target = output_.target();
  if (!target.is_open() || !sink_.format() || again_.pending()) return;
  if (!output_.token_.take()) {
    again_.start(kTokenMilliseconds);
    return;
  }
  const PulseStream::Places places = {thread_.api(), context_.ready(), &output_.ring_, &output_.playback_clock_,
                                      &output_.underruns_};
  if (std::exchange(stream_generation_, target.generation()) != target.generation()) server_converts_ = false;
  stream_.emplace(places, *format(), PulseQueue{target.buffer_bytes(), target.queue_length()},
                  [this] { changed_.ask(); });
  if (stream_->failed()) changed_.ask();
}

void PulseOutput::Worker::publish() {
  const bool playing = current() && stream_->ready() && output_.target().wants_sound() && !stream_->suspended();
  if (stream_ && stream_->request_frames() > 0) output_.publish_request_frames(stream_->request_frames());
  output_.publish_consuming(playing);
  publish_reachable();
}

void PulseOutput::Worker::publish_reachable() {
  if (context_.ready() == nullptr && !context_.unreachable()) return;
  const bool reachable = context_.ready() != nullptr;
  if (std::exchange(was_reachable_, reachable) != reachable && reachable_) reachable_(reachable);
}

PulseOutput::PulseOutput(OutputRing& ring, Sharing sharing)
    : ThreadedOutput(ring, sharing.token), worker_(std::make_unique<Worker>(*this, std::move(sharing.reachable))) {}

PulseOutput::~PulseOutput() = default;

void PulseOutput::put_stream_name(const std::string& name) {
  stream_name_.publish(StreamName(name));
  wake();
}

}  // namespace tandem
