// The real file dialog: filter, folder, order, and what it remembers. A script answers it while it is open.

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QListView>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <filesystem>
#include <fstream>
#include <functional>
#include <set>

#include "base/runtime_error.h"
#include "platform/desktop/qt_file_dialog.h"
#include "support/temp_directory.h"

namespace tandem::test {
namespace {

class DialogTest : public testing::Test {
 protected:
  DialogTest() {
    dialog.InitDir = directory.path();
    dialog.Filter = "MP3 and Wave Files (MP3 / WAV)|*.mp3;*.wav";
  }
  void make(const std::string& name) const { std::ofstream(directory.file(name)) << "x"; }

  using Script = std::function<void(QFileDialog&)>;
  // Runs the script in the open dialog; what the script does not close is cancelled.
  static void while_open(const Script& script) {
    QTimer::singleShot(0, qApp, [script] {
      auto* open = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
      ASSERT_NE(open, nullptr);
      script(*open);
      if (open->isVisible()) open->reject();
    });
  }
  void open(const Script& script) {
    while_open(script);
    dialog.ShowOpen();
  }
  void save(const Script& script) {
    while_open(script);
    dialog.ShowSave();
  }
  static QLineEdit& line(QFileDialog& open) { return *open.findChild<QLineEdit*>("fileNameEdit"); }
  static void type(QFileDialog& open, const QString& text) {
    line(open).setText(text);
    QMetaObject::invokeMethod(&open, "accept");
  }
  static std::vector<std::string> names_in_order(QFileDialog& open) {
    const auto* view = open.findChild<QTreeView*>("treeView");
    std::vector<std::string> names;
    for (int row = 0; row < view->model()->rowCount(view->rootIndex()); ++row)
      names.push_back(view->model()->index(row, 0, view->rootIndex()).data().toString().toStdString());
    return names;
  }
  // The names that the dialog shows, once there are `count`.
  static std::set<std::string> listed(QFileDialog& open, std::size_t count) {
    std::vector<std::string> names;
    EXPECT_TRUE(QTest::qWaitFor([&] { return (names = names_in_order(open)).size() == count; })) << names.size();
    return {names.begin(), names.end()};
  }

