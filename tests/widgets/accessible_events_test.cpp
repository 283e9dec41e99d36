// What assistive technology learns while it listens: lines that come, go and are renumbered, and times.

#include <gtest/gtest.h>

#include <QAccessible>
#include <QCoreApplication>

#include "widgets/accessibility/accessible_events.h"
#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

using Events = std::vector<std::string>;

Events heard;

std::string line_of(QAccessibleInterface* line) {
  const std::string text = line->text(QAccessible::Name).toStdString();
  return std::to_string(line->parent()->indexOfChild(line)) + " " + text.substr(0, 5) +
         text.substr(text.rfind('/') + 1);
}

void hear(QAccessibleEvent* event) {
  QAccessibleInterface* whose = event->accessibleInterface();
  if (whose == nullptr) throw std::runtime_error("an event without an object");
  if (!whose->isValid()) throw std::runtime_error("an event of what is gone");
  const bool line = whose->role() == QAccessible::ListItem;
  const std::string name = line ? line_of(whose) : whose->text(QAccessible::Name).toStdString();
  switch (event->type()) {
    case QAccessible::ObjectCreated:
      return heard.push_back("created " + name);
    case QAccessible::ObjectDestroyed:
      return heard.push_back("destroyed " + std::to_string(whose->parent()->indexOfChild(whose)));
    case QAccessible::NameChanged:
      return heard.push_back("named " + name);
    case QAccessible::Selection:
      return heard.push_back("selected " + name);
    case QAccessible::DescriptionChanged:
      return heard.push_back(name + " is " + whose->text(QAccessible::Description).toStdString());
    case QAccessible::Focus:
      return heard.push_back("focus on " + name);
    case QAccessible::ValueChanged:
      return heard.push_back(name + ": " + whose->text(QAccessible::Value).toStdString());
    default:
      break;
  }
}

class AccessibleEvents : public testing::Test {
 protected:
  AccessibleEvents() : before_(set_accessibility_handler(hear)) {}
  ~AccessibleEvents() override { set_accessibility_handler(before_); }
  ListBox& list() { return rig.controls().PlayList; }
  QAccessibleInterface& spoken_list() { return spoken("PlayList"); }
  void listen_to_list() {
    spoken_list().childCount();
    line_events();
  }
  // Three songs in the list, which has the focus, on the first or the last line.
  void focus_list(Qt::Key home_or_end) {
    rig.add_songs(3);
    listen_to_list();
    rig.focus("PlayList");
    rig.key(home_or_end);
    events({});
  }
  QAccessibleInterface& spoken(const char* name) {
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(&rig.item(name));
    if (found == nullptr) throw std::runtime_error("silent");
    return *found;
  }
  // The events since the last call that start with one of the words.
  static Events events(const std::vector<std::string>& words) {
    QCoreApplication::sendPostedEvents();
    Events found;
    for (const std::string& event : std::exchange(heard, {}))
      for (const std::string& word : words)
        if (event.starts_with(word)) found.push_back(event);
    return found;
  }
  static Events line_events() { return events({"created", "destroyed", "named 0", "named 1", "named 2", "named 3"}); }

  WindowRig rig;

 private:
  AccessibilityHandler before_;
};

TEST_F(AccessibleEvents, ReportLinesThatCome) {
  listen_to_list();
  rig.add_songs(2);
  EXPECT_EQ(line_events(), (Events{"created 0 01 - song 1.wav", "created 1 02 - song 2.wav"}));
  rig.add_songs(1);
  EXPECT_EQ(line_events(), (Events{"created 2 03 - song 3.wav"}));
}

TEST_F(AccessibleEvents, ReportALineThatGoesAndThoseThatAreRenumbered) {
  rig.add_songs(4);
  QAccessibleInterface* third = spoken_list().child(2);
  ASSERT_NE(third, nullptr);
  line_events();
  list().user_double_click(1);
  EXPECT_EQ(line_events(), (Events{"destroyed 1", "named 1 02 - song 3.wav", "named 2 03 - song 4.wav"}));
  EXPECT_EQ(spoken_list().child(1), third) << "it is the same song";
  EXPECT_EQ(spoken_list().indexOfChild(third), 1);
  list().user_double_click(2);
  EXPECT_EQ(line_events(), (Events{"destroyed 2"}));
}

