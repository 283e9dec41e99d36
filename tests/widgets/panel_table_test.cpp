// Every control at its place, with its tip and its place in the tab chain, against a table of its own.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QMetaObject>
#include <fstream>
#include <map>
#include <sstream>
#include <utility>

#include "widgets/window_rig.h"

namespace tandem::test {
namespace {

struct Row {
  std::string name;
  QRect box;
  int tab = 0;
  std::string tip;
  std::string spoken;
};

Row row_of(const std::string& line) {
  std::vector<std::string> fields;
  std::stringstream text(line + ";");
  for (std::string field; std::getline(text, field, ';');) fields.push_back(field);
  const auto number = [&](std::size_t i) { return std::stoi(fields.at(i)); };
  return {fields.at(0), {number(1), number(2), number(3), number(4)}, number(5), fields.at(6), fields.at(7)};
}

std::vector<Row> read_table() {
  std::ifstream file(TANDEM_TEST_DATA "/panel_geometry.csv");
  std::vector<Row> rows;
  for (std::string line; std::getline(file, line);)
    if (!line.empty() && line.front() != '#') rows.push_back(row_of(line));
  return rows;
}

// Lamp buttons and slide switches are pressed by their captions too.
QRect expected_hit_box(const Row& row) {
  const std::map<std::string, QRect> wider = {{"BufferSwitch", {104, 190, 44, 32}}, {"Bypass", {161, 190, 47, 32}}};
  if (const auto found = wider.find(row.name); found != wider.end()) return found->second;
  if (row.name.starts_with("MMLEDX")) return {row.box.x() - 2, row.box.y() - 5, 84, 21};
  return row.box;
}

// The name alone or, where the value is not announced separately, followed by the value; a caption without a name in
// the table has its printed text.
std::vector<std::string> expected_names(const PanelItem& item, const Row& row) {
  if (row.spoken.empty()) return {item.accessible_name().toStdString()};
  const std::string value = item.accessible_value().toStdString();
  const auto with = [&](const char* between) {
    std::string name = row.spoken + between + value;
    name.erase(name.find_last_not_of(' ') + 1);
    return name;
  };
  return {row.spoken, with(": "), with(", "), with(" ")};
}

TEST(PanelTable, HoldsEveryControlAtItsPlace) {
  const std::vector<Row> table = read_table();
  ASSERT_EQ(table.size(), 135U);
  for (const Row& row : table) EXPECT_EQ(control_box(row.name).box(), row.box) << row.name;
}

TEST(PanelTable, EveryItemHasItsBoxTipAndName) {
  WindowRig rig;
  std::size_t items = 0;
  for (const Row& row : read_table()) {
    const PanelItem* item = rig.window->item(row.name);
    if (item == nullptr) continue;
    ++items;
    EXPECT_EQ(item->geometry(), expected_hit_box(row)) << row.name;
    EXPECT_EQ(item->toolTip().toStdString(), row.tip) << row.name;
    EXPECT_THAT(expected_names(*item, row), testing::Contains(item->accessible_name().toStdString())) << row.name;
    EXPECT_EQ(item->place().tab, row.tab) << row.name;
  }
  EXPECT_EQ(items, rig.window->items().size());
}

// Every control that the mouse or the keys can use is an item.
TEST(PanelTable, WhatIsInTheTabChainIsAnItem) {
  WindowRig rig;
  for (const Row& row : read_table()) {
    if (row.tab == 0) continue;
    EXPECT_NE(rig.window->item(row.name), nullptr) << row.name;
  }
}

// Printed captions come from the layout, those of keys and labels from their models: they say the same.
TEST(PanelTable, TheControlsHaveTheCaptionsOfTheLayout) {
  WindowRig rig;
  PanelControls& c = rig.controls();
  const std::vector<std::pair<const char*, std::string>> captions = {{"LoadSong", c.LoadSong.Caption},
                                                                     {"LoadList", c.LoadList.Caption},
                                                                     {"SaveList", c.SaveList.Caption},
                                                                     {"ShowPlayList", c.ShowPlayList.Caption},
                                                                     {"ShowControls", c.ShowControls.Caption},
                                                                     {"MMLEDLABELX1", c.MMLEDLABELX1.Caption.get()},
                                                                     {"MMLEDLABELX3", c.MMLEDLABELX3.Caption.get()},
                                                                     {"MMLEDLABELX2", c.MMLEDLABELX2.Caption.get()}};
  for (const auto& [name, caption] : captions) EXPECT_EQ(control_box(name).caption, caption) << name;
}

TEST(PanelTable, ThePositionCaptionsStandWhereTheyArePressed) {
  const auto box_of = [](const char* name, std::size_t position) { return position_captions(name)[position].box(); };
  EXPECT_EQ(box_of("MMSwitchX1", 2), QRectF(60, 236, 34, 12));
  EXPECT_EQ(box_of("MMSwitch1", 0), QRectF(180, 283.5, 46, 12));
  EXPECT_EQ(box_of("MMSwitch2", 6), QRectF(304, 355, 46, 12));
  EXPECT_EQ(box_of("MMSwitch3", 3), QRectF(428, 335.5, 46, 12));
  EXPECT_EQ(box_of("MMSwitch4", 1), QRectF(552, 309.5, 46, 12));
  EXPECT_EQ(box_of("BufferSwitch", 1), QRectF(120, 208, 28, 12));
  EXPECT_EQ(box_of("Bypass", 0), QRectF(177, 192, 31, 12));
}

}  // namespace
}  // namespace tandem::test
