#include "platform/system/time_of_day.h"

#include <array>
#include <ctime>

namespace tandem {

std::string time_of_day() {
  const std::time_t now = std::time(nullptr);
  tzset();  // the zone may have changed
  std::tm local{};
  localtime_r(&now, &local);
  std::array<char, 8> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%H:%M", &local);
  return {text.data(), length};
}

}  // namespace tandem
