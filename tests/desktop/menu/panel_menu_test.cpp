// The menu of the right button, over a panel of fakes, without a screen.

#include "desktop/panel_menu.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <memory>
#include <set>

#include "desktop/about_box.h"
#include "desktop/panel_palette.h"
#include "desktop/panel_style.h"
#include "desktop/version.h"
#include "fakes/test_panel.h"

namespace tandem::test {
namespace {

class Menu : public testing::Test {
 protected:
  Menu() {
    item.setAttribute(Qt::WA_NoMousePropagation);  // as the panel's items have it
    item.setGeometry(10, 10, 50, 20);
    menu = std::make_unique<PanelMenu>(window, remote,
                                       PanelMenu::Hooks{[this] { return scale; }, [this](double put) { scale = put; },
                                                        [] { return 2.0; }, [this] { ++quits; }});
    window.show();
  }
  QMenu* open() {
    QContextMenuEvent event(QContextMenuEvent::Mouse, QPoint(5, 5), item.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&item, &event);
    return window.findChild<QMenu*>("PanelMenu");
  }
  static QString plain(const QAction& action) { return action.text().remove('&'); }
  static QAction* entry(QMenu* opened, const QString& text) {
    for (QAction* action : opened->actions())
      if (plain(*action) == text) return action;
    return nullptr;
  }
  bool can(const QString& text) {
    QMenu* opened = open();
    QAction* action = entry(opened, text);
    const bool enabled = action != nullptr && action->isEnabled();
    delete opened;
    return enabled;
  }
  void choose(const QString& text) {
    QMenu* opened = open();
    QAction* action = entry(opened, text);
    ASSERT_NE(action, nullptr) << text.toStdString();
    ASSERT_TRUE(action->isEnabled()) << text.toStdString();
    action->trigger();
    delete opened;
    for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  }

