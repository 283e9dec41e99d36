#include "platform/desktop/qt_file_dialog.h"

#include <malloc.h>

#include <QApplication>
#include <QCompleter>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QFileSystemModel>
#include <QHeaderView>
#include <QLineEdit>
#include <QLocale>
#include <QMessageBox>
#include <QPixmapCache>
#include <QSettings>
#include <QStandardPaths>
#include <QStyle>
#include <QTreeView>
#include <algorithm>
#include <vector>

#include "base/song_endings.h"
#include "base/text.h"
#include "controls/chosen_files.h"
#include "platform/desktop/file_chooser_portal.h"

namespace tandem {

namespace {

// "Text|*.a;*.b" in Qt's form.
QString name_filter(const std::string& filter) {
  const std::size_t bar = filter.find('|');
  std::string patterns = any_case(filter.substr(bar + 1));
  std::replace(patterns.begin(), patterns.end(), ';', ' ');
  return QString::fromStdString(filter.substr(0, bar) + " (" + patterns + ")");
}

std::string first_or_empty(const std::vector<std::string>& texts) { return texts.empty() ? "" : texts.front(); }

QLineEdit* name_line(QFileDialog& dialog) { return dialog.findChild<QLineEdit*>("fileNameEdit"); }

// Qt would show the completions of a typed name when it has read their folder, be the dialog closed or not.
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

// Qt goes into a folder that was selected among files, and forgets the files.
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

// What a file is by its ending: nothing else is worth reading the desktop's tables of types and icons, which take
// megabytes.
class PlainKinds final : public QAbstractFileIconProvider {
 public:
  QIcon icon(IconType type) const override { return type == Folder ? folder_ : QIcon(); }
  QIcon icon(const QFileInfo& file) const override { return file.isDir() ? folder_ : QIcon(); }
  QString type(const QFileInfo& file) const override {
    if (file.isDir()) return QFileDialog::tr("Folder");
    return file.suffix().toUpper();
  }

 private:
  QIcon folder_ = QApplication::style()->standardIcon(QStyle::SP_DirIcon);
};

bool may_replace(const std::string& path, QWidget* parent) {
  const QString file = QFile::decodeName(path.c_str());
  if (!QFile::exists(file)) return true;
  const QString question =
      QFileDialog::tr("%1 already exists.\nDo you want to replace it?").arg(QFileInfo(file).fileName());
  return QMessageBox::question(parent, "Tandem", question) == QMessageBox::Yes;
}

// Qt's dialog sorts names as people count, "2" before "10", but not in the locale "C": as long as this lives, names are
// compared as in English there.
class CountingOrder {
 public:
  CountingOrder() {
    if (before_.collation().language() == QLocale::C) QLocale::setDefault(QLocale(QLocale::English));
  }
  ~CountingOrder() { QLocale::setDefault(before_); }
  CountingOrder(const CountingOrder&) = delete;
  CountingOrder& operator=(const CountingOrder&) = delete;

 private:
  QLocale before_;
};

class FilesDialog final : public QFileDialog {
 public:
  explicit FilesDialog(QAbstractFileIconProvider& kinds) {
    setOption(QFileDialog::DontUseNativeDialog);
    setIconProvider(&kinds);
    setViewMode(QFileDialog::Detail);
    setOption(QFileDialog::HideNameFilterDetails);  // the patterns with both cases of every letter
    resize(kWidth, kHeight);
    make_room_for_names();
  }

 protected:
  void accept() override {
    if (tree_ != nullptr) leave_out_folders(*tree_->selectionModel());
    if (acceptMode() == QFileDialog::AcceptSave) complete_name();
    QFileDialog::accept();
  }

 private:
  static constexpr int kWidth = 860;
  static constexpr int kHeight = 480;

  // Before the question whether a file of that name is to be replaced.
  void complete_name() {
    QLineEdit* line = name_line(*this);
    if (line == nullptr) return;
    const std::string name = QFile::encodeName(line->text()).toStdString();
    const bool goes_to_folder = name.empty() || name.ends_with('/') || QFileInfo(directory(), line->text()).isDir();
    if (!goes_to_folder && !ends_as_list(name)) line->setText(line->text() + kListEnding.data());
  }

