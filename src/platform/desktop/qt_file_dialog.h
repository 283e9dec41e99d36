// The desktop's file dialog. UI thread; timers and notifications go on while it is open.
// It keeps its size, view and place until the program closes, and stores nothing on disk. Names that are not valid
// UTF-8 cannot be chosen in it (the toolkit leaves them out); dropped on the window or in a list file they are taken.
#pragma once

#include <QFileDialog>
#include <memory>
#include <string>

#include "controls/file_dialog.h"

namespace tandem {

class QtFileDialog final : public FileDialog {
 public:
  QtFileDialog();
  ~QtFileDialog() override;

  void set_parent(QWidget* parent) { parent_ = parent; }  // the window that it belongs to
  void leave_desktop();                                   // before that window and the QApplication end

 protected:
  std::string ask_open() override;
  std::string ask_save() override;

 private:
  QFileDialog& prepared(QFileDialog::AcceptMode mode);

  QWidget* parent_ = nullptr;
  std::unique_ptr<QFileDialog> open_;
  std::unique_ptr<QFileDialog> save_;
};

}  // namespace tandem
