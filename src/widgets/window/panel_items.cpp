// Which item stands for which control: the panel's controls by their names, in drawing order.

#include <optional>
#include <utility>

#include "paint/strokes/palette.h"
#include "widgets/items/label_item.h"
#include "widgets/items/song_list_item.h"
#include "widgets/keys/lamp_item.h"
#include "widgets/values/fader_item.h"
#include "widgets/values/knob_item.h"
#include "widgets/values/spinner_item.h"
#include "widgets/window/panel_window.h"

namespace tandem {

template <class Item, class... Arguments>
Item* PanelWindow::add(std::string_view name, Arguments&&... arguments) {
  auto* item = new Item(this, *this, control_box(name), std::forward<Arguments>(arguments)...);
  item->follow_transform();
  items_.push_back(item);
  by_name_.emplace(name, item);
  return item;
}

void PanelWindow::add_items(DisplayViews displays) {
  add_display_panel();
  minimise_ = add<ChromeItem>("Minimise", Icon::Minimise, [this] { showMinimized(); });
  close_ = add<ChromeItem>("Close", Icon::Close, [this] { close(); });
  add_transport();
  add_mix_strip();
  add_display_area(std::move(displays));
  add_equalizer();
  add_song_list();
  add_board();
  chain_tabs();
}

// The area lies under its labels, so it is made first.
void PanelWindow::add_display_panel() {
  PanelControls& c = controls_;
  auto* area = add<AreaItem>("MMPanelX1(1)", &c.MMPanelX1[1], &c.MMPanelX1[1].click);
  const auto add_label = [&](const char* name, LedLabel& label, UnlitDots unlit) {
    area->shine_over(*add<LedLabelItem>(name, label, true, unlit));
  };
  add_label("MMLEDLABELX1", c.MMLEDLABELX1, {});
  add_label("SongLabel", c.SongLabel, {palette::kTitleDots, true});
  add_label("MMLEDLABELX2", c.MMLEDLABELX2, {});
  add_label("LblPosition", c.LblPosition, {palette::kLimeDots});
  total_ = add<LedLabelItem>("LblTempTot", c.LblTempTot, true, UnlitDots{palette::kWhiteDots});
  area->shine_over(*total_);
  add<LedLabelItem>("INDIC", c.INDIC, false, UnlitDots{palette::kReadOutDots});
  add_label("MMLEDLABELX3", c.MMLEDLABELX3, {});
  add_label("ClockLabel", c.ClockLabel, {palette::kOrangeDots});
  area->shine_over(*add<GaugeItem>("MeterVol", c.MeterVol));
  add<PitchLampItem>("LED1", c.LED1, &control_box("LED2"));
  add<PitchLampItem>("LED2", c.LED2, &control_box("LED3"));
  add<PitchLampItem>("LED3", c.LED3, nullptr);
}

void PanelWindow::add_transport() {
  PanelControls& c = controls_;
  position_ = add<PositionItem>("Slider1", c.Slider1);
  add<KeyItem>("PLAY", c.PLAY);
  add<KeyItem>("PAUSE", c.PAUSE, KeyTraits{.engaged = clYellow});
  add<KeyItem>("STOPBtn", c.STOPBtn);
  add<KeyItem>("NextBtn", c.NextBtn, KeyTraits{.picture = Icon::Next});
  add<KeyItem>("LoadSong", c.LoadSong, KeyTraits{.bold = true});
  volume_ = add<WheelItem>("Volume", c.Volume);
}

void PanelWindow::add_mix_strip() {
  PanelControls& c = controls_;
  add_lead_lamps();
  add<RotaryItem>("MMSwitchX1", c.MMSwitchX1);
  add<SlideSwitchItem>("BufferSwitch", c.BufferSwitch);
  add<SlideSwitchItem>("Bypass", c.Bypass);
  add<KeyItem>("ShowPlayList", c.ShowPlayList, KeyTraits{.engaged = clAqua});
  add<KeyItem>("ShowControls", c.ShowControls, KeyTraits{.engaged = clLime});
  add<FaderItem>("SliderP", c.SliderP, QSizeF(18, 13), palette::kAqua, c.SliderP.LineSize);
  add<StudItem>("Command2", c.Command2);
}

// The row of lead times: each lamp with the caption before it.
void PanelWindow::add_lead_lamps() {
  PanelControls& c = controls_;
  const std::pair<const char*, Lamp&> lamps[] = {
      {"AMLedOff", c.AMLedOff}, {"AMLed1", c.AMLed1}, {"AMLed2", c.AMLed2}, {"AMLed3", c.AMLed3}};
  for (const auto& [name, lamp] : lamps)
    lead_lamps_.push_back(
        add<LeadLampItem>(name, lamp, control_box("Label3", static_cast<int>(lead_lamps_.size()) + 1)));
  for (std::size_t i = 0; i < lead_lamps_.size(); ++i)
    lead_lamps_[i]->set_neighbours(i > 0 ? lead_lamps_[i - 1] : nullptr,
                                   i + 1 < lead_lamps_.size() ? lead_lamps_[i + 1] : nullptr);
}

// One item draws all displays.
void PanelWindow::add_display_area(DisplayViews displays) {
  visual_ = add<DisplayAreaItem>("MMSpectrum1", std::move(displays));
  for (const auto& view : visual_->views())
    if (view->is_beside()) add<LevelItem>(view->name(), *view);
}

void PanelWindow::add_equalizer() {
  PanelControls& c = controls_;
  add<AreaItem>("MMPanelX1(0)", &c.MMPanelX1[0], &c.MMPanelX1[0].click);
  for (int i = 0; i < static_cast<int>(kBands); ++i) {
    const auto band = static_cast<std::size_t>(i);
    const std::string index = std::string("(").append(std::to_string(i)).append(")");
    add<DeadItem>("Label2" + index);
    bands_.push_back(add<BandItem>("sl0" + index, c.sl0[band], i));
    bands_.back()->was_used = [this](BandItem& used) { use_band(used); };
    bands_.back()->go_to_band = [this](int to) {
      if (to >= 0 && to < static_cast<int>(bands_.size()))
        bands_[static_cast<std::size_t>(to)]->setFocus(Qt::TabFocusReason);
    };
    add<GainItem>("dbLabel0" + index, c.dbLabel0[band].Caption, c.dbLabel0[band]);
  }
  use_band(*bands_.front());
}

// The faders are one tab stop: the one last used.
void PanelWindow::use_band(BandItem& band) {
  for (BandItem* other : bands_) other->setFocusPolicy(other == &band ? Qt::StrongFocus : Qt::ClickFocus);
}

void PanelWindow::add_song_list() {
  PanelControls& c = controls_;
  list_ = add<SongListItem>("PlayList", c.PlayList, [this] { item("PLAY")->press(); });
  add<KeyItem>("UpList", c.UpList, KeyTraits{.picture = Icon::Up});
  add<KeyItem>("DownList", c.DownList, KeyTraits{.picture = Icon::Down});
  add<KeyItem>("LoadList", c.LoadList);
  add<KeyItem>("SaveList", c.SaveList);
}

void PanelWindow::add_board() {
  PanelControls& c = controls_;
  add<LampButtonItem>("MMLEDX1", c.MMLEDX1, clLime);
  add<LampButtonItem>("MMLEDX2", c.MMLEDX2, clLime);
  add<LampButtonItem>("MMLEDX3", c.MMLEDX3, clLime);
  add<LampButtonItem>("MMLEDX4", c.MMLEDX4, clLime);
  add<LampButtonItem>("MMLEDX5", c.MMLEDX5, clLime);
  add<LampButtonItem>("MMLEDX6", c.MMLEDX6, clYellow);
  add<RotaryItem>("MMSwitch1", c.MMSwitch1);
  add<RotaryItem>("MMSwitch2", c.MMSwitch2);
  add<RotaryItem>("MMSwitch3", c.MMSwitch3);
  add<RotaryItem>("MMSwitch4", c.MMSwitch4);
  add<SpinnerItem>("MMLEDSpin7", c.MMLEDSpin7, SpinnerItem::Digits::Lime);
  add<SpinnerItem>("MMLEDSpin2", c.MMLEDSpin2, SpinnerItem::Digits::Lime);
  add<SpinnerItem>("MMLEDSpin3", c.MMLEDSpin3, SpinnerItem::Digits::Lime);
  add<SpinnerItem>("MMLEDSpin6", c.MMLEDSpin6, SpinnerItem::Digits::Lime);
  add<SpinnerItem>("MMLEDSpin1", c.MMLEDSpin1, SpinnerItem::Digits::Lime);
  add<SpinnerItem>("MMLEDSpin5", c.MMLEDSpin5, SpinnerItem::Digits::White);
  add<SpinnerItem>("MMLEDSpin4", c.MMLEDSpin4, SpinnerItem::Digits::White);
  add<SpinnerItem>("MMLEDSpin8", c.MMLEDSpin8, SpinnerItem::Digits::White);
}

void PanelWindow::chain_tabs() {
  std::vector<PanelItem*> chain;
  for (PanelItem* item : items_)
    if (item->place().tab > 0) chain.push_back(item);
  std::stable_sort(chain.begin(), chain.end(),
                   [](const PanelItem* a, const PanelItem* b) { return a->place().tab < b->place().tab; });
  for (std::size_t i = 1; i < chain.size(); ++i) setTabOrder(chain[i - 1], chain[i]);
}

}  // namespace tandem
