// A small window beside the panel, in its style: what is being waited for, how far it has come, and Cancel. UI thread;
// it does not stop the panel, which can be used meanwhile, and does not take the keyboard from it.
#pragma once

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QWidget>
#include <functional>

namespace tandem {

class ProgressWindow final : public QWidget {
 public:
  ProgressWindow(QWidget* parent, std::function<void()> cancelled);  // by the key, Escape, or closing the window

  // `share` from 0 to 1, below 0 where it is not known.
  void show_progress(const QString& text, double share);
  QString text() const { return text_->text(); }

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  std::function<void()> cancelled_;
  QLabel* text_;
  QProgressBar* bar_;
  QPushButton* cancel_;
};

}  // namespace tandem
