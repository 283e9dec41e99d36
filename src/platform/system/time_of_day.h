// The time of day on the user's wall clock: "HH:MM", 24 hours. Any thread.
#pragma once

#include <string>

namespace tandem {

std::string time_of_day();

}  // namespace tandem
