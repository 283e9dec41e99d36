// Watches what libpulse calls back: this program's own pa_stream_set_..._callback, pa_stream_drain,
// pa_stream_set_buffer_attr and pa_stream_disconnect stand before the library's and count each call into a stream that
// has been disconnected.
#pragma once

namespace tandem::test {

// How many calls came into a stream that was disconnected before, in this process.
int late_callbacks() noexcept;
// How many streams were disconnected: without one the count above says nothing.
int disconnected_streams() noexcept;

}  // namespace tandem::test
