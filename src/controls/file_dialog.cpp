#include "controls/file_dialog.h"

#include "base/runtime_error.h"
#include "base/song_endings.h"

namespace tandem {

namespace {

class Asking {
 public:
  explicit Asking(bool& asking) : asking_(asking) {
    if (asking_) throw RuntimeError(RuntimeErrorKind::Cancelled);
    asking_ = true;
  }
  ~Asking() { asking_ = false; }
  Asking(const Asking&) = delete;
  Asking& operator=(const Asking&) = delete;

 private:
  bool& asking_;
};

void require(bool chosen) {
  if (!chosen) throw RuntimeError(RuntimeErrorKind::Cancelled);
}

}  // namespace

void FileDialog::ShowOpen() {
  const Asking asking(asking_);
  FileName.clear();
  const std::string result = ask_open();
  require(!result.empty());
  require(!prepare || prepare(result));
  FileName = result;
}

void FileDialog::ShowSave() {
  const Asking asking(asking_);
  FileName.clear();
  FileName = ask_save();
  require(!FileName.empty());
  if (!ends_as_list(FileName)) FileName += kListEnding;
}

}  // namespace tandem
