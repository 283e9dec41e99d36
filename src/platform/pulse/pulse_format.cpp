#include "platform/pulse/pulse_format.h"

#include <cstdint>

namespace tandem {

namespace {

bool has_more_than_16_bits(pa_sample_format_t format) {
  switch (format) {
    case PA_SAMPLE_S24LE:
    case PA_SAMPLE_S24BE:
    case PA_SAMPLE_S24_32LE:
    case PA_SAMPLE_S24_32BE:
    case PA_SAMPLE_S32LE:
    case PA_SAMPLE_S32BE:
    case PA_SAMPLE_FLOAT32LE:
    case PA_SAMPLE_FLOAT32BE:
      return true;
    default:
      return false;
  }
}

pa_sample_format_t encoding_of(const DeviceFormat& format) {
  switch (format.encoding) {
    case SampleEncoding::kInt32:
      return PA_SAMPLE_S32NE;
    case SampleEncoding::kFloat32:
      return PA_SAMPLE_FLOAT32NE;
    case SampleEncoding::kInt16:
      break;
  }
  return PA_SAMPLE_S16NE;
}

}  // namespace

DeviceFormat format_for(const pa_sample_spec& device) noexcept {
  DeviceFormat format;
  if (has_more_than_16_bits(device.format)) format.encoding = SampleEncoding::kFloat32;
  if (device.rate >= kLowestRate && device.rate <= kHighestRate) format.rate = static_cast<int>(device.rate);
  return format;
}

pa_sample_spec spec_of(const DeviceFormat& format) noexcept {
  return {encoding_of(format), static_cast<std::uint32_t>(format.rate), 2};
}

}  // namespace tandem
