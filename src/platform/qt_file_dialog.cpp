#include "platform/qt_file_dialog.h"

#include <dirent.h>

#include <QDir>
#include <QFile>
#include <QSettings>
#include <algorithm>
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
  std::string text = filter.substr(0, bar);
  std::replace(text.begin(), text.end(), '(', '[');  // the toolkit takes what stands in brackets as patterns
  std::replace(text.begin(), text.end(), ')', ']');
  return QString::fromStdString(text + " (" + any_case(filter.substr(bar + 1)) + ")");
}

// The bytes of a path as they stand on disk: a name that is no valid UTF-8 is shown with replacements, so it is looked
// for among the directory's entries.
std::string path_bytes(const QString& shown) {
  const QByteArray direct = QFile::encodeName(shown);
  if (!shown.contains(QChar::ReplacementCharacter)) return direct.toStdString();
  const std::string path = direct.toStdString();
  const std::string directory = path.substr(0, name_begin(path));
  const QString name = shown.mid(shown.lastIndexOf('/') + 1);
  const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(directory.c_str()), closedir);
  while (const dirent* entry = entries ? readdir(entries.get()) : nullptr)
    if (QFile::decodeName(entry->d_name) == name) return directory + entry->d_name;
  return path;
}

std::string first_or_empty(const std::vector<std::string>& texts) { return texts.empty() ? "" : texts.front(); }

std::vector<std::string> chosen(QFileDialog& dialog) {
  std::vector<std::string> paths;
  if (dialog.exec() != QDialog::Accepted) return paths;
  for (const QString& file : dialog.selectedFiles()) paths.push_back(path_bytes(file));
  return paths;
}

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
    dialog = std::make_unique<QFileDialog>();
    dialog->setAcceptMode(mode);
    dialog->setViewMode(QFileDialog::Detail);
    dialog->setFileMode(mode == QFileDialog::AcceptOpen ? QFileDialog::ExistingFiles : QFileDialog::AnyFile);
  }
  if (dialog->parentWidget() != parent_) dialog->setParent(parent_, dialog->windowFlags());
  dialog->setNameFilter(name_filter(Filter));
  return *dialog;
}

std::string QtFileDialog::ask_open() {
  QFileDialog& dialog = prepared(QFileDialog::AcceptOpen);
  if (const QString folder = QFile::decodeName(InitDir.c_str()); !folder.isEmpty() && QDir(folder).exists())
    dialog.setDirectory(folder);
  dialog.selectFile(QString());
  return first_or_empty(dialog_results(chosen(dialog)));
}

std::string QtFileDialog::ask_save() {
  QFileDialog& dialog = prepared(QFileDialog::AcceptSave);
  dialog.setDefaultSuffix("m3l");
  return first_or_empty(chosen(dialog));
}

}  // namespace tandem
