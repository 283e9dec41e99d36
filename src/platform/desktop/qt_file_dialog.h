// The file dialog: the desktop's own through its portal where there is one, else Qt's. UI thread;
// timers and notifications go on while it is open. Qt's is made for each show, since it would keep megabytes; its size,
// view and folder are kept until the program closes, and nothing is stored on disk. Names that are not valid UTF-8
// cannot be chosen in it (Qt leaves them out); dropped on the window or in a list file they are taken.
#pragma once

#include <QAbstractFileIconProvider>
#include <QByteArray>
#include <QFileDialog>
#include <QSize>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/file_dialog.h"

namespace tandem {

class QtFileDialog final : public FileDialog {
 public:
  QtFileDialog();
  ~QtFileDialog() override;

  // Of the songs chosen, which ones are returned: those for which the list has room.
  std::function<std::vector<std::string>(std::vector<std::string>)> fit;
  // What ShowOpen() asks for, or asked for last: saved lists, else songs.
  bool asks_for_lists() const { return for_lists_; }
  // Of the last songs chosen, those that the result has no place for, since they lie in other folders. Once.
  std::vector<std::string> take_others() { return std::exchange(others_, {}); }

  void set_parent(QWidget* parent) { parent_ = parent; }  // the window that it belongs to
  void leave_desktop();                                   // before that window and the QApplication end

 protected:
  std::string ask_open() override;
  std::string ask_save() override;

 private:
  struct Kept {  // of Qt's dialog from show to show
    QByteArray state;
    QSize size;
    QString folder;
  };

  std::optional<std::vector<std::string>> ask_portal(bool save);
  std::vector<std::string> ask_here(QFileDialog::AcceptMode mode);
  std::unique_ptr<QFileDialog> made(QFileDialog::AcceptMode mode, const Kept& kept);

  QWidget* parent_ = nullptr;
  bool for_lists_ = false;
  std::vector<std::string> others_;
  std::unique_ptr<QAbstractFileIconProvider> kinds_;
  Kept open_;
  Kept save_;
};

}  // namespace tandem
