// A display that is switched on. For tests and measurements; UI thread.
#pragma once

namespace tandem {

template <class Display, class... Arguments>
Display enabled(Arguments... arguments) {
  Display display(arguments...);
  display.put_Enabled(true);
  return display;
}

}  // namespace tandem
