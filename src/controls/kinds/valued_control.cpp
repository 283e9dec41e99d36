#include "controls/kinds/valued_control.h"

#include <algorithm>

namespace tandem {

bool ValuedControl::set(std::int32_t value) {
  const std::int32_t limited = std::max(minimum_, std::min(value, maximum_));
  if (limited == value_) return false;
  value_ = limited;
  view_changed.raise();
  return true;
}

void ValuedControl::put(std::int32_t value) {
  const bool differs = set(value);
  if (notify_ == NotifyOnPut::Always || (notify_ == NotifyOnPut::OnChange && differs)) change.raise();
}

void ValuedControl::put_maximum(std::int32_t maximum) {
  maximum_ = maximum;
  set(value_);
  view_changed.raise();
}

void ValuedControl::move(std::int32_t value) {
  set(value);
  change.raise();
}

}  // namespace tandem
