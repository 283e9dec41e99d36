#include "controls/file_dialog.h"

#include "base/runtime_error.h"
#include "base/text.h"

namespace tandem {

namespace {
void require(const std::string& answer) {
  if (answer.empty()) throw RuntimeError(RuntimeErrorKind::Cancelled);
}

// A name has an extension if a dot stands in it behind its first letter.
bool has_extension(const std::string& path) {
  const std::size_t name = name_begin(path);
  const std::size_t dot = path.rfind('.');
  return dot != std::string::npos && dot > name;
}
}  // namespace

void FileDialog::ShowOpen() {
  FileName.clear();
  FileName = ask_open();
  require(FileName);
}

void FileDialog::ShowSave() {
  FileName.clear();
  FileName = ask_save();
  require(FileName);
  if (!has_extension(FileName)) FileName += ".m3l";
}

}  // namespace tandem
