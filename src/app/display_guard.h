// Qt aborts the program when it finds no display. While a DisplayGuard lives, the program exits with status 1 instead,
// and prints one line on standard error unless Report::Nothing is given. Other messages of Qt are held back until the
// guard is destroyed and then logged at their own level. For the construction of the QApplication; UI thread.
#pragma once

namespace tandem {

class DisplayGuard {
 public:
  enum class Report { Reason, Nothing };  // Nothing: the caller has already said why the program ends

  explicit DisplayGuard(Report report = Report::Reason);
  ~DisplayGuard();
  DisplayGuard(const DisplayGuard&) = delete;
  DisplayGuard& operator=(const DisplayGuard&) = delete;
};

}  // namespace tandem