// The panel empties the list and fills it again to move one song.
TEST_F(AccessibleEvents, AMovedSongIsTwoNames) {
  rig.add_songs(4);
  list().user_select(2);
  listen_to_list();
  rig.click("UpList");
  EXPECT_EQ(line_events(), (Events{"named 1 02 - song 3.wav", "named 2 03 - song 2.wav"}));
}

TEST_F(AccessibleEvents, ReportAListThatIsEmptied) {
  rig.add_songs(3);
  listen_to_list();
  list().Clear();
  EXPECT_EQ(line_events(), (Events{"destroyed 2", "destroyed 1", "destroyed 0"}));
  EXPECT_EQ(spoken_list().childCount(), 0);
}

TEST_F(AccessibleEvents, ReportHowAnEmptyListIsFilled) {
  const auto description = [this] { return spoken_list().text(QAccessible::Description).toStdString(); };
  const std::string name = spoken_list().text(QAccessible::Name).toStdString();
  EXPECT_EQ(description(), "Drop songs here or press SONG");
  rig.add_songs(2);
  EXPECT_EQ(events({name + " is"}), Events{name + " is "});
  rig.add_songs(1);
  EXPECT_EQ(events({name + " is"}), Events{}) << "it was not empty before";
  list().Clear();
  EXPECT_EQ(events({name + " is"}), Events{name + " is Drop songs here or press SONG"});
}

TEST_F(AccessibleEvents, ReportNothingOfLinesThatAreAsTheyWere) {
  rig.add_songs(3);
  listen_to_list();
  rig.wheel("PlayList", -1);
  list().put_List(1, list().List(1));
  EXPECT_EQ(line_events(), Events{});
}

TEST_F(AccessibleEvents, ReportALineRequestedBeforeItIsAnnounced) {
  listen_to_list();
  rig.add_songs(2);
  const QAccessibleInterface* second = spoken_list().child(1);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(line_events(), (Events{"created 0 01 - song 1.wav", "created 1 02 - song 2.wav"}));
  EXPECT_EQ(spoken_list().child(1), second) << "it is the same object";
}

TEST_F(AccessibleEvents, ReportALineRequestedAndGoneBeforeItIsAnnounced) {
  listen_to_list();
  rig.add_songs(3);
  ASSERT_NE(spoken_list().child(2), nullptr);
  list().user_double_click(1);
  EXPECT_EQ(line_events(), (Events{"created 0 01 - song 1.wav", "created 1 02 - song 3.wav"}));
  EXPECT_EQ(spoken_list().child(2), nullptr);
}

TEST_F(AccessibleEvents, ReportALineThatComesAndIsSelectedInOneAct) {
  listen_to_list();
  rig.focus("PlayList");
  events({});
  rig.add_songs(2);
  list().put_ListIndex(0);
  EXPECT_EQ(events({"created", "selected", "focus"}),
            (Events{"created 0 01 - song 1.wav", "created 1 02 - song 2.wav", "selected 0 01 - song 1.wav",
                    "focus on 0 01 - song 1.wav"}));
}

TEST_F(AccessibleEvents, ReportNothingBeforeAnybodyHasAsked) {
  rig.focus("PlayList");
  events({});
  rig.add_songs(3);
  list().put_ListIndex(1);
  list().Clear();
  EXPECT_EQ(line_events(), Events{});
  EXPECT_EQ(events({"selected", "focus"}), Events{});
}

TEST_F(AccessibleEvents, ReportTheLineThatIsSelected) {
  focus_list(Qt::Key_Home);
  rig.key(Qt::Key_Down);
  EXPECT_EQ(events({"selected", "focus"}), (Events{"selected 1 02 - song 2.wav", "focus on 1 02 - song 2.wav"}));
  rig.focus("PLAY");
  events({});
  list().put_ListIndex(2);
  EXPECT_EQ(events({"selected", "focus"}), (Events{"selected 2 03 - song 3.wav"}));
}

