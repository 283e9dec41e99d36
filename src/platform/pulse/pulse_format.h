// The formats of a sound server's devices and streams in our terms. Any thread, no state.
#pragma once

#include <pulse/sample.h>

#include "platform/output/device_format.h"

namespace tandem {

// The format in which to play to such a device: as many bits as it has use for, at its own rate. A rate outside of 8000
// to 384000 is left to the server to convert to.
DeviceFormat format_for(const pa_sample_spec& device) noexcept;
// The stream's.
pa_sample_spec spec_of(const DeviceFormat& format) noexcept;

}  // namespace tandem
