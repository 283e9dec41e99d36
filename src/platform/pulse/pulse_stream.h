// One stream to the sound server: takes the ring's frames when the server asks for them, plays and holds, and reports
// what was heard. Lives on the loop's thread; dies only outside its own callbacks.
//
// It is made held (corked). hold() lets everything be played that was taken before the device is held, so that nothing
// is cut off. When the ring runs dry nothing is put in its place: the stream comes back for the rest after 10 to 100
// ms.
#pragma once

#include <pulse/stream.h>

#include <atomic>
#include <cstdint>
#include <functional>

#include "engine/device/output_ring.h"
#include "platform/output/playback_clock.h"
#include "platform/pulse/pulse_events.h"
#include "platform/pulse/pulse_queue.h"
#include "platform/pulse/pulse_writer.h"
#include "platform/pulse/stream_name.h"

namespace tandem {

class PulseStream {
 public:
  struct Places {
    pa_mainloop_api* api;
    pa_context* context;                    // ready
    OutputRing* ring;                       // this stream is its reader
    PlaybackClock* clock;                   // this stream writes it
    std::atomic<std::uint64_t>* underruns;  // and counts here how often it ran dry
  };

  PulseStream(const Places& places, const DeviceFormat& format, const PulseQueue& queue, std::function<void()> changed);
  ~PulseStream();
  PulseStream(const PulseStream&) = delete;
  PulseStream& operator=(const PulseStream&) = delete;

  // Only when ready().
  void play();                     // what feed() gives it
  void hold(std::uint64_t up_to);  // takes the ring up to that frame (a count since ever), plays it, then holds
  void resize(const PulseQueue& queue);
  void put_name(const StreamName& name);
  // Takes what the server has asked for, and waits for what is missing up to 10 ms, if it is being made: less than is
  // queued even where the queue is short.
  void feed();

  bool ready() const noexcept { return state_ == State::kReady; }
  bool failed() const noexcept { return state_ == State::kFailed; }
  bool unconverted() const noexcept { return writer_.broken(); }   // failed since its rate cannot be converted to
  bool held() const noexcept { return motion_ == Motion::kHeld; }  // everything taken was played
  bool suspended() const noexcept { return suspended_; }
  int request_frames() const noexcept { return request_frames_; }  // of the ring
  const DeviceFormat& format() const noexcept { return writer_.format(); }
  std::uint32_t sink() const noexcept { return pa_stream_get_device_index(stream_); }  // once it is ready

 private:
  enum class State { kCreating, kReady, kFailed };
  enum class Motion { kHeld, kPlaying, kPlayingOut };

  void listen(bool on);
  void connect();
  void fail();
  void come_back(std::uint64_t just_taken);
  void play_out();
  void stall();
  void run_dry();
  void read_queue();
  void apply_queue(const pa_buffer_attr& buffering);
  void end_growth();
  std::uint64_t time_played() const;
  void report();

  static void on_state(pa_stream*, void* self);
  static void on_request(pa_stream*, std::size_t bytes, void* self);
  static void on_timing(pa_stream*, void* self);
  static void on_underflow(pa_stream*, void* self);
  static void on_started(pa_stream*, void* self);
  static void on_suspended(pa_stream*, void* self);
  static void on_moved(pa_stream*, void* self);
  static void on_queue(pa_stream*, void* self);
  static void on_queue_set(pa_stream*, int success, void* self);
  static void on_played_out(pa_stream*, int success, void* self);

  OutputRing& ring_;
  PlaybackClock& clock_;
  std::atomic<std::uint64_t>& underruns_;
  std::function<void()> changed_;
  PulseTimer hungry_;
  PulseQueue queue_;
  pa_stream* stream_;
  PulseWriter writer_;
  StreamName name_;
  PulseOperation playing_out_;
  PulseOperation resizing_;
  State state_ = State::kCreating;
  Motion motion_ = Motion::kHeld;
  bool suspended_ = false;
  bool growing_ = false;  // until the queue is as long as it should be
  bool stalled_ = true;   // the server has nothing to play of what came after stalled_at_
  int request_frames_ = 0;
  Nanoseconds changed_at_ = 0;  // when the queue or the device last did
  std::uint64_t stalled_at_;    // counts of the ring
  std::uint64_t position_;
};

}  // namespace tandem
