#include "platform/pulse/pulse_stream.h"

#include <pulse/proplist.h>
#include <pulse/timeval.h>

#include <algorithm>
#include <chrono>
#include <utility>

#include "engine/core/frames.h"
#include "platform/pulse/pulse_format.h"

namespace tandem {

namespace {

constexpr int kHungryMilliseconds = 10;
constexpr int kPatientMilliseconds = 100;
constexpr std::chrono::milliseconds kSupplyPatience{10};            // much less than is queued
constexpr Nanoseconds kSettled = 500 * kNanosecondsPerMillisecond;  // after what changes the queue or the device

PulseStream* stream_of(void* self) { return static_cast<PulseStream*>(self); }

pa_stream* new_stream(pa_context* context, const DeviceFormat& wanted) {
  const pa_sample_spec format = spec_of(wanted);
  pa_proplist* properties = pa_proplist_new();
  pa_proplist_sets(properties, PA_PROP_MEDIA_ROLE, "music");
  pa_stream* stream = pa_stream_new_with_proplist(context, StreamName().text.data(), &format, nullptr, properties);
  pa_proplist_free(properties);
  return stream;
}

}  // namespace

PulseStream::PulseStream(const Places& places, const DeviceFormat& format, const PulseQueue& queue,
                         std::function<void()> changed)
    : ring_(*places.ring),
      clock_(*places.clock),
      underruns_(*places.underruns),
      changed_(std::move(changed)),
      hungry_(places.api, [this] { feed(); }),
      queue_(queue),
      stream_(new_stream(places.context, format)),
      writer_(stream_, *places.ring, format),
      stalled_at_(ring_.taken()),
      position_(ring_.taken()) {
  if (stream_ == nullptr || writer_.broken()) {
    state_ = State::kFailed;
    return;
  }
  listen(true);
  connect();
}

PulseStream::~PulseStream() {
  ring_.end_demands();
  playing_out_.cancel();
  resizing_.cancel();
  if (stream_ == nullptr) return;
  listen(false);
  pa_stream_disconnect(stream_);
  pa_stream_unref(stream_);
}

// Or no more: libpulse keeps a stream until the server has answered its disconnection, and calls back until then.
void PulseStream::listen(bool on) {
  const auto notify = [on](pa_stream_notify_cb_t callback) { return on ? callback : nullptr; };
  pa_stream_set_state_callback(stream_, notify(&PulseStream::on_state), this);
  pa_stream_set_write_callback(stream_, on ? &PulseStream::on_request : nullptr, this);
  pa_stream_set_latency_update_callback(stream_, notify(&PulseStream::on_timing), this);
  pa_stream_set_underflow_callback(stream_, notify(&PulseStream::on_underflow), this);
  pa_stream_set_started_callback(stream_, notify(&PulseStream::on_started), this);
  pa_stream_set_suspended_callback(stream_, notify(&PulseStream::on_suspended), this);
  pa_stream_set_moved_callback(stream_, notify(&PulseStream::on_moved), this);
  pa_stream_set_buffer_attr_callback(stream_, notify(&PulseStream::on_queue), this);
}

void PulseStream::connect() {
  const pa_buffer_attr buffering = attributes_of(queue_, format());
  const auto flags = static_cast<pa_stream_flags_t>(PA_STREAM_START_CORKED | PA_STREAM_ADJUST_LATENCY |
                                                    PA_STREAM_INTERPOLATE_TIMING | PA_STREAM_AUTO_TIMING_UPDATE);
  if (pa_stream_connect_playback(stream_, nullptr, &buffering, flags, nullptr, nullptr) < 0) state_ = State::kFailed;
}

void PulseStream::play() {
  if (motion_ == Motion::kPlaying) return;
  if (motion_ == Motion::kHeld) {
    stall();
    PulseOperation::ignore(pa_stream_cork(stream_, 0, nullptr, nullptr));
  }
  playing_out_.cancel();
  motion_ = Motion::kPlaying;
  changed_at_ = monotonic_now();
}

void PulseStream::hold(std::uint64_t up_to) {
  const std::uint64_t taken = ring_.taken();
  if (motion_ != Motion::kPlaying && up_to <= taken) return;
  if (motion_ == Motion::kHeld) play();
  hungry_.cancel();
  ring_.end_demands();
  playing_out_.cancel();
  writer_.write_end(up_to);
  report();
  play_out();
}

// Also makes the server play what is shorter than it would wait for.
void PulseStream::play_out() {
  motion_ = Motion::kPlayingOut;
  playing_out_.await(pa_stream_drain(stream_, &PulseStream::on_played_out, this));
}

void PulseStream::put_name(const StreamName& name) {
  if (name == name_) return;
  name_ = name;
  PulseOperation::ignore(pa_stream_set_name(stream_, name_.text.data(), nullptr, nullptr));
}

void PulseStream::resize(const PulseQueue& queue) {
  if (queue == queue_) return;
  ring_.demand(0);  // what is missing in the new one is demanded when the server asks for it
  const PulseQueue former = std::exchange(queue_, queue);
  growing_ = motion_ == Motion::kPlaying && queue.frames() > former.frames();
  apply_queue(growing_ ? growing_attributes(former, queue, format()) : attributes_of(queue, format()));
}

// The device may take its share of a longer queue once that is there.
void PulseStream::end_growth() {
  const std::uint64_t queued = ring_.taken() - clock_.frames_played(monotonic_now());
  if (!growing_ || queued < queue_.frames() * 3 / 4) return;
  growing_ = false;
  apply_queue(attributes_of(queue_, format()));
}

void PulseStream::apply_queue(const pa_buffer_attr& buffering) {
  resizing_.await(pa_stream_set_buffer_attr(stream_, &buffering, &PulseStream::on_queue_set, this));
}

void PulseStream::read_queue() {
  changed_at_ = monotonic_now();
  const pa_buffer_attr* granted = pa_stream_get_buffer_attr(stream_);
  if (granted != nullptr && !growing_)
    request_frames_ = static_cast<int>(format().ring_frames(granted->minreq / format().frame_bytes()));
  changed_();
}

void PulseStream::feed() {
  if (motion_ != Motion::kPlaying) return;
  const std::size_t asked = pa_stream_writable_size(stream_);
  if (asked == static_cast<std::size_t>(-1)) return;
  const std::uint64_t before = ring_.taken();
  std::size_t missing = writer_.write(asked / format().frame_bytes());
  if (missing > 0) {
    ring_.demand_now(writer_.ring_frames_for(missing), kSupplyPatience);
    missing = writer_.write(missing);
  }
  if (writer_.broken()) return fail();
  ring_.demand(writer_.ring_frames_for(missing));
  report();
  const Nanoseconds now = monotonic_now();
  end_growth();
  ring_.flight_recorder().fed(now, static_cast<std::int64_t>(ring_.taken() - clock_.frames_played(now)));
  if (missing > 0) {
    come_back(ring_.taken() - before);
  } else {
    hungry_.cancel();
  }
}

void PulseStream::fail() {
  hungry_.cancel();
  state_ = State::kFailed;
  changed_();
}

// The more is queued the later, but always soon enough to take more than is played meanwhile.
void PulseStream::come_back(std::uint64_t just_taken) {
  const std::uint64_t queued = ring_.taken() - std::min(clock_.frames_played(monotonic_now()), ring_.taken());
  const std::uint64_t frames = std::min(queued / 4, just_taken / 2);
  const auto milliseconds = static_cast<int>(milliseconds_of(static_cast<Frames>(frames)));
  hungry_.start(std::clamp(milliseconds, kHungryMilliseconds, kPatientMilliseconds));
}

// What was sent is still in the device: the clock runs on to its end, since the server no longer reports it.
void PulseStream::stall() {
  if (!stalled_) position_ = time_played();
  stalled_ = true;
  stalled_at_ = ring_.taken();
  clock_.publish({position_, monotonic_now(), stalled_at_});
}

// Only what plays steadily can break: a device that begins or comes back takes more at once than there is yet.
void PulseStream::run_dry() {
  const Nanoseconds now = monotonic_now();
  const bool steady = now - changed_at_ > kSettled;
  if (motion_ == Motion::kPlaying && !suspended_) {
    if (steady) underruns_.fetch_add(1, std::memory_order_relaxed);
    ring_.flight_recorder().underrun(now, static_cast<std::int64_t>(ring_.readable()), ring_.taken(), steady);
  }
  stall();
}

// The server's time runs on when nothing plays, so it counts only up to what it can have played.
std::uint64_t PulseStream::time_played() const {
  pa_usec_t time = 0;
  if (pa_stream_get_time(stream_, &time) != 0) return position_;
  return writer_.position_at(time);
}

void PulseStream::report() {
  const std::uint64_t taken = ring_.taken();
  if (held()) {
    position_ = taken;
  } else if (!stalled_) {
    position_ = time_played();
  } else if (!suspended_) {
    return;
  }
  clock_.publish({position_, monotonic_now(), suspended_ ? position_ : taken});
}

void PulseStream::on_state(pa_stream* stream, void* self) {
  PulseStream& my = *stream_of(self);
  const pa_stream_state_t state = pa_stream_get_state(stream);
  if (state == PA_STREAM_CREATING) return;
  my.state_ = state == PA_STREAM_READY ? State::kReady : State::kFailed;
  if (my.ready()) {
    my.suspended_ = pa_stream_is_suspended(stream) > 0;
    my.read_queue();
  }
  my.changed_();
}

void PulseStream::on_request(pa_stream*, std::size_t, void* self) { stream_of(self)->feed(); }

void PulseStream::on_timing(pa_stream* stream, void* self) {
  PulseStream& my = *stream_of(self);
  const pa_timing_info* timing = pa_stream_get_timing_info(stream);
  if (timing != nullptr && timing->playing != 0) my.stalled_ = false;
  my.report();
}

void PulseStream::on_underflow(pa_stream*, void* self) { stream_of(self)->run_dry(); }

void PulseStream::on_started(pa_stream*, void* self) {
  stream_of(self)->stalled_ = false;
  stream_of(self)->report();
}

void PulseStream::on_suspended(pa_stream* stream, void* self) {
  PulseStream& my = *stream_of(self);
  my.suspended_ = pa_stream_is_suspended(stream) > 0;
  my.changed_at_ = monotonic_now();
  my.report();
  if (my.stalled_ && !my.suspended_ && !my.held()) my.stall();
  my.changed_();
}

// Another device may grant other sizes, and may take another format.
void PulseStream::on_moved(pa_stream*, void* self) {
  PulseStream& my = *stream_of(self);
  my.growing_ = false;
  my.apply_queue(attributes_of(my.queue_, my.format()));
  my.changed_();
}

void PulseStream::on_queue(pa_stream*, void* self) { stream_of(self)->read_queue(); }

void PulseStream::on_queue_set(pa_stream*, int, void* self) {
  stream_of(self)->resizing_.done();
  stream_of(self)->read_queue();
}

void PulseStream::on_played_out(pa_stream* stream, int, void* self) {
  PulseStream& my = *stream_of(self);
  my.playing_out_.done();
  my.motion_ = Motion::kHeld;
  PulseOperation::ignore(pa_stream_cork(stream, 1, nullptr, nullptr));
  my.report();
  my.changed_();
}

}  // namespace tandem