  TestPanel panel;
  PanelRemote remote{panel.program, {[] {}, [](const std::vector<std::string>&) {}, {}}};
  QWidget window;
  QWidget item{&window};
  std::unique_ptr<PanelMenu> menu;
  double scale = 1;
  int quits = 0;
};

TEST_F(Menu, OpensOverEveryItemOfThePanel) {
  QMenu* opened = open();
  ASSERT_NE(opened, nullptr);
  QStringList texts;
  for (const QAction* action : opened->actions())
    if (!action->isSeparator()) texts += plain(*action);
  EXPECT_EQ(texts.join(", ").toStdString(),
            "Play, Pause, Stop, Next, Add songs…, Open list…, Save list…, Remove line, Size, About Tandem, Quit");
}

// The right key of each is the manual's.
TEST_F(Menu, ShowsTheKeysOfThePanel) {
  QMenu* opened = open();
  QStringList keys;
  for (const QAction* action : opened->actions())
    if (!action->shortcut().isEmpty()) {
      EXPECT_TRUE(action->isShortcutVisibleInContextMenu());
      keys += plain(*action) + ": " + action->shortcut().toString(QKeySequence::PortableText);
    }
  EXPECT_EQ(keys.join(", ").toStdString(),
            "Play: Ctrl+P, Pause: Ctrl+Space, Stop: Ctrl+., Next: Ctrl+N, Add songs…: Ctrl+O, Open list…: Ctrl+L, "
            "Save list…: Ctrl+S, Quit: Ctrl+Q");
}

TEST_F(Menu, HasALetterForEveryEntry) {
  QMenu* opened = open();
  std::set<QString> letters;
  for (const QAction* action : opened->actions()) {
    if (action->isSeparator()) continue;
    const qsizetype sign = action->text().indexOf('&');
    ASSERT_GE(sign, 0) << action->text().toStdString();
    EXPECT_TRUE(letters.insert(action->text().mid(sign + 1, 1).toUpper()).second) << action->text().toStdString();
  }
}

TEST_F(Menu, LeavesTheRightButtonToAControlThatUsesIt) {
  item.setContextMenuPolicy(Qt::PreventContextMenu);
  EXPECT_EQ(open(), nullptr);
  QContextMenuEvent by_key(QContextMenuEvent::Keyboard, QPoint(5, 5), item.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&item, &by_key);
  EXPECT_NE(window.findChild<QMenu*>("PanelMenu"), nullptr);
}

TEST_F(Menu, OffersWhatThePanelCan) {
  for (const char* text : {"Play", "Pause", "Stop", "Next", "Save list…", "Remove line"})
    EXPECT_FALSE(can(text)) << text;
  panel.add_songs(2);
  EXPECT_TRUE(can("Play"));
  EXPECT_TRUE(can("Save list…"));
  choose("Play");
  for (const char* text : {"Play", "Pause", "Stop", "Next", "Remove line"}) EXPECT_TRUE(can(text)) << text;
}

TEST_F(Menu, WorksTheTransport) {
  panel.add_songs(2);
  choose("Play");
  EXPECT_EQ(remote.motion(), PanelRemote::Motion::Playing);
  choose("Pause");
  EXPECT_EQ(remote.motion(), PanelRemote::Motion::Paused);
  QMenu* opened = open();
  EXPECT_TRUE(entry(opened, "Pause")->isChecked());
  delete opened;
  choose("Play");
  EXPECT_EQ(remote.motion(), PanelRemote::Motion::Playing);
  panel.select(1);
  choose("Play");
  EXPECT_EQ(remote.song(), TestPanel::song_path(1)) << "the key starts the line that is chosen";
  choose("Stop");
  EXPECT_EQ(remote.motion(), PanelRemote::Motion::Stopped);
}

TEST_F(Menu, WorksTheList) {
  panel.sound.files.lengths["/music/new.mp3"] = 1000;
  panel.dialog.answers.push_back("/music/new.mp3");
  choose("Add songs…");
  EXPECT_EQ(panel.controls.PlayList.ListCount(), 1);
  choose("Save list…");
  choose("Open list…");
  ASSERT_EQ(panel.dialog.shows.size(), 3U);
  EXPECT_EQ(panel.dialog.shows[1].operation, "save");
  EXPECT_EQ(panel.dialog.shows[2].operation, "open");
  panel.select(0);
  choose("Remove line");
  EXPECT_EQ(panel.controls.PlayList.ListCount(), 0);
}

TEST_F(Menu, ChoosesTheSize) {
  QMenu* opened = open();
  const auto sizes = entry(opened, "Size")->menu()->actions();
  ASSERT_EQ(sizes.size(), 5);
  EXPECT_EQ(sizes.front()->text(), "100 %");
  EXPECT_TRUE(sizes.front()->isChecked());
  sizes.at(2)->trigger();
  for (int i = 0; i < 5; ++i) QCoreApplication::processEvents();
  EXPECT_EQ(scale, 1.5);
  delete opened;
}

TEST_F(Menu, SaysWhatTheProgramIs) {
  choose("About Tandem");
  auto* box = window.findChild<QMessageBox*>("AboutBox");
  ASSERT_NE(box, nullptr);
  for (const char* part : {kVersion, "MIT", "Qt", "mpg123", kBuild}) EXPECT_TRUE(box->text().contains(part)) << part;
}

TEST(PanelStyle, ATipHasAQuietEdge) {
  const PanelStyle style;
  QImage picture(40, 20, QImage::Format_RGB32);
  picture.fill(Qt::magenta);
  QStyleOptionFrame tip;
  tip.rect = picture.rect();
  tip.palette = panel_palette();
  QPainter painter(&picture);
  style.drawPrimitive(QStyle::PE_PanelTipLabel, &tip, &painter, nullptr);
  const int ground = picture.pixelColor(20, 10).lightness();
  EXPECT_EQ(picture.pixelColor(20, 10), tip.palette.color(QPalette::ToolTipBase));
  for (const QPoint edge : {QPoint(0, 0), QPoint(20, 0), QPoint(39, 19), QPoint(0, 10)}) {
    EXPECT_GT(picture.pixelColor(edge).lightness(), ground);
    EXPECT_LT(picture.pixelColor(edge).lightness(), tip.palette.color(QPalette::ToolTipText).lightness() / 2);
  }
}

TEST(PanelStyle, AMenuHasAnEdge) {
  const PanelStyle style;
  QImage picture(40, 20, QImage::Format_RGB32);
  QStyleOptionMenuItem menu;
  menu.rect = picture.rect();
  menu.palette = panel_palette();
  QPainter painter(&picture);
  style.drawPrimitive(QStyle::PE_PanelMenu, &menu, &painter, nullptr);
  for (const QPoint edge : {QPoint(0, 0), QPoint(20, 0), QPoint(39, 19), QPoint(0, 10)})
    EXPECT_GT(picture.pixelColor(edge).lightness(), picture.pixelColor(20, 10).lightness() + 30);
}

TEST(PanelStyle, DisabledWordsAreDrawnOnce) {
  EXPECT_EQ(PanelStyle().styleHint(QStyle::SH_EtchDisabledText, nullptr, nullptr, nullptr), 0);
}

TEST(PanelStyle, TheKeysOfDialogsHaveNoPictures) {
  PanelStyle style;
  QMessageBox box;
  box.setStyle(&style);
  EXPECT_EQ(style.styleHint(QStyle::SH_DialogButtonBox_ButtonsHaveIcons, nullptr, &box, nullptr), 0);
  EXPECT_TRUE(box.addButton(QMessageBox::Close)->icon().isNull());
}

TEST_F(Menu, Quits) {
  choose("Quit");
  EXPECT_EQ(quits, 1);
}

}  // namespace
}  // namespace tandem::test
