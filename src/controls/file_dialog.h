// The standard file dialog. UI thread only; timers and notifications go on while it is open.
#pragma once

#include <string>

namespace tandem {

class FileDialog {
 public:
  virtual ~FileDialog() = default;

  std::string InitDir;   // where it opens; empty or missing: where it was last
  std::string Filter;    // "text|*.a;*.b"; any letter case matches
  std::string FileName;  // the result, emptied before each show

  // Several files come as directory, NUL, name, NUL, name in descending natural order, without a NUL at the end; one
  // file comes as its full path. Cancel throws Cancelled.
  void ShowOpen();
  // One full path; ".m3l" is added to a name without extension, and overwriting is asked for. Cancel throws Cancelled.
  void ShowSave();

 protected:
  virtual std::string ask_open() = 0;  // empty text: cancelled
  virtual std::string ask_save() = 0;
};

}  // namespace tandem