TEST_F(AccessibleEvents, ARemovedLineLeavesTheFocusToTheList) {
  focus_list(Qt::Key_Home);
  rig.key(Qt::Key_Delete);
  EXPECT_EQ(events({"destroyed", "selected", "focus"}), (Events{"destroyed 0", "focus on Playlist"}));
  rig.key(Qt::Key_Down);
  events({});
  rig.focus("PLAY");
  events({});
  list().put_ListIndex(-1);
  EXPECT_EQ(events({"selected", "focus"}), Events{}) << "the list has not the focus";
}

// While it moves there is for a moment no line at all.
TEST_F(AccessibleEvents, AMovedSongKeepsTheFocus) {
  focus_list(Qt::Key_End);
  rig.key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(events({"selected", "focus"}), (Events{"selected 1 02 - song 3.wav", "focus on 1 02 - song 3.wav"}));
}

// Screen readers keep a name until it is announced as changed, and a switch's name holds its position.
TEST_F(AccessibleEvents, ASwitchThatIsMovedHasAnotherName) {
  PanelControls& controls = rig.controls();
  const struct {
    const char* item;
    Switch& control;
    int position;
    const char* name;
  } moves[] = {{"MMSwitchX1", controls.MMSwitchX1, 1, "Meter: V.U."},
               {"BufferSwitch", controls.BufferSwitch, 1, "Output buffer: Buf2"},
               {"Bypass", controls.Bypass, 1, "Equalizer: EQ"},
               {"MMSwitch1", controls.MMSwitch1, 2, "Type: V.Lines"},
               {"MMSwitch2", controls.MMSwitch2, 1, "Window: Hamming"},
               {"MMSwitch3", controls.MMSwitch3, 1, "Decay: Step"},
               {"MMSwitch4", controls.MMSwitch4, 2, "Gain: 6db"}};
  for (const auto& move : moves) spoken(move.item);
  for (const auto& move : moves) move.control.move(0);
  for (const auto& move : moves) {
    events({});
    move.control.move(move.position);
    EXPECT_EQ(events({"named"}), Events{std::string("named ") + move.name});
  }
}

TEST_F(AccessibleEvents, ReportAValueThatHasChangedAwayFromTheFocus) {
  rig.show_board();
  spoken("MMLEDX1");
  spoken("MMLEDX6");
  rig.focus("MMLEDX1");
  events({});
  rig.key(Qt::Key_Space);
  EXPECT_EQ(events({"Grid"}), (Events{"Grid: on"}));
  rig.focus("MMLEDX6");
  rig.key(Qt::Key_Space);
  EXPECT_EQ(events({"Grid", "Default"}), (Events{"Default: on"})) << "the grid goes off without a word";
  rig.focus("MMLEDX1");
  rig.key(Qt::Key_Space);
  EXPECT_EQ(events({"Grid"}), (Events{"Grid: on"}));
}

TEST_F(AccessibleEvents, ReportThePositionAsATime) {
  rig.controls().Slider1.put_maximum(225'000);
  rig.controls().Slider1.Position = 82'400;
  EXPECT_EQ(spoken("Slider1").text(QAccessible::Value).toStdString(), "1:22 of 3:45");
  EXPECT_EQ(spoken("Slider1").text(QAccessible::Description).toStdString(), "1:22 of 3:45");
  rig.focus("Slider1");
  events({});
  for (int position = 82'600; position < 84'600; position += 200) rig.controls().Slider1.Position = position;
  EXPECT_EQ(events({"Song position"}), (Events{"Song position: 1:23 of 3:45", "Song position: 1:24 of 3:45"}));
}

TEST_F(AccessibleEvents, ThePositionIsSetInSeconds) {
  rig.controls().Slider1.put_maximum(225'900);
  rig.controls().Slider1.Position = 82'400;
  QAccessibleValueInterface* number = spoken("Slider1").valueInterface();
  ASSERT_NE(number, nullptr);
  EXPECT_EQ(number->currentValue().toDouble(), 82);
  EXPECT_EQ(number->maximumValue().toDouble(), 225);
  EXPECT_EQ(number->minimumStepSize().toDouble(), 5);
  Events log;
  log_of(rig.controls().Slider1, log);
  number->setCurrentValue(100);
  EXPECT_EQ(log, (Events{"press", "change 100000", "release"}));
  number->setCurrentValue(1e12);
  EXPECT_EQ(rig.controls().Slider1.value(), 225'900);
}

}  // namespace
}  // namespace tandem::test
