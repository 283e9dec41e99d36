#include "platform/desktop/qt_file_dialog.h"

#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QSettings>
#include <QStandardPaths>
#include <QTreeView>
#include <cctype>
#include <vector>

#include "base/text.h"
#include "controls/chosen_files.h"

namespace tandem {

namespace {

// "*.mp3;*.wav" with every letter in both cases: "*.[mM][pP]3 *.[wW][aA][vV]".
std::string any_case(const std::string& patterns) {
  std::string result;
  for (const char c : patterns) {
    if (c == ';') {
      result += ' ';
    } else if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
      result += {'[', static_cast<char>(std::tolower(c)), static_cast<char>(std::toupper(c)), ']'};
    } else {
      result += c;
    }
  }
  return result;
}

// "Text|*.a;*.b" in the toolkit's form.
QString name_filter(const std::string& filter) {
  const std::size_t bar = filter.find('|');
  return QString::fromStdString(filter.substr(0, bar) + " (" + any_case(filter.substr(bar + 1)) + ")");
}

std::string first_or_empty(const std::vector<std::string>& texts) { return texts.empty() ? "" : texts.front(); }

QLineEdit* name_line(QFileDialog& dialog) { return dialog.findChild<QLineEdit*>("fileNameEdit"); }

// The toolkit would show the completions of a typed name when it has read their folder, be the dialog closed or not.
void end_completion(QFileDialog& dialog) {
  const QLineEdit* line = name_line(dialog);
  if (line != nullptr && line->completer() != nullptr) line->completer()->setWidget(nullptr);
}

std::vector<std::string> chosen(QFileDialog& dialog) {
  std::vector<std::string> paths;
  const bool accepted = dialog.exec() == QDialog::Accepted;
  end_completion(dialog);
  if (!accepted) return paths;
  for (const QString& file : dialog.selectedFiles()) paths.push_back(QFile::encodeName(file).toStdString());
  return paths;
}

// The toolkit goes into a folder that was selected among files, and forgets the files.
void leave_out_folders(QItemSelectionModel& selection) {
  QModelIndexList folders = selection.selectedRows();
  const auto count = folders.size();
  folders.removeIf(
      [](const QModelIndex& row) { return !QFileInfo(row.data(QFileSystemModel::FilePathRole).toString()).isDir(); });
  if (folders.size() == count) return;
  for (const QModelIndex& folder : folders)
    selection.select(folder, QItemSelectionModel::Deselect | QItemSelectionModel::Rows);
}

// Where a newcomer's songs most likely are.
QString first_folder() {
  const QString music = QStandardPaths::writableLocation(QStandardPaths::MusicLocation);
  return QDir(music).exists() ? music : QDir::homePath();
}

class FilesDialog final : public QFileDialog {
 public:
  FilesDialog() {
    setViewMode(QFileDialog::Detail);
    setOption(QFileDialog::HideNameFilterDetails);  // the patterns with both cases of every letter
    resize(kWidth, kHeight);
    make_room_for_names();
  }

 protected:
  void accept() override {
    if (tree_ != nullptr) leave_out_folders(*tree_->selectionModel());
    QFileDialog::accept();
  }

 private:
  static constexpr int kWidth = 860;
  static constexpr int kHeight = 480;

  void make_room_for_names() {
    if (tree_ == nullptr) return;
    QHeaderView& header = *tree_->header();
    const QString widest[] = {{}, "1000.00 MiB", "WAV audio file", "30 Sep 2026 20:30:00 pm"};
    for (int column = 1; column < 4; ++column)
      header.resizeSection(column, fontMetrics().horizontalAdvance(widest[column]) + fontMetrics().height());
    header.setStretchLastSection(false);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
  }

  QTreeView* tree_ = findChild<QTreeView*>("treeView");  // of the toolkit's own dialog
};

}  // namespace

QtFileDialog::QtFileDialog() {
  // The toolkit would keep the dialog's state in the user's settings.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null/tandem");
}

QtFileDialog::~QtFileDialog() = default;

void QtFileDialog::leave_desktop() {
  open_.reset();
  save_.reset();
  parent_ = nullptr;
}

QFileDialog& QtFileDialog::prepared(QFileDialog::AcceptMode mode) {
  auto& dialog = mode == QFileDialog::AcceptOpen ? open_ : save_;
  if (!dialog) {
    dialog = std::make_unique<FilesDialog>();
    dialog->setAcceptMode(mode);
    dialog->setDirectory(first_folder());
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
  }
  if (dialog->parentWidget() != parent_) dialog->setParent(parent_, dialog->windowFlags());
  dialog->setNameFilter(name_filter(Filter));
  // What was chosen last is not proposed again: the toolkit would keep it in its line.
  if (auto* line = name_line(*dialog)) line->clear();
  if (const QString folder = QFile::decodeName(InitDir.c_str()); !folder.isEmpty() && QDir(folder).exists())
    dialog->setDirectory(folder);
  return *dialog;
}

std::string QtFileDialog::ask_open() {
  return first_or_empty(dialog_results(chosen(prepared(QFileDialog::AcceptOpen))));
}

std::string QtFileDialog::ask_save() {
  QFileDialog& dialog = prepared(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("m3l");
  return first_or_empty(chosen(dialog));
}

}  // namespace tandem
