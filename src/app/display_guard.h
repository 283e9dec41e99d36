// The toolkit aborts the program where it finds no display. While one of these lives, that ends the program with exit
// status 1 instead, and with one line on standard error unless it is to tell nothing. What else the toolkit says
// meanwhile is said at the guard's end, each message as grave as it was. For the time in which the QApplication is
// made; UI thread.
#pragma once

namespace tandem {

class DisplayGuard {
 public:
  enum class Tells { Reason, Nothing };  // Nothing: why the program ends has been said

  explicit DisplayGuard(Tells tells = Tells::Reason);
  ~DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
};

}  // namespace tandem
