#include "layout/panel_layout.h"

#include <gtest/gtest.h>

#include <QRectF>
#include <set>
#include <string>

#include "paint/controls/knob.h"

namespace tandem {
namespace {

bool can_be_seen(const ControlBox& control) { return control.kind != ControlKind::NotDrawn; }

TEST(PanelLayout, HasEveryControlOnce) {
  std::set<std::string_view> names;
  for (const ControlBox& control : panel_layout()) EXPECT_TRUE(names.insert(control.name).second) << control.name;
  EXPECT_EQ(names.size(), 145U);
}

TEST(PanelLayout, BoxesStandWhereThePanelHasThem) {
  EXPECT_EQ(control_box("PLAY").box(), QRect(4, 131, 40, 30));
  EXPECT_EQ(control_box("Volume").box(), QRect(212, 113, 46, 48));
  EXPECT_EQ(control_box("LblPosition").box(), QRect(69, 46, 87, 21));
  EXPECT_EQ(control_box("MMSpectrum1").box(), QRect(264, 16, 337, 91));
  EXPECT_EQ(control_box("sl0", 14).box(), QRect(575, 144, 22, 84));
  EXPECT_EQ(control_box("PlayList").box(), QRect(262, 113, 293, 141));
  EXPECT_EQ(control_box("MMLEDSpin3").box(), QRect(237, 388, 46, 22));
  EXPECT_EQ(control_box("MMLEDX6").box(), QRect(14, 399, 22, 11));
  EXPECT_EQ(control_box("Board").box(), QRect(4, 258, 599, 164));
}

TEST(PanelLayout, TextsKeepTheirBlanks) {
  EXPECT_EQ(control_box("STOPBtn").tip, " Stop ");
  EXPECT_EQ(control_box("AMLedOff").tip, " 2,5 seg. ");
  EXPECT_EQ(control_box("Label3", 0).caption, "Auto MIX  >");
  EXPECT_EQ(control_box("PLAY").tip, "");
  EXPECT_EQ(control_box("MMLEDSpin2").caption, "");
  EXPECT_EQ(control_box("MMLEDSpin2").accessible, "FFT length");
}

TEST(PanelLayout, TabPlacesAreUnique) {
  std::set<int> places;
  for (const ControlBox& control : panel_layout()) {
    if (control.tab == 0) continue;
    EXPECT_TRUE(places.insert(control.tab).second) << control.name;
  }
  EXPECT_EQ(control_box("PLAY").tab, 1);
  EXPECT_EQ(control_box("Close").tab, 82);
}

TEST(PanelLayout, EverythingDrawnLiesInTheTallestWindow) {
  const QRect window(QPoint(0, 0), window_size(WindowSize::Board));
  for (const ControlBox& control : panel_layout()) {
    if (!can_be_seen(control)) continue;
    EXPECT_TRUE(window.contains(control.box())) << control.name;
  }
}

TEST(PanelLayout, LabelsAreAsWideAsTheirDots) {
  for (const ControlBox& control : panel_layout()) {
    if (control.kind != ControlKind::LedLabel) continue;
    EXPECT_EQ(control.w, (control.count * 6 - 1) * control.pitch) << control.name;
    EXPECT_EQ(control.h, 7 * control.pitch) << control.name;
  }
}

TEST(PanelLayout, ControlsOfOneViewDoNotOverlap) {
  const auto pressable = [](const ControlBox& c) {
    return c.tab > 0 && c.group != ControlGroup::Equalizer;  // the list lies over the equalizer
  };
  for (const ControlBox& a : panel_layout()) {
    for (const ControlBox& b : panel_layout()) {
      if (&a == &b || !pressable(a) || !pressable(b)) continue;
      EXPECT_FALSE(hit_box(a).intersects(hit_box(b))) << a.name << " and " << b.name;
    }
  }
}

TEST(PanelLayout, LampButtonsArePressedOnTheirCaptionToo) {
  const QRect hit = hit_box(control_box("MMLEDX1"));
  EXPECT_EQ(hit.size(), QSize(84, 21));
  EXPECT_TRUE(hit.contains(control_box("MMLEDX1").box()));
  EXPECT_EQ(hit_box(control_box("PLAY")), control_box("PLAY").box());
}

TEST(PanelLayout, HeadButtonsHangOnTheRightEdge) {
  EXPECT_EQ(chrome_box(control_box("Close"), WindowSize::Full).left(), 607 - 19);
  EXPECT_EQ(chrome_box(control_box("Close"), WindowSize::Compact).left(), 262 - 19);
  EXPECT_EQ(chrome_box(control_box("Minimise"), WindowSize::Compact).left(), 262 - 36);
}

TEST(PanelLayout, RotaryPlacesMatchTheirCaptions) {
  for (const std::string_view name : {"MMSwitchX1", "MMSwitch1", "MMSwitch2", "MMSwitch3", "MMSwitch4"}) {
    const RotaryPlace place = rotary_place(control_box(name));
    const auto captions = position_captions(name);
    const auto count = static_cast<int>(captions.size());
    ASSERT_GT(count, 1) << name;
    for (int i = 0; i < count; ++i) {
      const PositionCaption& caption = captions[static_cast<std::size_t>(i)];
      EXPECT_EQ(caption.position, i);
      EXPECT_DOUBLE_EQ(caption.x, place.caption_x) << name;
      EXPECT_NEAR(caption.angle, rotary_angle(i, count), .06) << name;
      EXPECT_DOUBLE_EQ(caption.box().center().y(), place.centre.y() + (i - (count - 1) / 2.0) * place.caption_pitch);
    }
  }
  EXPECT_TRUE(position_captions("PLAY").empty());
}

TEST(PanelLayout, MetersLeaveTheBarFree) {
  const QRectF bar = control_box("MMLevelX1").box();
  EXPECT_EQ(left_meter_box().right(), bar.left());
  EXPECT_EQ(right_meter_box().left(), bar.right());
}

TEST(PanelLayoutDeathTest, AnUnknownNameEndsTheProgram) {
  EXPECT_DEATH(static_cast<void>(control_box("NoSuchThing")), "no control of the name NoSuchThing");
}

}  // namespace
}  // namespace tandem