  TempDirectory directory;
  QtFileDialog dialog;
};

TEST_F(DialogTest, ShowsSongsInAnyLetterCaseAndNothingElse) {
  for (const char* name : {"a.mp3", "b.MP3", "c.Wav", "d.txt", "e.mp3.txt"}) make(name);
  std::set<std::string> names;
  EXPECT_THROW(open([&](QFileDialog& shown) { names = listed(shown, 3); }), RuntimeError);
  EXPECT_EQ(names, (std::set<std::string>{"a.mp3", "b.MP3", "c.Wav"}));
}

// In the locale "C" too, in which Qt itself would compare letter by letter. Qt sorts after it has listed.
TEST_F(DialogTest, ShowsFoldersFirstAndNamesAsPeopleCount) {
  for (const char* name : {"10 c.mp3", "2 b.mp3", "1 a.mp3", "B.mp3", "a.mp3"}) make(name);
  std::filesystem::create_directory(directory.file("20 folder"));
  const std::vector<std::string> expected = {"20 folder", "1 a.mp3", "2 b.mp3", "10 c.mp3", "a.mp3", "B.mp3"};
  std::vector<std::string> names;
  EXPECT_THROW(open([&](QFileDialog& shown) {
                 EXPECT_TRUE(QTest::qWaitFor([&] { return (names = names_in_order(shown)) == expected; }));
               }),
               RuntimeError);
  EXPECT_EQ(names, expected);
}

TEST_F(DialogTest, CancelThrowsAndLeavesNoName) {
  dialog.FileName = "before";
  EXPECT_THROW(open([](QFileDialog& shown) { shown.reject(); }), RuntimeError);
  EXPECT_EQ(dialog.FileName, "");
}

TEST_F(DialogTest, OneFileIsItsPath) {
  make("a song.mp3");
  open([](QFileDialog& shown) { type(shown, "a song.mp3"); });
  EXPECT_EQ(dialog.FileName, directory.file("a song.mp3"));
}

// The lines are added from the last name to the first.
TEST_F(DialogTest, SeveralComeInDescendingNaturalOrder) {
  for (const char* name : {"10.mp3", "9.mp3", "1.mp3"}) make(name);
  open([](QFileDialog& shown) { type(shown, "\"9.mp3\" \"10.mp3\" \"1.mp3\""); });
  std::string expected = directory.path();
  for (const char* name : {"10.mp3", "9.mp3", "1.mp3"}) expected += std::string(1, '\0') + name;
  EXPECT_EQ(dialog.FileName, expected);
}

// Everything in a folder is chosen: its folders are no songs.
TEST_F(DialogTest, FoldersAmongTheFilesAreLeftOut) {
  for (const char* name : {"a.mp3", "b.wav"}) make(name);
  std::filesystem::create_directory(directory.file("more"));
  open([](QFileDialog& shown) {
    listed(shown, 3);
    shown.findChild<QTreeView*>("treeView")->selectAll();
    QMetaObject::invokeMethod(&shown, "accept");
    EXPECT_FALSE(shown.isVisible());
  });
  EXPECT_EQ(dialog.FileName, directory.path() + '\0' + "b.wav" + '\0' + "a.mp3");
}

TEST_F(DialogTest, AFolderAloneIsEntered) {
  std::filesystem::create_directory(directory.file("more"));
  EXPECT_THROW(open([this](QFileDialog& shown) {
                 listed(shown, 1);
                 shown.findChild<QTreeView*>("treeView")->selectAll();
                 QMetaObject::invokeMethod(&shown, "accept");
                 EXPECT_EQ(shown.directory().path().toStdString(), directory.file("more"));
               }),
               RuntimeError);
}

TEST_F(DialogTest, StartsInItsFolderWithAnEmptyName) {
  make("a.mp3");
  open([](QFileDialog& shown) { type(shown, "a.mp3"); });
  std::filesystem::create_directory(directory.file("other"));
  dialog.InitDir = directory.file("other");
  EXPECT_THROW(open([this](QFileDialog& shown) {
                 EXPECT_EQ(shown.directory().path().toStdString(), directory.file("other"));
                 EXPECT_EQ(line(shown).text().toStdString(), "");
               }),
               RuntimeError);
  dialog.InitDir = directory.file("missing");  // where it was last
  EXPECT_THROW(
      open([this](QFileDialog& shown) { EXPECT_EQ(shown.directory().path().toStdString(), directory.file("other")); }),
      RuntimeError);
}

// Completions of a typed name could else come up when the dialog has closed.
TEST_F(DialogTest, CompletesNamesOnlyWhileItIsOpen) {
  QPointer<QCompleter> completer;
  const auto completes = [&completer](QFileDialog& shown) {
    const QLineEdit* typed_in = &line(shown);
    completer = typed_in->completer();
    EXPECT_TRUE(QTest::qWaitFor([&] { return completer->widget() == typed_in; }));
  };
  EXPECT_THROW(open(completes), RuntimeError);
  EXPECT_TRUE(completer.isNull()) << "it goes with its dialog";
  EXPECT_THROW(open(completes), RuntimeError);
}

TEST_F(DialogTest, RemembersSizeAndView) {
  EXPECT_THROW(open([](QFileDialog& shown) {
                 shown.resize(777, 555);
                 shown.setViewMode(QFileDialog::List);
               }),
               RuntimeError);
  EXPECT_THROW(open([](QFileDialog& shown) {
                 EXPECT_EQ(shown.size(), QSize(777, 555));
                 EXPECT_EQ(shown.viewMode(), QFileDialog::List);
               }),
               RuntimeError);
}

TEST_F(DialogTest, ShowsTheFiltersTextWithoutPatterns) {
  EXPECT_THROW(open([](QFileDialog& shown) {
                 const auto* kinds = shown.findChild<QComboBox*>("fileTypeCombo");
                 EXPECT_EQ(kinds->currentText().trimmed().toStdString(), "MP3 and Wave Files (MP3 / WAV)");
               }),
               RuntimeError);
}

TEST_F(DialogTest, SaveAddsTheEndingToEveryNameWithoutIt) {
  dialog.Filter = "Playlist|*.m3l";
  save([](QFileDialog& shown) { type(shown, "evening"); });
  EXPECT_EQ(dialog.FileName, directory.file("evening.m3l"));
  save([](QFileDialog& shown) { type(shown, "morning.txt"); });
  EXPECT_EQ(dialog.FileName, directory.file("morning.txt.m3l"));
}

TEST_F(DialogTest, SaveAsksBeforeItWritesOver) {
  make("evening.m3l");
  dialog.Filter = "Playlist|*.m3l";
  int questions = 0;
  const auto answer = [&questions](QMessageBox::StandardButton button) {
    QTimer::singleShot(0, qApp, [&questions, button] {
      auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      ++questions;
      box->button(button)->click();
    });
  };
  EXPECT_THROW(save([&](QFileDialog& shown) {
                 answer(QMessageBox::No);
                 type(shown, "evening");
                 EXPECT_TRUE(shown.isVisible());
               }),
               RuntimeError);
  EXPECT_EQ(questions, 1);
  save([&](QFileDialog& shown) {
    answer(QMessageBox::Yes);
    type(shown, "evening");
  });
  EXPECT_EQ(questions, 2);
  EXPECT_EQ(dialog.FileName, directory.file("evening.m3l"));
}

}  // namespace
}  // namespace tandem::test
