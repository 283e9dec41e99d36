// The sections of the report: each prints its table to standard output; three draw a plot into the folder given.
#pragma once

#include <string>

namespace tandem::report {

void report_depth();
void report_rate(const std::string& folder);
void report_limiter();
void report_equalizer(const std::string& folder);
void report_pitch(const std::string& folder);
void report_onsets();
void report_displays();
void report_downmix();
void report_gapless();

}  // namespace tandem::report
