// The standard file dialog. UI thread only; timers and notifications go on while it is open.
#pragma once

#include <functional>
#include <string>

namespace tandem {

class FileDialog {
 public:
  virtual ~FileDialog() = default;

  std::string InitDir;   // where it opens; empty or missing: where it was last
  std::string Filter;    // "text|*.a;*.b"; any letter case matches
  std::string FileName;  // the result, emptied before each show

  // Called with what was chosen to open, before ShowOpen() returns it; may run an event loop of its own. False: the
  // user has cancelled after all.
  std::function<bool(const std::string& result)> prepare;

  // Several files come as directory, NUL, name, NUL, name in descending natural order, without a NUL at the end; one
  // file comes as its full path. Throws Cancelled if the user cancels, and at once while another show has not returned.
  void ShowOpen();
  // One full path; ".m3l" is added to a name that does not end in it, and overwriting is asked for. Throws as above.
  void ShowSave();

 protected:
  virtual std::string ask_open() = 0;  // empty text: cancelled
  virtual std::string ask_save() = 0;

 private:
  bool asking_ = false;
};

}  // namespace tandem