  void make_room_for_names() {
    if (tree_ == nullptr) return;
    QHeaderView& header = *tree_->header();
    const QString widest[] = {{}, "1000.00 MiB", "WAV audio file", "30 Sep 2026 20:30:00 pm"};
    for (int column = 1; column < 4; ++column)
      header.resizeSection(column, fontMetrics().horizontalAdvance(widest[column]) + fontMetrics().height());
    header.setStretchLastSection(false);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
  }

  QTreeView* tree_ = findChild<QTreeView*>("treeView");  // of Qt's own dialog
};

}  // namespace

QtFileDialog::QtFileDialog() {
  // Qt would keep the dialog's state in the user's settings.
  QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, "/dev/null/tandem");
}

QtFileDialog::~QtFileDialog() = default;

void QtFileDialog::leave_desktop() {
  kinds_.reset();
  parent_ = nullptr;
}

std::unique_ptr<QFileDialog> QtFileDialog::made(QFileDialog::AcceptMode mode, const Kept& kept) {
  if (!kinds_) kinds_ = std::make_unique<PlainKinds>();
  auto dialog = std::make_unique<FilesDialog>(*kinds_);
  if (!kept.state.isEmpty()) dialog->restoreState(kept.state);
  if (kept.size.isValid()) dialog->resize(kept.size);
  dialog->setAcceptMode(mode);
  dialog->setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                      : asks_for_lists()              ? QFileDialog::ExistingFile
                                                      : QFileDialog::ExistingFiles);
  if (mode == QFileDialog::AcceptSave) dialog->setDefaultSuffix("m3l");
  if (parent_ != nullptr) dialog->setParent(parent_, dialog->windowFlags());
  dialog->setNameFilter(name_filter(Filter));
  const QString wanted = QFile::decodeName(InitDir.c_str());
  const QString before = kept.folder.isEmpty() ? first_folder() : kept.folder;
  dialog->setDirectory(!wanted.isEmpty() && QDir(wanted).exists() ? wanted : before);
  return dialog;
}

std::vector<std::string> QtFileDialog::ask_here(QFileDialog::AcceptMode mode) {
  Kept& kept = mode == QFileDialog::AcceptOpen ? open_ : save_;
  const CountingOrder order;
  auto dialog = made(mode, kept);
  std::vector<std::string> paths = chosen(*dialog);
  kept = {dialog->saveState(), dialog->size(), dialog->directory().absolutePath()};
  dialog.reset();
  QPixmapCache::clear();  // of the icons of each dialog it would keep a copy
  malloc_trim(0);
  return paths;
}

std::optional<std::vector<std::string>> QtFileDialog::ask_portal(bool save) {
  const bool songs = !save && !asks_for_lists();
  const char* title = save ? "Save the list" : songs ? "Add songs" : "Open a list";
  return FileChooserPortal::ask({save, songs, title, InitDir, Filter}, parent_);
}

// While the dialog is open, another key may have put its own filter before its show is refused.
std::string QtFileDialog::ask_open() {
  for_lists_ = Filter.find(kListEnding) != std::string::npos;
  const auto answer = ask_portal(false);
  auto paths = answer ? *answer : ask_here(QFileDialog::AcceptOpen);
  if (fit && !asks_for_lists()) paths = fit(std::move(paths));
  others_.clear();
  const std::vector<std::string> results = dialog_results(paths);
  for (std::size_t i = 1; i < results.size(); ++i)
    for (std::string& path : chosen_paths(results[i])) others_.push_back(std::move(path));
  return first_or_empty(results);
}

// The portal asks before it overwrites the name that was typed, but not the name that it becomes.
std::string QtFileDialog::ask_save() {
  const auto paths = ask_portal(true);
  if (!paths) return first_or_empty(ask_here(QFileDialog::AcceptSave));
  std::string path = first_or_empty(*paths);
  if (path.empty() || ends_as_list(path)) return path;
  path += kListEnding;
  return may_replace(path, parent_) ? path : std::string();
}

}  // namespace tandem
